#include "services/math/Spline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

using namespace Kes::Math;

namespace {

typedef std::vector<Vector2> Points;

Points spline(Points points, float step)
{
    interpolateCutmullRom(points, step);
    return points;
}

} // namespace

TEST(Spline, RunsThroughItsPointsAndAlongTheKnownCurve)
{
    Points const data{{0, 0}, {1, 1}, {2, 0}, {3, 2}};
    Points const curve = spline(data, 0.25f);
    ASSERT_EQ(13u, curve.size());
    for (size_t i = 0; i < data.size(); ++i) EXPECT_EQ(data[i], curve[4 * i]) << i;
    // Halfway: (9 (b + c) - a - d) / 16.
    EXPECT_FLOAT_EQ(1.5f, curve[6].x());
    EXPECT_FLOAT_EQ((9 * 1 - 2) / 16.0f, curve[6].y());
    EXPECT_EQ(31u, spline(data, 0.1f).size());
    EXPECT_EQ(13u, spline(data, 0.3f).size()); // in four parts
}

TEST(Spline, LeavesAloneWhatHasNoCurveAndIsPartedByGaps)
{
    Points const data{{0, 0}, {1, 1}, {2, 0}};
    for (float const step : {1.0f, 0.0f, -1.0f, NAN, INFINITY, 2.0f}) EXPECT_EQ(data, spline(data, step));
    for (Points const& few : {Points(), Points{{1, 2}}, Points{{1, 2}, {3, 4}}})
        EXPECT_EQ(few, spline(few, 0.1f));
    EXPECT_EQ(Points({{1, 2}}), spline({{1, 2}, {1, 2}, {1, 2}}, 0.1f));
    EXPECT_LE(spline(data, 1e-30f).size(), 2001u);
    Points const part = spline(data, 0.5f);
    EXPECT_EQ(part, spline({{0, 0}, {1, 1}, {1, 1}, {2, 0}}, 0.5f)); // equal neighbours make no loop
    Points const all = spline({{0, 0}, {1, 1}, {2, 0}, {3, NAN}, {0, 0}, {1, 1}, {2, 0}}, 0.5f);
    ASSERT_EQ(2 * part.size() + 1, all.size());
    EXPECT_TRUE(std::equal(part.begin(), part.end(), all.begin()));
    EXPECT_TRUE(std::equal(part.rbegin(), part.rend(), all.rbegin()));
}

TEST(Spline, RunsBetweenAnyTwoPointsAlongXAndTheSameWayFromBothEnds)
{
    std::mt19937 random(4);
    std::exponential_distribution<float> gap(1);
    for (int round = 0; round < 100; ++round) {
        Points data{{0, 0}};
        for (int i = 0; i < 30; ++i) {
            float const step = std::pow(gap(random), 4.0f);
            bool const back = round % 2 && random() % 5 == 0; // now and then a point is out of order
            data.push_back(Vector2(data.back().x() + (back ? -step : step), gap(random)));
        }
        Points const curve = spline(data, 0.06f); // 17 parts
        for (size_t i = 0; i + 1 < curve.size(); ++i) {
            bool const ascends = data[i / 17].x() <= data[i / 17 + 1].x();
            ASSERT_TRUE(ascends ? curve[i].x() <= curve[i + 1].x() : curve[i].x() >= curve[i + 1].x()) << i;
        }
        std::reverse(data.begin(), data.end());
        Points const turned = spline(data, 0.06f);
        EXPECT_TRUE(std::equal(curve.begin(), curve.end(), turned.rbegin(), turned.rend(),
                               [](auto a, auto b) { return (a - b).length() < 1e-4f; }));
    }
}
