#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisOglSelect.h"
#include "picking/select/VisOglSelectBuffer.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/VertexArrays.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

#include <boost/make_shared.hpp>

#include <climits>

namespace {

class VisOglSelectGl : public OffscreenGlTest {
protected:
    /// With the matrices of `pixelMode`: one unit per pixel, held by the projection.
    FenVisualization::SelectContext picking(QPoint const& point, QSize const& size = QSize(3, 3))
    {
        auto context = passes.select(point, size);
        context.projection = glGetProjectionMatrix();
        return context;
    }
    /// Draws a square of 20 pixels under a name, or without one.
    void square(FenVisOglSelectWeakPtr select, int x, int y, QString const& label)
    {
        FenVisPickScope const name(select, table, [&] {
            return FenVisHitProperty(&owner, boost::make_shared<FenVisHitLabelQualifier>(label));
        });
        fen::drawRectangle(float(x), float(y), float(x + 20), float(y + 20));
    }
    /// Labels of what a pick finds among three squares, of which b and c overlap.
    QStringList found(FenVisualization::SelectContext const& context)
    {
        table.clear();
        FenVisOglSelectBuffer buffer(10);
        {
            FenVisOglSelect select(context, buffer);
            square(select, 0, 0, "a");
            square(select, 100, 100, "b");
            square(select, 110, 100, "c");
        }
        QStringList labels;
        for (FenVisHitRecord const& record : buffer.records()) {
            EXPECT_NEAR(0.5, record.depth(), 1e-6);
            labels.append(table.value(record.context()).qualifier->toString());
        }
        return labels;
    }

    /// The one line that was logged.
    QString onlyLine()
    {
        QStringList const lines = log.take();
        EXPECT_EQ(1, lines.size());
        return lines.value(0);
    }

    Passes passes;
    FenModifiedGroup group;
    FenProperties owner{group};
    FenVisHitTable table;
};

} // namespace

TEST_F(VisOglSelectGl, FindsWhatLiesUnderThePickRegion)
{
    struct Row {
        QPoint point;
        QSize size;
        QStringList labels;
    } const rows[] = {
        {{5, 5}, {3, 3}, {"label(a)"}},
        {{0, 0}, {1, 1}, {"label(a)"}},
        {{115, 110}, {3, 3}, {"label(b)", "label(c)"}},
        {{95, 110}, {3, 3}, {}},
        {{95, 110}, {11, 3}, {"label(b)"}},
        {{105, 110}, {0, 0}, {"label(b)"}},
        {{105, 110}, {-1, -1}, {"label(b)"}},
        {{200, 150}, {9999, 9999}, {"label(a)", "label(b)", "label(c)"}},
        {{-500, 5}, {3, 3}, {}},
        {{INT_MAX, INT_MIN}, {INT_MAX, INT_MAX}, {}},
    };
    for (Row const& row : rows) {
        expectPassKeepsState([&] { EXPECT_EQ(row.labels, found(picking(row.point, row.size))); });
    }
}

TEST_F(VisOglSelectGl, NamesStartAtOneInEveryPassAndAreWithdrawn)
{
    for (int pass = 0; pass < 2; ++pass) {
        FenVisOglSelectBuffer buffer(10);
        {
            FenVisOglSelect select(picking(QPoint(5, 5)), buffer);
            FenVisOglSelectWeakPtr handle(select);
            EXPECT_TRUE(handle && handle.next() == 1);
            handle.reset();
            square(FenVisOglSelectWeakPtr(), 0, 0, ""); // without a name
            EXPECT_EQ(2u, handle.next());
            FenVisOglSelect copy(select);
            EXPECT_EQ(3u, copy.next()); // and closes nothing
            fen::drawRectangle(0.0f, 0.0f, 9.0f, 9.0f);
        }
        EXPECT_EQ("3@0.5 ", describe(buffer.records()));
        EXPECT_TRUE(onlyLine().startsWith("WARNING: !hasInvalids && "));
    }
}

TEST_F(VisOglSelectGl, OverflowKeepsTheCompleteRecordsAndLackOfMemoryFindsNothing)
{
    for (unsigned const size : {2u, 0u}) {
        FenVisOglSelectBuffer buffer(size);
        glColor(Qt::red);
        {
            FenVisOglSelect select(picking(QPoint(200, 150), QSize(400, 300)), buffer);
            for (int i = 0; i < int(2 * size + 1); ++i) square(select, 30 * i, 0, QString::number(i));
        }
        EXPECT_EQ(size > 0 ? "1@0.5 2@0.5 " : "", describe(buffer.records()));
        QString const line = onlyLine();
        EXPECT_TRUE(line.startsWith(size > 0 ? "WARNING: _buffer._hitCount >= 0 && \"An overflow occured "
                                               "determining the current hits!\" - "
                                             : "\"_buffer._buffer.size()>0\" - "));
        EXPECT_TRUE(size == 0 || line.endsWith("~FenVisOglSelect() @line112"));
    }
    EXPECT_EQ(0, picture().count(Qt::red)) << "picking draws nothing";
}

TEST_F(VisOglSelectGl, APassInsideAPassFindsNothingAndLeavesTheOuterOneWhole)
{
    FenVisOglSelectBuffer outerBuffer(10), innerBuffer(10);
    {
        FenVisOglSelect outer(picking(QPoint(5, 5)), outerBuffer);
        EXPECT_EQ(1u, outer.next());
        {
            FenVisOglSelect inner(picking(QPoint(5, 5)), innerBuffer);
            square(inner, 0, 0, "inner");
            EXPECT_EQ(0xFFFFFFFFu, inner.next());
        }
        EXPECT_TRUE(table.isEmpty());
        EXPECT_TRUE(onlyLine().contains("renderMode == GL_RENDER"));
        fen::drawRectangle(0.0f, 0.0f, 9.0f, 9.0f);
        EXPECT_EQ(2u, outer.next());
        fen::drawRectangle(0.0f, 0.0f, 9.0f, 9.0f);
    }
    EXPECT_EQ("1@0.5 2@0.5 ", describe(innerBuffer.records()) + describe(outerBuffer.records()));
    EXPECT_TRUE(onlyLine().contains("!hasInvalids")) << "what the inner pass drew";
}
