#include "scene/VisTriad.h"

#include "framework/UpdateContext.h"
#include "picking/hits/IVisEventHandler.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/hits/VisHitRecordQuery.h"
#include "services/math/BoundingBox.h"
#include "services/opengl/GlWrappers.h"
#include "tests/support/OffscreenGlTest.h"
#include "tests/support/RecordingNode.h"

using Kes::Math::Matrix, Kes::Math::Vector3;

namespace {

class VisTriadGl : public OffscreenGlTest {
protected:
    VisTriadGl()
    {
        triad.enabled.set(true);
        triad.lighting.set(false);
        triad.lineColor.set(Qt::transparent);
        list.insert(&triad, true);
    }
    /// Seen along the axis that `view` turns towards the viewer.
    Picture draw()
    {
        clear();
        auto context = passes.draw();
        context.modelView = view;
        list.update(context);
        expectPassKeepsState([&] {
            list.draw3d(context);
            pixelMode();
            list.draw2d(context);
        });
        return picture();
    }
    /// Label under a point [px from the bottom left]; empty for no entry.
    QString pick(QPoint const& point)
    {
        auto context = passes.select(point, QSize(1, 1));
        context.modelView = view;
        hits = list.select3d(context);
        if (hits.size() == 0) return QString();
        FenVisHitProperty const what = triad.hitProperty(FenVisHitRecordQuery::top(hits).context());
        auto const* const label = dynamic_cast<FenVisHitLabelQualifier const*>(what.qualifier.get());
        return what.isPropertyEqual(&triad) && label ? label->label : QStringLiteral("no label");
    }
    /// Tells the handler of the last pick that the pointer rests there.
    bool hover(QString& tooltip)
    {
        boost::weak_ptr<IFenVisEventHandler> handler;
        FenVisHitRecord const top = FenVisHitRecordQuery::top(hits, &handler);
        return handler.lock()->OnMouseOver(top, FenStringBuilder(), tooltip);
    }

    Matrix view; // x to the right, y up
    FenVisHitRecordList hits;
    Passes passes;
    FenModifiedGroup group;
    FenVisList list{group, "node"};
    FenVisTriad triad{group};
};

constexpr QPoint onX(42, 32), onY(32, 42), behindY(32, 22); // of the default square

} // namespace

TEST_F(VisTriadGl, DrawsAndPicksItsArrowsAsTheSceneIsTurned)
{
    Picture const front = draw();
    EXPECT_EQ(QRect(0, 300 - 65, 65, 65), front.boundingBox().united(QRect(0, 300 - 65, 65, 65)));
    QColor const red = front.pixelGl(onX.x(), onX.y()), green = front.pixelGl(onY.x(), onY.y());
    EXPECT_GT(red.red(), red.green());
    EXPECT_GT(green.green(), green.red());
    EXPECT_EQ("X", pick(onX));
    EXPECT_EQ("Y", pick(onY));
    EXPECT_EQ("", pick(behindY)) << "the negative arrows are transparent";
    EXPECT_EQ("", pick(QPoint(5, 5)));
    EXPECT_EQ("", pick(QPoint(200, 200)));
    view = Matrix::rotate(Vector3(0, 0, 1), 90);
    EXPECT_EQ(red, draw().pixelGl(onY.x(), onY.y()));
    EXPECT_EQ("X", pick(onY));
    triad.labelPosX.set("east");
    view = Matrix::translation(Vector3(50, 0, 0)) * Matrix::scaling(Vector3(9, 9, 9)) * view;
    EXPECT_EQ("east", pick(onY)) << "only the orientation counts";
}

TEST_F(VisTriadGl, AHoveredArrowLightsUpAndAnInvisibleOneAppears)
{
    draw();
    ASSERT_EQ("X", pick(onX));
    QString tooltip;
    EXPECT_TRUE(hover(tooltip));
    EXPECT_EQ("X", tooltip);
    EXPECT_FALSE(hover(tooltip)) << "the same again";
    EXPECT_EQ("X", pick(onX)) << "under another name of a later pass";
    EXPECT_EQ(QColor(255, 170, 0), draw().pixelGl(onX.x(), onX.y()));
    EXPECT_TRUE(picture().is(behindY.x(), 300 - 1 - behindY.y(), Qt::white));
    triad.labelPosX.set("-Y"); // one label for two arrows: both are what is hovered
    ASSERT_EQ("-Y", pick(onX));
    EXPECT_TRUE(hover(tooltip));
    EXPECT_EQ(QColor(255, 170, 0), draw().pixelGl(behindY.x(), behindY.y()));
}

TEST_F(VisTriadGl, TakesASquareOfItsSizeUntilItsViewportSaysMore)
{
    FenOglViewport const parent(10, 20, 400, 300);
    struct Row {
        char const* placement;
        double x, y, width, height;
        int size;
        FenOglViewport expected;
    };
    Row const rows[] = {{"bottomLeft", 0, 0, 1, 1, 65, {10, 20, 65, 65}},
                        {"topRight", 5, 6, 1, 1, 50, {410 - 55, 320 - 56, 50, 50}},
                        {"bottomLeft", 0, 0, 1, 1, 1000, {10, 20, 300, 300}},
                        {"bottomLeft", 7, 0, 0.5, 80, 65, {17, 20, 200, 80}},
                        {"bottomLeft", 0, 0, 1, 1, -3, {}}};
    for (Row const& row : rows) {
        triad.viewport.placement.set(row.placement);
        triad.viewport.x.set(row.x);
        triad.viewport.y.set(row.y);
        triad.viewport.width.set(row.width);
        triad.viewport.height.set(row.height);
        triad.pixelSize.set(row.size);
        FenOglViewport own;
        EXPECT_TRUE(triad.getViewport(parent, own));
        EXPECT_EQ(row.expected, own) << row.size;
    }
}
