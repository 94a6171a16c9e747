#pragma once

#include "../../services/logging/Export.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <memory>

/// OpenGL compatibility context without display or window, drawing into one
/// framebuffer of its own (colour, depth, stencil).
///
/// Current from construction until another one is made current. Viewport and
/// scissor cover the framebuffer at first.
class FENVIS_EXPORT FenOffscreenContext {
public:
    /// @param size     [device px], clamped to 1..the largest the driver can do
    /// @param samples  per pixel, for smooth edges of what is drawn with GL_MULTISAMPLE on; 0: one
    explicit FenOffscreenContext(QSize const& size, int samples = 0);
    ~FenOffscreenContext();
    FenOffscreenContext(FenOffscreenContext const&) = delete;
    FenOffscreenContext& operator=(FenOffscreenContext const&) = delete;

    /// False when no context or framebuffer could be made; `error` says why.
    bool valid() const;
    QString error() const;
    /// [device px] of the framebuffer
    QSize size() const;
    /// Samples per pixel: those asked for, or fewer where the driver has no more.
    int samples() const;

    /// Makes the context current and binds its framebuffer.
    bool makeCurrent();
    void doneCurrent();
    bool isCurrent() const;
    /// Another framebuffer size; viewport and scissor cover it. The contents are lost.
    bool resize(QSize const& size);
    /// Another number of samples. The contents are lost.
    bool setSamples(int samples);

    /// What the framebuffer shows, top row first, as opaque as it was drawn
    /// (Format_RGBA8888); null when the context is not valid.
    QImage grab();

private:
    struct State;
    std::unique_ptr<State> _state;
};
