#pragma once

#include "services/opengl/Gl.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglGeometry.h"
#include "services/opengl/OglText.h"
#include "services/opengl/OglViewport.h"
#include "services/opengl/Resource.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Picture.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

class FenOffscreenContext;

/// Fixture with an OpenGL context (one per process) and what a drawing context
/// needs: resources, cache, text and geometry. Each test starts with default GL
/// state, a white picture of 400 x 300 pixels and a 2D pixel mode over it; the
/// end asserts that there is no GL error, that all stacks are as they were, the
/// render mode is GL_RENDER and that nothing unexpected was logged.
class OffscreenGlTest : public testing::Test {
protected:
    OffscreenGlTest();
    ~OffscreenGlTest() override;
    void SetUp() override;
    void TearDown() override;

    /// The context of the process, made when first asked for.
    static FenOffscreenContext& context();

    /// Another picture size [device px]; clears it and sets the pixel mode over it.
    void resizePicture(int width, int height);
    /// Fills the picture and clears depth and stencil.
    void clear(QColor const& color = Qt::white);
    /// Loads a projection of one unit per pixel over the picture and an identity model-view.
    void pixelMode();
    /// Loads a perspective-free 3D view: `extent` units up and down, looking from (1, -1.5, 1).
    void view3d(double extent);
    FenOglViewport viewport() const { return FenOglViewport(0, 0, _width, _height); }
    /// What is drawn so far.
    Picture picture() const;

    /// Asserts that `pass` raises no GL error and leaves the GL state as it was.
    void expectPassKeepsState(std::function<void()> const& pass);
    /// Draws in selection mode around (x, y) [px, from the bottom left] and returns
    /// the names that were hit; `draw` loads names with glLoadName.
    std::vector<GLuint> pick(int x, int y, int size, std::function<void()> const& draw);

    LogCapture log;
    FenResource resource;
    std::unique_ptr<FenOglCache> cache;
    std::unique_ptr<FenOglText> text;
    FenOglGeometry geometry;

private:
    int _width = 400;
    int _height = 300;
};
