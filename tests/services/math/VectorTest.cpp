#include "services/math/Angle.h"
#include "services/math/Matrix.h"
#include "services/math/Plane.h"
#include "services/math/Segment.h"
#include "services/math/Vector2.h"
#include "services/math/Vector3.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <type_traits>

using namespace Kes::Math;

static_assert(!std::is_convertible_v<Vector2, Vector3> && !std::is_convertible_v<Vector3, Vector2>);
static_assert(!std::is_convertible_v<double, Angle>);
// What is not defined is no comparison or difference of pointers either.
template <class Operation, class A, class B = A>
constexpr bool defined = std::is_invocable_v<Operation, A const&, B const&>;
template <class A, class B = A>
constexpr bool compared =
    defined<std::greater<>, A, B> || defined<std::less_equal<>, A, B> || defined<std::greater_equal<>, A, B>;
template <class A, class B>
constexpr bool mixed =
    compared<
        A,
        B> || defined<std::less<>, A, B> || defined<std::minus<>, A, B> || defined<std::plus<>, A, B> || defined<std::equal_to<>, A, B>;
static_assert(
    defined<std::less<>, Vector2> && !defined<std::less<>, Vector3> && !defined<std::less<>, Matrix>);
static_assert(!compared<Vector2> && !compared<Vector3> && !compared<Matrix>);
static_assert(defined<std::minus<>, Vector2> && defined<std::minus<>, Vector3>);
static_assert(!defined<std::minus<>, Matrix> && !mixed<Vector3, Vector2> && !mixed<Vector2, Vector3>);
static_assert(!mixed<Matrix, Vector3> && !mixed<Vector3, int> && !mixed<float const*, Vector2>);
static_assert(Angle::Angle270 == Angle270 && Angle::Angle90 == Angle90 && Angle::Angle0 == Angle());

TEST(Vector2, OrdersAndPassesOverWhatIsNoNumber)
{
    std::vector<Vector2> points{{NAN, 1}, {2, NAN}, {2, 1}, {1, 5}, {NAN, 0}, {-0.0f, 1}, {0, 0}};
    std::sort(points.begin(), points.end());
    float const ys[] = {0, 1, 5, 1};
    for (size_t i = 0; i < 4; ++i) EXPECT_EQ(ys[i], points[i].y()) << i;
    EXPECT_TRUE(std::isnan(points[5].x()) && std::isnan(points[6].x()));
    EXPECT_EQ(Vector2(0, 0), Vector2::min(points));
    EXPECT_EQ(Vector2(2, 5), Vector2::max(points));
    EXPECT_EQ(Vector2(), Vector2::max({Vector2(NAN, NAN)}));
    EXPECT_EQ(Vector2(), Vector2::min({}));
    EXPECT_EQ(Vector2(INFINITY, -INFINITY),
              Vector2::min({Vector2(INFINITY, -INFINITY), Vector2(INFINITY, 1)}));
    EXPECT_EQ(Vector2(-INFINITY, 0), Vector2::max({Vector2(-INFINITY, 0)}));
}

TEST(Vector3, HasComponentsAndArithmetic)
{
    Vector3 v(1, 2, 3);
    v[0] = 4;
    v[1u] = 5;
    v[Vector3::CompZ] = 6;
    EXPECT_EQ(Vector3(4, 5, 6), v);
    EXPECT_EQ(6.0f, static_cast<float const*>(v)[2]);
    EXPECT_EQ(Vector3(4, 1, 2), v / Vector3(1, 5, 3));
    EXPECT_EQ(Vector3(4, 5, 0), Vector3(Vector2(v)));
    EXPECT_EQ(Vector3(1, 2, 0.5f), Vector3(-1, 2, -0.5f).abs());
    EXPECT_EQ(VectorZ, Vector3::xProduct(VectorX, VectorY));
    EXPECT_EQ(Vector3(1, 2, 0), Segment(Vector2(1, 1), Vector2(2, 3)).vectorAB());
    EXPECT_FALSE(Segment(Vector0, VectorX) == Segment(VectorX, Vector0));
    struct Row {
        Vector3 v;
        int dominant;
    };
    Row const rows[] = {{{0.2f, -0.9f, 0.5f}, 1}, {{1, -1, 1}, 0},  {{0, 0, 0}, 0},
                        {{NAN, 0, -2}, 2},        {{1, NAN, 0}, 0}, {{0, 0, -1e-30f}, 2}};
    for (Row const& row : rows) EXPECT_EQ(row.dominant, row.v.dominant()) << row.v;
}

TEST(Vector3, LengthsAndAnglesSurviveLargeSmallAndNoComponents)
{
    EXPECT_FLOAT_EQ(5e30f, Vector3(3e30f, -4e30f, 0).length());
    EXPECT_EQ(Vector3(1, 0, 0), Vector3(1e-40f, 0, 0).normalize());
    EXPECT_EQ(Vector0, Vector3::normalize(Vector0));
    EXPECT_EQ(Angle90, Vector3::angle(VectorX * 3, VectorY));
    EXPECT_EQ(Angle0, Vector3::angle(Vector0, VectorY));
    EXPECT_NEAR(1e-4, Vector3::angle(VectorX, Vector3(1, 1e-4f, 0)).radians(), 1e-9);
    for (double const degrees : {0.0, 45.0, 90.0, 180.0, 270.0, -90.0, 360.0})
        EXPECT_EQ(degrees, Angle::fromDegrees(degrees).degrees());
    EXPECT_TRUE(-Angle90 < Angle0 && Angle180 - Angle45 > Angle90);
    Plane plane(Vector3(0, 0, 5), Vector3(0, 0, 2));
    EXPECT_EQ(4.0, plane.distance(Vector3(9, 9, 7)));
    EXPECT_EQ(2.0, plane.normalize().distance(Vector3(9, 9, 7)));
    EXPECT_EQ(Vector0, Plane(Vector0, Vector0).normalize().normal());
}

TEST(Vector3, TransformsPointsWithTranslationAndDirectionsWithout)
{
    Matrix const m = Matrix::translation(Vector3(10, 0, 0)) * Matrix::rotate(VectorZ, 90);
    Vector3 point = VectorX, direction = VectorX;
    EXPECT_EQ(Vector3(10, 1, 0), point *= m);
    EXPECT_EQ(VectorY, direction.mult3x3(m));
    EXPECT_EQ(VectorY, direction);
    EXPECT_EQ(VectorY, VectorX.mult3x3(m));
}
