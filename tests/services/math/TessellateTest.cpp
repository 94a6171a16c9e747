#include "services/math/Tessellate.h"
#include "services/math/BoundingBox.h"
#include "services/math/Delaunay.h"
#include "services/math/IVariableIter.h"

#include <QtCore/QString>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <tuple>

using namespace Kes::Math;
using Kes::Tess::Tessellate;

namespace {

typedef std::vector<Vector3> Points;

class ListIter : public IVariableIter {
public:
    explicit ListIter(Points points)
        : _points(std::move(points))
    {
    }
    void Reset() override { _next = 0; }
    bool MoveNext() override { return _next++ < _points.size(); }
    Vector3 Current() const override { return _points[_next - 1]; }
    bool IsUndefined(Vector3::Comp comp) const override { return std::isnan(Current()[comp]); }
    QString Unit(Vector3::Comp) const override { return QString(); }

private:
    Points _points;
    size_t _next = 0;
};

struct Surface {
    std::vector<std::array<Vector3, 3>> triangles;
    Points outline;
    double area = 0.0;

    explicit Surface(Points const& points, BoundingBox const& box = BoundingBox())
    {
        ListIter iter(points);
        Tessellate tessellate(iter, box);
        std::array<Vector3, 3> t;
        while (tessellate.MoveNext()) {
            tessellate.Current(t[0], t[1], t[2]);
            triangles.push_back(t);
            double const twice = double(Vector3::xProduct(t[1] - t[0], t[2] - t[0]).z());
            EXPECT_GT(twice, 0.0);
            area += twice / 2;
        }
        EXPECT_FALSE(tessellate.MoveNext());
        tessellate.Reset();
        EXPECT_EQ(!triangles.empty(), tessellate.MoveNext());
        outline = tessellate.Boundary();
    }

    double outlineArea() const
    {
        double twice = 0.0;
        for (size_t i = 1; i < outline.size(); ++i)
            twice += double(outline[i - 1].x()) * double(outline[i].y())
                - double(outline[i].x()) * double(outline[i - 1].y());
        return twice / 2;
    }
};

Points grid(int columns, int rows)
{
    Points points;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            points.push_back(Vector3(float(column), float(row) * 0.1f, float(column * row)));
    return points;
}

std::mt19937 seeded(5);

Points scattered(size_t count, float size)
{
    std::uniform_real_distribution<float> place(0, size);
    Points points(count);
    for (Vector3& p : points) p = Vector3(place(seeded), place(seeded), place(seeded));
    return points;
}

} // namespace

TEST(Tessellate, HandlesTooFewPointsPointsOnALineAndWhatIsLeftOut)
{
    Vector3 const a(0, 0, 1), b(1, 1, 2), c(2, 2, 3), corner(0, 2, 0);
    std::tuple<Points, Points, size_t> const rows[] = {
        {{}, {}, 0},
        {{a, a, a}, {a}, 0},
        {{c, a, b, a}, {a, b, c, b, a}, 0},
        {Points(50, Vector3(NAN, NAN, NAN)), {}, 0},
        {{a, c, corner, {NAN, 1, 0}, {1, INFINITY, 0}, {1, 1, NAN}, {9, 9, 0}, {0, 0, 7}},
         {a, c, corner, a},
         1},
    };
    for (auto const& [points, outline, triangles] : rows) {
        Surface const surface(points, BoundingBox(Vector3(0, 0, 5), Vector3(3, 3, 5)));
        EXPECT_EQ(triangles, surface.triangles.size());
        EXPECT_EQ(outline, surface.outline);
    }
}

TEST(Tessellate, GridsGiveTwoTrianglesPerCellWhateverTheirOrder)
{
    Points points = grid(7, 4);
    Surface const ordered(points);
    EXPECT_EQ(size_t(6 * 3 * 2), ordered.triangles.size());
    EXPECT_EQ(size_t(2 * (6 + 3) + 1), ordered.outline.size());
    EXPECT_NEAR(6 * 0.3, ordered.area, 1e-5);
    std::shuffle(points.begin(), points.end(), seeded);
    points.push_back(points.front());
    Surface const shuffled(points);
    EXPECT_EQ(ordered.triangles, shuffled.triangles);
    EXPECT_EQ(ordered.outline, shuffled.outline);
    for (auto const& t : Surface({{0, 0, 0}, {1, 0, 5}, {0, 1, 5}, {1, 1, 9}}).triangles)
        EXPECT_EQ(2, std::count_if(t.begin(), t.end(), [](Vector3 const& p) { return p.z() == 5; }))
            << "cells bend along their flatter diagonal";
}

// Few whole coordinates: many points on one line, on one circle or in one place.
TEST(Tessellate, CoversItsOutlineWithEmptyCircles)
{
    auto const whole = [](Vector3 const& p) {
        return Kes::Tess::GridPoint{std::lround(p.x() * 65536), std::lround(p.y() * 65536)};
    };
    for (int round = 0; round < 150; ++round) {
        Points points = scattered(3 + size_t(round) % 40, float(2 + round % 9));
        bool const exact = round % 4;
        std::set<Vector2> places, used;
        for (Vector3& p : points) {
            if (exact) p = Vector3(std::floor(p.x()), std::floor(p.y()), 0);
            places.insert(Vector2(p));
        }
        Surface const surface(points);
        EXPECT_EQ(surface.outline.front(), surface.outline.back());
        EXPECT_NEAR(surface.outlineArea(), surface.area, 1e-4);
        for (auto const& [a, b, c] : surface.triangles) {
            for (Vector3 const& p : exact ? points : Points())
                ASSERT_FALSE(Kes::Tess::inCircle(whole(a), whole(b), whole(c), whole(p)));
            for (Vector3 const& p : {a, b, c}) used.insert(Vector2(p));
        }
        EXPECT_EQ(surface.area > 0 ? places : std::set<Vector2>(), used) << round;
    }
}

TEST(Tessellate, SurvivesAnyScaleAndElongation)
{
    for (float const stretch : {1e-38f, 1e-20f, 1e-4f, 1.0f, 1e9f, 1e30f}) {
        Points points = scattered(200, 1);
        for (Vector3& p : points) p.x() *= stretch;
        EXPECT_GT(Surface(points).triangles.size(), 350u) << stretch;
    }
    Points hostile = scattered(100, 1);
    for (float const x : {3e38f, -3e38f, 1e-45f}) hostile.push_back(Vector3(x, -x, 0));
    EXPECT_FALSE(Surface(hostile).outline.empty());
    // A box seen from a corner, whose near and far corners fall onto one pixel.
    float const most = 2147483648.0f;
    Surface const hull(
        {{0, 0, 0}, {2, 1, 0}, {-2, 1, 0}, {0, 2, 0}, {0, 2, 1}, {2, 3, 1}, {-2, 3, 1}, {0, 4, 1}},
        BoundingBox(Vector3(-most, -most, 0), Vector3(most, most, 0)));
    EXPECT_EQ(Points({{-2, 1, 0}, {0, 0, 0}, {2, 1, 0}, {2, 3, 1}, {0, 4, 1}, {-2, 3, 1}, {-2, 1, 0}}),
              hull.outline);
}

// In time that grows no faster than n log n: a quadratic step would take minutes.
TEST(Tessellate, ManyPointsTakeNoTime)
{
    EXPECT_EQ(size_t(199 * 199 * 2), Surface(grid(200, 200)).triangles.size());
    EXPECT_GE(Surface(scattered(40000, 1)).triangles.size(), 79000u);
}
