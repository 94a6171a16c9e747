#include "services/opengl/PixelRatio.h"

#include "services/opengl/Gl.h"

#include <algorithm>
#include <cmath>

namespace fen {

namespace {

double currentRatio = 1;
float lastPointSize = 1; // [device px] for lists that record

constexpr float mostPixels = 4096; // beyond any driver's line width and point size

/// [device px] above 0 and finite
float deviceSize(float logical)
{
    float const size = logical > 0 ? logical : 1.0f; // NaN counts as 1 too
    return std::min(size, mostPixels) * float(currentRatio);
}

int devicePixels(double logical)
{
    constexpr double most = 1e6;
    return int(std::lround(std::clamp(logical * currentRatio, -most, most)));
}

} // namespace

double pixelRatio() { return currentRatio; }

PixelRatioScope::PixelRatioScope(double ratio)
    : _previous(currentRatio)
{
    constexpr double most = 64;
    currentRatio = std::isfinite(ratio) && ratio > 0 ? std::min(ratio, most) : 1;
}

PixelRatioScope::~PixelRatioScope() { currentRatio = _previous; }

void lineWidth(float width) { glLineWidth(deviceSize(width)); }

void pointSize(float size)
{
    lastPointSize = deviceSize(size);
    glPointSize(lastPointSize);
}

void scissor(int x, int y, int width, int height)
{
    glScissor(devicePixels(x), devicePixels(y), devicePixels(std::max(width, 0)),
              devicePixels(std::max(height, 0)));
}

void lineStipple(int factor, unsigned short bits)
{
    constexpr int most = 256;
    int const logical = std::clamp(factor, 1, most);
    glLineStipple(std::clamp(devicePixels(logical), 1, most), bits);
}

float devicePointSize()
{
    if (recordingList()) return lastPointSize;
    GLfloat size = 1;
    glGetFloatv(GL_POINT_SIZE, &size);
    return size;
}

bool recordingList()
{
    GLint list = 0;
    glGetIntegerv(GL_LIST_INDEX, &list);
    return list != 0;
}

bool selectionMode()
{
    GLint mode = GL_RENDER;
    glGetIntegerv(GL_RENDER_MODE, &mode);
    return mode == GL_SELECT;
}

} // namespace fen
