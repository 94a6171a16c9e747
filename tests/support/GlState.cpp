#include "tests/support/GlState.h"

#include "services/opengl/Gl.h"

#include <QString>

#include <array>
#include <cstdio>

namespace {

struct Query {
    char const* name;
    GLenum key;
    int count;
};
constexpr Query queries[] = {
    {"model-view matrix", GL_MODELVIEW_MATRIX, 16},
    {"projection matrix", GL_PROJECTION_MATRIX, 16},
    {"texture matrix", GL_TEXTURE_MATRIX, 16},
    {"matrix mode", GL_MATRIX_MODE, 1},
    {"model-view stack depth", GL_MODELVIEW_STACK_DEPTH, 1},
    {"projection stack depth", GL_PROJECTION_STACK_DEPTH, 1},
    {"attribute stack depth", GL_ATTRIB_STACK_DEPTH, 1},
    {"client attribute stack depth", GL_CLIENT_ATTRIB_STACK_DEPTH, 1},
    {"name stack depth", GL_NAME_STACK_DEPTH, 1},
    {"render mode", GL_RENDER_MODE, 1},
    {"viewport", GL_VIEWPORT, 4},
    {"scissor box", GL_SCISSOR_BOX, 4},
    {"depth range", GL_DEPTH_RANGE, 2},
    {"depth function", GL_DEPTH_FUNC, 1},
    {"depth mask", GL_DEPTH_WRITEMASK, 1},
    {"colour mask", GL_COLOR_WRITEMASK, 4},
    {"blend source", GL_BLEND_SRC, 1},
    {"blend destination", GL_BLEND_DST, 1},
    {"alpha function", GL_ALPHA_TEST_FUNC, 1},
    {"line width", GL_LINE_WIDTH, 1},
    {"point size", GL_POINT_SIZE, 1},
    {"line stipple pattern", GL_LINE_STIPPLE_PATTERN, 1},
    {"line stipple factor", GL_LINE_STIPPLE_REPEAT, 1},
    {"polygon mode", GL_POLYGON_MODE, 2},
    {"front face", GL_FRONT_FACE, 1},
    {"shade model", GL_SHADE_MODEL, 1},
    {"bound texture", GL_TEXTURE_BINDING_2D, 1},
    {"unpack row length", GL_UNPACK_ROW_LENGTH, 1},
    {"unpack alignment", GL_UNPACK_ALIGNMENT, 1},
    {"array buffer", GL_ARRAY_BUFFER_BINDING, 1},
    {"framebuffer", GL_FRAMEBUFFER_BINDING, 1},
    {"open list", GL_LIST_INDEX, 1},
};
constexpr GLenum firstEnable = 0x0B10, lastEnable = 0x0DFF; // GL_POINT_SMOOTH .. the evaluators
constexpr GLenum furtherEnables[] = {GL_BLEND,
                                     GL_TEXTURE_2D,
                                     GL_POINT_SPRITE,
                                     GL_POLYGON_OFFSET_FILL,
                                     GL_RESCALE_NORMAL,
                                     GL_MULTISAMPLE,
                                     GL_CLIP_PLANE0,
                                     GL_LIGHT0,
                                     GL_LIGHT1,
                                     GL_VERTEX_ARRAY,
                                     GL_NORMAL_ARRAY,
                                     GL_COLOR_ARRAY,
                                     GL_TEXTURE_COORD_ARRAY,
                                     GL_EDGE_FLAG_ARRAY};

std::string enableName(GLenum key)
{
    char text[32];
    std::snprintf(text, sizeof text, "enable 0x%04X", key);
    return text;
}

} // namespace

GlState GlState::now()
{
    GlState state;
    for (Query const& query : queries) {
        std::vector<double> values(size_t(query.count), 0.0);
        glGetDoublev(query.key, values.data());
        state._values[query.name] = values;
    }
    for (GLenum key = firstEnable; key <= lastEnable; ++key)
        state._values[enableName(key)] = {double(glIsEnabled(key))};
    for (GLenum const key : furtherEnables) state._values[enableName(key)] = {double(glIsEnabled(key))};
    while (glGetError() != GL_NO_ERROR) { } // most numbers in the range are no flags
    return state;
}

QStringList GlState::differences(GlState const& other) const
{
    QStringList list;
    for (auto const& [name, values] : _values) {
        auto const& others = other._values.at(name);
        if (values == others) continue;
        QString line = QString::fromStdString(name) + ":";
        for (size_t i = 0; i < values.size(); ++i) line += QString(" %1 -> %2").arg(values[i]).arg(others[i]);
        list << line;
    }
    return list;
}
