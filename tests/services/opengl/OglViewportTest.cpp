#include "services/opengl/OglViewport.h"
#include "services/opengl/BoxPlacement.h"
#include "services/properties/ModifiedGroup.h"
#include "services/properties/Viewport.h"
#include "tests/support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

struct Row {
    char const* placement;
    double x, y, width, height;
    FenOglViewport expected;
};

FenViewport relative(FenModifiedGroup& group, Row const& row)
{
    FenViewport viewport(group);
    viewport.placement.set(row.placement);
    viewport.x.set(row.x);
    viewport.y.set(row.y);
    viewport.width.set(row.width);
    viewport.height.set(row.height);
    return viewport;
}

TEST(OglViewport, PlacesANodeInsideItsParentFromTheNamedCorner)
{
    FenModifiedGroup group;
    FenOglViewport const parent(10, 20, 400, 300);
    Row const rows[] = {
        {"bottomLeft", 0, 0, 1, 1, {10, 20, 400, 300}},
        {"bottomLeft", 5, 7, 100, 50, {15, 27, 100, 50}},
        {"bottomRight", 5, 7, 100, 50, {305, 27, 100, 50}},
        {"topLeft", 5, 7, 100, 50, {15, 263, 100, 50}},
        {"topRight", 5, 7, 0.25, 0.5, {305, 163, 100, 150}},
        {"center", 3, -4, 100, 50, {163, 141, 100, 50}},
        {"bottomLeft", 0.5, 0.4, 1.4, 0.001, {11, 20, 1, 0}},
    };
    for (Row const& row : rows) {
        FenOglViewport const own = FenOglViewport::fitToParent(parent, relative(group, row));
        EXPECT_EQ(row.expected, own) << row.placement << " gives " << own.x() << ' ' << own.y() << ' '
                                     << own.width() << ' ' << own.height();
    }
}

TEST(OglViewport, ComesBackUnchangedFromItsRelativeForm)
{
    FenModifiedGroup group;
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        auto const number = [&](int low, int high) {
            return std::uniform_int_distribution(low, high)(random);
        };
        FenOglViewport const outer(number(-50, 50), number(-50, 50), number(1, 30), number(1, 2000));
        FenOglViewport const inner(number(-90, 90), number(-90, 90), number(0, 3), number(0, 2000));
        EXPECT_EQ(inner,
                  FenOglViewport::fitToParent(outer, FenOglViewport::fitToParent(group, inner, outer)));
    }
}

TEST(OglViewport, RefusesWhatIsNoNumberAndSurvivesHugeOnes)
{
    LogCapture log;
    log.expect("Viewport numbers must be finite");
    log.expect("Unknown viewport placement \"middle\"");
    FenModifiedGroup group;
    FenOglViewport const parent(0, 0, 400, 300);
    double const inf = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(
        FenOglViewport::fitToParent(parent, relative(group, {"center", std::nan(""), 0, 1, 1, {}})).valid());
    EXPECT_FALSE(FenOglViewport::fitToParent(parent, relative(group, {"center", 0, 0, inf, 1, {}})).valid());
    EXPECT_FALSE(FenOglViewport::fitToParent(parent, relative(group, {"center", 0, 0, -5, 1, {}})).valid());
    FenOglViewport const far =
        FenOglViewport::fitToParent(parent, relative(group, {"topRight", 1e300, -1e300, 1e300, 1, {}}));
    EXPECT_TRUE(far.valid());
    EXPECT_EQ(parent, FenOglViewport::fitToParent(parent, relative(group, {"middle", 0, 0, 1, 1, {}})));
}

TEST(BoxDrag, MovesOnlyTheEdgesThatAreHeldAndKeepsALeastSize)
{
    struct Case {
        fen::DraggedEdges edges;
        QPoint offset; ///< previous minus current
        FenOglViewport expected;
    };
    Case const cases[] = {
        {fen::DraggedEdges::all(), {5, -7}, {95, 57, 40, 30}},
        {{true, false, true, false}, {5, 5}, {95, 45, 45, 35}},
        {{false, true, false, true}, {-5, -6}, {100, 50, 45, 36}},
        {{true, false, false, true}, {-100, 100}, {130, 50, 10, 10}}, // pushed against the other edge
        {{false, true, true, false}, {100, -100}, {100, 70, 10, 10}},
    };
    for (Case const& row : cases) {
        fen::BoxDrag drag;
        drag.begin(FenOglViewport(100, 50, 40, 30));
        drag.move(row.offset, row.edges);
        EXPECT_EQ(row.expected, drag.box(QSize(10, 10)));
    }
    FenOglViewport const area(10, 20, 100, 50);
    EXPECT_EQ(FenOglViewport(80, 20, 30, 40), fen::keptInside({300, -5, 30, 40}, area));
    EXPECT_EQ(FenOglViewport(10, 20, 300, 40), fen::keptInside({-40, 0, 300, 40}, area));
}

TEST(OglViewport, KnowsItsNumbersAndWhatLiesInside)
{
    int const numbers[] = {1, 2, 3, 4};
    FenOglViewport viewport(numbers);
    EXPECT_EQ(FenOglViewport(1, 2, 3, 4), viewport);
    EXPECT_NE(FenOglViewport(1, 2, 3, 5), viewport);
    EXPECT_EQ(3, static_cast<int const*>(viewport)[2]);
    EXPECT_TRUE(viewport.contains(QPoint(3, 5)));
    EXPECT_FALSE(viewport.contains(QPoint(4, 5)));
    EXPECT_FALSE(viewport.contains(QPoint(0, 2)));
    viewport.reset();
    EXPECT_FALSE(viewport.valid());
    EXPECT_EQ(FenOglViewport(), FenOglViewport(nullptr));
}

} // namespace
