#include "charts/pie/PieLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

using Kes::Math::Vector2;

namespace {

constexpr double pi = std::numbers::pi;
double const inf = std::numeric_limits<double>::infinity();

/// "25 90, 50 180": share in percent and span in degrees of each slice.
std::string slices(fen::PieLayout::Ring const& ring)
{
    std::string text;
    for (auto const& slice : ring.slices) {
        int const span = int(std::lround((slice.segment.end - slice.segment.start) * 180 / pi));
        text += fen::percentText(ring, slice).toStdString() + ' ' + std::to_string(span) + ", ";
    }
    return text;
}

double area(fen::PieSegment const& segment, fen::PieCircle const& circle)
{
    std::vector<Vector2> triangles;
    appendTriangles(segment, circle, triangles);
    double sum = 0;
    for (std::size_t i = 0; i + 2 < triangles.size(); i += 3) {
        Vector2 const u = triangles[i + 1] - triangles[i], v = triangles[i + 2] - triangles[i];
        sum += 0.5 * std::abs(double(u.x()) * double(v.y()) - double(u.y()) * double(v.x()));
    }
    return sum;
}

} // namespace

TEST(PieLayout, SharesARingByAbsoluteValues)
{
    double const most = std::numeric_limits<double>::max();
    struct {
        std::vector<double> values;
        char const* slices;
    } const rows[] = {
        {{1, 1, 2}, "25% 90, 25% 90, 50% 180, "},
        {{7, -93}, "7% 25, 93% 335, "},
        {{0, 0}, "0.0% 0, 0.0% 0, "},
        {{std::nan(""), inf, 5}, "0% 0, 0% 0, 100% 360, "},
        {{most, most}, "50% 180, 50% 180, "},
        {{1, 1000}, "1% 0, 100% 360, "},
    };
    for (auto const& row : rows) {
        std::vector<fen::PieItem> items;
        for (double const value : row.values) items.push_back({0, value});
        fen::PieLayout const layout(FenOglViewport(0, 0, 200, 120), items);
        EXPECT_EQ(59, layout.radius);
        EXPECT_DOUBLE_EQ(10.0 / 59, layout.circle.step);
        EXPECT_EQ(row.slices, slices(layout.rings.at(0)));
    }
    EXPECT_EQ(0, fen::PieLayout(FenOglViewport(0, 0, 3, 100), {{0, 1}}).radius);
    EXPECT_TRUE(fen::PieLayout(FenOglViewport(0, 0, 90, 90), {}).rings.empty());
    EXPECT_DOUBLE_EQ(pi / 18, fen::PieLayout(FenOglViewport(0, 0, 90, 90), {}).circle.step);
}

TEST(PieLayout, PutsRingsAroundADiscByTheirNumbers)
{
    fen::PieLayout const layout(FenOglViewport(0, 0, 202, 202), {{7, 1}, {-1, 1}, {7, 1}, {2, 0}});
    ASSERT_EQ(3u, layout.rings.size());
    double inner = 0, outer = 50;
    for (auto const& ring : layout.rings) {
        EXPECT_EQ(inner, ring.whole.innerRadius);
        EXPECT_EQ(outer, ring.whole.outerRadius);
        inner = outer;
        outer += 25;
    }
    EXPECT_TRUE(layout.rings[1].empty);
    EXPECT_EQ(2u, layout.rings[2].slices[1].item);
}

TEST(PieSegment, FillsWhatItsOutlineEncloses)
{
    fen::PieCircle const circle{Vector2(100, 100), 0.1};
    for (fen::PieSegment const& segment : {fen::PieSegment{0, 2 * pi, 0, 80}, fen::PieSegment{1, 1.05, 0, 80},
                                           fen::PieSegment{1, 4, 30, 80}}) {
        double const exact = (segment.end - segment.start) / 2
            * (segment.outerRadius * segment.outerRadius - segment.innerRadius * segment.innerRadius);
        EXPECT_NEAR(1, area(segment, circle) / exact, 0.003);
        auto const outline = segmentOutline(segment, circle);
        EXPECT_EQ(circle.point(segment.end, 80), outline.back());
    }
    fen::PieSegment const quarter{0, pi / 2, 30, 80}; // right of the top
    struct {
        QRectF box;
        bool held, met;
    } const rows[] = {
        {{130, 130, 10, 10}, true, true},  {{95, 150, 10, 10}, false, true},
        {{80, 150, 10, 10}, false, false}, {{110, 110, 5, 5}, false, false},
        {{0, 0, 200, 200}, false, true},   {{160, 160, 9, 9}, false, false},
        {{119, 119, 10, 10}, false, true},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(row.held, holds(quarter, circle, row.box)) << row.box.x() << ' ' << row.box.width();
        EXPECT_EQ(row.met, meets(quarter, circle, row.box)) << row.box.x() << ' ' << row.box.width();
    }
}

TEST(PieLayout, FindsTheLastSlicesNearABox)
{
    std::vector<fen::PieItem> const items(10000, {0, 1.0});
    fen::PieLayout const layout(FenOglViewport(0, 0, 602, 602), items);
    for (double angle = 0.05; angle < 6.28; angle += 0.37) {
        Vector2 const at = layout.circle.point(angle, 250);
        auto const found = layout.slicesNear(QRectF(double(at.x()) - 2, double(at.y()) - 2, 4, 4), 10);
        ASSERT_EQ(10u, found.size());
        EXPECT_NEAR(angle, found.back()->segment.start, 0.013); // half the diagonal of the box
        EXPECT_EQ(found.front()->item + 9, found.back()->item);
    }
    EXPECT_EQ(10u, layout.slicesNear(QRectF(300, 300, 2, 2), 10).size());
    EXPECT_TRUE(layout.slicesNear(QRectF(0, 0, 20, 20), 10).empty());
}
