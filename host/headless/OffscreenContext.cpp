#include "host/headless/OffscreenContext.h"

#include "services/opengl/Gl.h"

// Without this egl.h brings in the X11 headers and their macros.
#define EGL_NO_X11
#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <algorithm>
#include <cstring>

namespace {

/// The process's connection to EGL: initialised once and never terminated, because contexts of others
/// may use the same one.
EGLDisplay surfacelessDisplay()
{
    static EGLDisplay const display = [] {
        EGLDisplay const found =
            eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        return found != EGL_NO_DISPLAY && eglInitialize(found, nullptr, nullptr) ? found : EGL_NO_DISPLAY;
    }();
    return display;
}

/// Whether rows can be read in the order in which pictures keep them; saves turning the picture over.
bool readsTopRowFirst()
{
    auto const* const extensions = reinterpret_cast<char const*>(glGetString(GL_EXTENSIONS));
    return extensions && std::strstr(extensions, "GL_MESA_pack_invert");
}

} // namespace

struct FenOffscreenContext::State {
    EGLContext context = EGL_NO_CONTEXT;
    GLuint framebuffer = 0;
    GLuint color = 0;
    GLuint depth = 0;
    GLuint resolved = 0; // framebuffer with one sample per pixel, for reading
    GLuint resolvedColor = 0;
    int samples = 0;
    QSize size;
    QString error;

    bool createContext();
    bool createFramebuffer();
    bool allocate(QSize const& wanted, int wantedSamples);
    void storage(GLuint buffer, GLenum kind, int perPixel) const;
};

bool FenOffscreenContext::State::createContext()
{
    EGLDisplay const display = surfacelessDisplay();
    if (display == EGL_NO_DISPLAY) {
        error = "No EGL display without surfaces.";
        return false;
    }
    eglBindAPI(EGL_OPENGL_API);
    // Without a version the driver gives its newest compatibility profile.
    context = eglCreateContext(display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, nullptr);
    if (context == EGL_NO_CONTEXT || !eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context)) {
        error = QString("No OpenGL context (EGL error 0x%1).").arg(eglGetError(), 0, 16);
        return false;
    }
    return true;
}

bool FenOffscreenContext::State::createFramebuffer()
{
    glGenFramebuffers(1, &framebuffer);
    glGenRenderbuffers(1, &color);
    glGenRenderbuffers(1, &depth);
    glGenFramebuffers(1, &resolved);
    glGenRenderbuffers(1, &resolvedColor);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    return framebuffer != 0;
}

void FenOffscreenContext::State::storage(GLuint buffer, GLenum kind, int perPixel) const
{
    glBindRenderbuffer(GL_RENDERBUFFER, buffer);
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, perPixel, kind, size.width(), size.height());
}

bool FenOffscreenContext::State::allocate(QSize const& wanted, int wantedSamples)
{
    GLint most = 0;
    GLint mostSamples = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &most);
    glGetIntegerv(GL_MAX_SAMPLES, &mostSamples);
    int const limit = std::max<int>(most, 1);
    size = QSize(std::clamp(wanted.width(), 1, limit), std::clamp(wanted.height(), 1, limit));
    samples = std::clamp<int>(wantedSamples, 0, mostSamples);
    storage(color, GL_RGBA8, samples);
    storage(depth, GL_DEPTH24_STENCIL8, samples);
    if (samples > 0) {
        storage(resolvedColor, GL_RGBA8, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, resolved);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, resolvedColor);
    }
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, color);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depth);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
        if (samples > 0) return allocate(wanted, 0);
        error = QString("No framebuffer of %1 x %2 pixels.").arg(size.width()).arg(size.height());
        return false;
    }
    error.clear();
    glViewport(0, 0, size.width(), size.height());
    glScissor(0, 0, size.width(), size.height());
    return true;
}

FenOffscreenContext::FenOffscreenContext(QSize const& size, int samples)
    : _state(std::make_unique<State>())
{
    if (_state->createContext() && _state->createFramebuffer()) _state->allocate(size, samples);
}

FenOffscreenContext::~FenOffscreenContext()
{
    if (_state->context == EGL_NO_CONTEXT) return;
    if (makeCurrent()) {
        glDeleteFramebuffers(1, &_state->framebuffer);
        glDeleteRenderbuffers(1, &_state->color);
        glDeleteRenderbuffers(1, &_state->depth);
        glDeleteFramebuffers(1, &_state->resolved);
        glDeleteRenderbuffers(1, &_state->resolvedColor);
    }
    doneCurrent();
    eglDestroyContext(surfacelessDisplay(), _state->context);
}

bool FenOffscreenContext::valid() const { return _state->framebuffer != 0 && _state->error.isEmpty(); }
QString FenOffscreenContext::error() const { return _state->error; }
QSize FenOffscreenContext::size() const { return _state->size; }
int FenOffscreenContext::samples() const { return _state->samples; }

bool FenOffscreenContext::makeCurrent()
{
    if (_state->context == EGL_NO_CONTEXT) return false;
    eglBindAPI(EGL_OPENGL_API);
    if (!eglMakeCurrent(surfacelessDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, _state->context)) return false;
    glBindFramebuffer(GL_FRAMEBUFFER, _state->framebuffer);
    return true;
}

void FenOffscreenContext::doneCurrent()
{
    if (isCurrent()) eglMakeCurrent(surfacelessDisplay(), EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
}

bool FenOffscreenContext::isCurrent() const
{
    return _state->context != EGL_NO_CONTEXT && eglGetCurrentContext() == _state->context;
}

bool FenOffscreenContext::resize(QSize const& size)
{
    return makeCurrent()
        && (size == _state->size && valid() ? true : _state->allocate(size, _state->samples));
}

bool FenOffscreenContext::setSamples(int samples)
{
    return makeCurrent() && (samples == _state->samples || _state->allocate(_state->size, samples));
}

QImage FenOffscreenContext::grab()
{
    if (!valid() || !makeCurrent()) return QImage();
    QImage picture(_state->size, QImage::Format_RGBA8888);
    if (_state->samples > 0) {
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, _state->resolved);
        glBlitFramebuffer(0, 0, picture.width(), picture.height(), 0, 0, picture.width(), picture.height(),
                          GL_COLOR_BUFFER_BIT, GL_NEAREST);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, _state->resolved);
    }
    glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    glPixelStorei(GL_PACK_SKIP_ROWS, 0);
    glPixelStorei(GL_PACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    bool const turned = readsTopRowFirst();
    if (turned) glPixelStorei(GL_PACK_INVERT_MESA, GL_TRUE);
    glReadPixels(0, 0, picture.width(), picture.height(), GL_RGBA, GL_UNSIGNED_BYTE, picture.bits());
    glPopClientAttrib();
    glBindFramebuffer(GL_FRAMEBUFFER, _state->framebuffer);
    return turned ? picture : picture.mirrored();
}
