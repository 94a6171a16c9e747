#include "host/headless/OffscreenContext.h"
#include "services/opengl/Gl.h"
#include "tests/support/Picture.h"

#include <gtest/gtest.h>

namespace {

void fill(QColor const& color)
{
    glClearColor(color.redF(), color.greenF(), color.blueF(), 1);
    glClear(GL_COLOR_BUFFER_BIT);
}

TEST(OffscreenContext, DrawsWithoutAWindowAndGrabsTopRowFirst)
{
    FenOffscreenContext context(QSize(30, 20));
    ASSERT_TRUE(context.valid()) << context.error().toStdString();
    EXPECT_TRUE(context.isCurrent());
    fill(Qt::white);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 10, 5);
    fill(Qt::red);
    Picture const picture(context.grab());
    EXPECT_EQ(QSize(30, 20), picture.image().size());
    EXPECT_EQ(QRect(0, 15, 10, 5), picture.boundingBox());

    EXPECT_TRUE(context.resize(QSize(50, 40)));
    EXPECT_EQ(QSize(50, 40), context.size());
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(50, viewport[2]);
    glDisable(GL_SCISSOR_TEST);
    fill(Qt::blue);
    EXPECT_EQ(50 * 40, Picture(context.grab()).count(Qt::blue));
}

TEST(OffscreenContext, KeepsItsPictureWhileAnotherIsCurrent)
{
    FenOffscreenContext first(QSize(8, 8));
    fill(Qt::red);
    {
        FenOffscreenContext second(QSize(8, 8));
        EXPECT_FALSE(first.isCurrent());
        fill(Qt::green);
        EXPECT_EQ(64, Picture(first.grab()).count(Qt::red)) << "grab makes its own context current";
        EXPECT_EQ(64, Picture(second.grab()).count(Qt::green));
    }
    EXPECT_TRUE(first.makeCurrent());
    first.doneCurrent();
    EXPECT_FALSE(first.isCurrent());
    EXPECT_EQ(64, Picture(first.grab()).count(Qt::red));
}

TEST(OffscreenContext, SamplesSmoothEdgesAndGiveTheSameBitsTwice)
{
    FenOffscreenContext context(QSize(64, 64), 4);
    auto const draw = [&] {
        fill(Qt::white);
        glEnable(GL_MULTISAMPLE);
        glColor3f(1, 0, 0);
        glBegin(GL_TRIANGLES);
        glVertex2f(-0.9F, -0.8F);
        glVertex2f(0.9F, -0.5F);
        glVertex2f(0.1F, 0.9F);
        glEnd();
        return Picture(context.grab());
    };
    Picture const smooth = draw();
    EXPECT_TRUE(context.samples() == 0 || smooth.colors() > 3) << smooth.colors();
    EXPECT_EQ(0, smooth.differingPixels(draw()));
    EXPECT_TRUE(context.setSamples(0));
    EXPECT_EQ(2, draw().colors());
}

TEST(OffscreenContext, TakesAnySizeAndManyContextsAfterEachOther)
{
    EXPECT_EQ(QSize(1, 1), FenOffscreenContext(QSize(0, -7)).size());
    FenOffscreenContext large(QSize(1 << 30, 1));
    EXPECT_LT(large.size().width(), 1 << 20) << "clamped to what the driver can do";
    EXPECT_TRUE(large.valid() || !large.error().isEmpty());
    for (int i = 0; i < 20; ++i) {
        FenOffscreenContext context(QSize(64, 64));
        ASSERT_TRUE(context.valid());
    }
}

} // namespace
