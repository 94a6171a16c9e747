#include "picking/select/VisOglSelect.h"

#include "picking/hits/VisHitRecord.h"
#include "picking/select/VisOglSelectBuffer.h"
#include "services/logging/Checks.h"
#include "services/opengl/GlWrappers.h"

#include "services/opengl/Gl.h"

#include <algorithm>
#include <limits>

namespace {

// Logged texts, kept as they are.
constexpr char const* emptyBufferText = "_buffer._buffer.size()>0";
constexpr char const* overflowText =
    "_buffer._hitCount >= 0 && \"An overflow occured determining the current hits!\"";
constexpr char const* overflowMark = "@line112";
constexpr char const* nestedText = "renderMode == GL_RENDER && \"a pick inside a pick finds nothing\"";

/// The name that OpenGL puts on hits at present; it cannot be asked for it.
quint32& nameInForce()
{
    static quint32 name = FenVisHitRecord::INVALID_NAME;
    return name;
}

void loadName(quint32 name)
{
    glLoadName(name);
    nameInForce() = name;
}

int clampedSum(int a, int b)
{
    qint64 const sum = qint64(a) + qint64(b);
    return int(std::clamp<qint64>(sum, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

FenVisOglSelect::FenVisOglSelect(FenVisualization::SelectContext const& context,
                                 FenVisOglSelectBuffer& buffer)
    : SelectContext(context)
    , _next(FenVisHitRecord::START_NAME)
    , _buffer(buffer)
{
    FENVIS_ENSURE(_buffer._buffer.size() > 0, emptyBufferText);
    GLint renderMode = GL_RENDER; // stays so without a context
    glGetIntegerv(GL_RENDER_MODE, &renderMode);
    _nested = !FENVIS_ENSURE(renderMode == GL_RENDER, nestedText);
    if (_nested) {
        // What is drawn now must not count as the thing that the outer pass was drawing.
        _outerName = nameInForce();
        loadName(FenVisHitRecord::INVALID_NAME);
    } else {
        enter();
    }
}

FenVisOglSelect::FenVisOglSelect(FenVisOglSelect const& other)
    : SelectContext(other)
    , _next(other._next)
    , _buffer(other._buffer)
    , _closes(false)
    , _nested(other._nested)
    , _outerName(other._outerName)
{
}

FenVisOglSelect::~FenVisOglSelect()
{
    if (!_closes) return;
    if (_nested) {
        loadName(_outerName);
        return;
    }
    glPopName();
    _buffer._hitCount = glRenderMode(GL_RENDER);
    FENVIS_WARN_UNLESS(_buffer._hitCount >= 0, overflowText, overflowMark);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}

void FenVisOglSelect::enter()
{
    // Selection mode cannot be entered on no memory at all; what lands here is lost.
    static GLuint spare[4];
    std::vector<quint32>& words = _buffer._buffer;
    if (words.empty()) {
        glSelectBuffer(4, spare);
    } else {
        glSelectBuffer(GLsizei(words.size()), words.data());
    }
    glInitNames();
    // Closed in the order of the destructor: the pop of this push stands there.
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    QPoint const window(clampedSum(point.x(), viewport.x()), clampedSum(point.y(), viewport.y()));
    gluPickMatrix(window, size, viewport);
    glMultMatrix(projection);
    glMatrixMode(GL_MODELVIEW);
    glRenderMode(GL_SELECT);
    glPushName(FenVisHitRecord::INVALID_NAME);
    nameInForce() = FenVisHitRecord::INVALID_NAME;
}

unsigned int FenVisOglSelect::next()
{
    if (_nested) return FenVisHitRecord::INVALID_NAME;
    loadName(_next);
    return _next++;
}

void FenVisOglSelect::reset()
{
    if (!_nested) loadName(FenVisHitRecord::INVALID_NAME);
}

unsigned int FenVisOglSelectWeakPtr::next()
{
    return _select ? _select->next() : FenVisHitRecord::INVALID_NAME;
}

void FenVisOglSelectWeakPtr::reset()
{
    if (_select) _select->reset();
}
