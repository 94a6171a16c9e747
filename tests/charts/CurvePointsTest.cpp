#include "charts/painting/CurvePoints.h"
#include "charts/painting/DenseCurve.h"
#include "services/chartdata/ChartColumn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>

using fen::CurveShape;
using fen::Strips;
using Kes::Math::Vector2;

namespace {

double const undefined = std::numeric_limits<double>::quiet_NaN();

/// Columns on linear axes that show exactly x from 0 to `right` and y from -1 to 1.
fen::CurveData curve(std::vector<double> x, std::vector<double> y, double right,
                     QSize const& size = QSize(100, 80))
{
    fen::CurveData data;
    data.count = y.size();
    data.xColumn = FenChartColumn::make(std::move(x));
    data.yColumn = FenChartColumn::make(std::move(y));
    data.xMapping = FenChartAxisMapping(0, right, false);
    data.yMapping = FenChartAxisMapping(-1, 1, false);
    data.size = size;
    return data;
}

/// What a curve meets of each pixel column, by column number.
class Coverage {
public:
    void segment(double x0, double y0, double x1, double y1)
    {
        if (x0 > x1) {
            std::swap(x0, x1);
            std::swap(y0, y1);
        }
        for (double c = std::floor(x0); c <= std::floor(x1); ++c) {
            double const from = std::max(x0, c), to = std::min(x1, c + 1);
            auto const at = [&](double x) { return x1 > x0 ? y0 + (x - x0) / (x1 - x0) * (y1 - y0) : y0; };
            insert(int(c), at(from));
            insert(int(c), at(to));
            if (x0 == x1) insert(int(c), y1);
        }
    }
    void insert(int column, double y)
    {
        auto const [it, added] = _extents.try_emplace(column, y, y);
        if (!added) it->second = {std::min(it->second.first, y), std::max(it->second.second, y)};
    }
    /// Compares the columns inside the picture, to one pixel; tells the first difference.
    std::string differs(Coverage const& other, int width) const
    {
        for (int c = 0; c < width; ++c) {
            auto const a = _extents.find(c), b = other._extents.find(c);
            bool const hasA = a != _extents.end(), hasB = b != other._extents.end();
            if (hasA != hasB) return "column " + std::to_string(c) + (hasA ? " is missing" : " is too much");
            if (!hasA) continue;
            auto const& [low, high] = a->second;
            auto const& [otherLow, otherHigh] = b->second;
            if (std::abs(low - otherLow) > 1.01 || std::abs(high - otherHigh) > 1.01)
                return "column " + std::to_string(c) + " has another extent";
        }
        return {};
    }

private:
    std::map<int, std::pair<double, double>> _extents;
};

Coverage covered(Strips const& strips)
{
    Coverage coverage;
    for (Strips::Piece const& piece : strips.pieces)
        for (std::size_t i = piece.first; i + 1 < piece.first + piece.count; ++i) {
            Vector2 const &a = strips.points[i], &b = strips.points[i + 1];
            coverage.segment(double(a.x()), double(a.y()), double(b.x()), double(b.y()));
        }
    for (std::size_t i = 0; i < strips.spans.size(); i += 2) {
        int const column = int(std::floor(strips.spans[i].x()));
        coverage.insert(column, double(strips.spans[i].y()));
        coverage.insert(column, double(strips.spans[i + 1].y()));
    }
    return coverage;
}

Coverage coveredByAll(fen::CurveData const& data, CurveShape shape)
{
    Coverage coverage;
    for (std::size_t i = 0; i + 1 < data.count; ++i) {
        double const x0 = data.x(i), y0 = data.y(i), x1 = data.x(i + 1), y1 = data.y(i + 1);
        if (std::isnan(x0) || std::isnan(y0) || std::isnan(x1) || std::isnan(y1)) continue;
        if (shape == CurveShape::Step) {
            coverage.segment(x0, y0, x1, y0);
            coverage.segment(x1, y0, x1, y1);
        } else {
            coverage.segment(x0, y0, x1, y1);
        }
    }
    return coverage;
}

typedef std::vector<double> Values;

struct Family {
    char const* name;
    std::function<Values(std::mt19937&, int)> x, y;
};

Values ascending(std::mt19937& random, int n)
{
    std::uniform_real_distribution<double> uniform(-10, 110);
    Values x(static_cast<std::size_t>(n));
    for (double& v : x) v = uniform(random);
    std::sort(x.begin(), x.end());
    return x;
}
Values clustered(std::mt19937& random, int n)
{
    Values x = ascending(random, n);
    for (double& v : x) v = v < 50 ? 20 + v * 0.01 : v;
    std::sort(x.begin(), x.end());
    return x;
}
Values looping(std::mt19937&, int n)
{
    Values x;
    for (int i = 0; i < n; ++i) x.push_back(50 + 60 * std::sin(i * 0.002));
    return x;
}
Values noise(std::mt19937& random, int n)
{
    std::normal_distribution<double> normal(0, 0.5);
    Values y(static_cast<std::size_t>(n));
    for (double& v : y) v = normal(random);
    return y;
}
Values walk(std::mt19937& random, int n)
{
    Values y = noise(random, n);
    for (std::size_t i = 1; i < y.size(); ++i) y[i] = y[i - 1] + 0.02 * y[i];
    return y;
}
Values noiseWithGaps(std::mt19937& random, int n)
{
    Values y = noise(random, n);
    std::uniform_int_distribution<std::size_t> any(0, y.size() - 1);
    for (int k = 0; k < 10; ++k) y[any(random)] = undefined;
    std::size_t const hole = any(random);
    for (std::size_t i = hole; i < std::min(hole + y.size() / 10, y.size()); ++i) y[i] = undefined;
    return y;
}

} // namespace

TEST(CurvePoints, ReducedCurvesCoverThePixelsOfAllPoints)
{
    Family const families[] = {{"noise", ascending, noise},
                               {"walk", ascending, walk},
                               {"gaps", ascending, noiseWithGaps},
                               {"clusters", clustered, walk},
                               {"clusters with gaps", clustered, noiseWithGaps},
                               {"loops", looping, walk},
                               {"loops with gaps", looping, noiseWithGaps}};
    for (Family const& family : families)
        for (int n : {3, 300, 600, 5000, 40000})
            for (CurveShape shape : {CurveShape::Line, CurveShape::Step})
                for (unsigned seed = 1; seed <= 3; ++seed) {
                    std::mt19937 random(seed);
                    Values x = family.x(random, n), y = family.y(random, n);
                    fen::CurveData const data = curve(x, y, 100);
                    Strips const strips = fen::curveStrips(data, shape, fen::Reduction::Columns);
                    EXPECT_EQ("", coveredByAll(data, shape).differs(covered(strips), 100))
                        << family.name << ' ' << n << (shape == CurveShape::Step ? " steps" : "") << " seed "
                        << seed;
                    bool const sorted = std::is_sorted(x.begin(), x.end());
                    if (sorted && n >= 5000) {
                        EXPECT_LE(strips.points.size() + strips.spans.size(), 6u * 100u) << family.name << n;
                    }
                }
}

TEST(CurvePoints, ACurveThatCrossesEveryPixelManyTimesIsDrawnOnce)
{
    std::mt19937 random(5);
    int const n = 40000;
    Values x = ascending(random, n), y = noise(random, n);
    std::shuffle(x.begin(), x.end(), random);
    for (double& v : y) v = std::clamp(v, -0.95, 0.95);
    fen::CurveData const data = curve(x, y, 100);
    Strips const all = fen::curveStrips(data, CurveShape::Line, fen::Reduction::Columns);
    Strips const cover = fen::lineOrCover(all, data.size, 1);
    EXPECT_EQ("", covered(all).differs(covered(cover), 100));
    EXPECT_LT(cover.spans.size(), 100u * 80u);

    double const base = 30;
    Strips const band = fen::bandOrCover(all, base, data.size, 1);
    EXPECT_EQ(400u, band.points.size()) << "one stripe per column";
    Coverage filled = covered(all);
    for (int column = 0; column < 100; ++column) filled.insert(column, base);
    Coverage stripes;
    for (std::size_t i = 0; i < band.points.size(); ++i)
        stripes.insert(int(band.points[i].x()) - int(i % 4 / 2), double(band.points[i].y()));
    EXPECT_EQ("", filled.differs(stripes, 100));

    // A few loops stay the lines that they are.
    Strips const few = fen::lineOrCover({{{0, 0}, {90, 70}, {10, 70}, {80, 0}}, {{0, 4}}, {}}, data.size, 1);
    EXPECT_EQ(4u, few.points.size());
}

TEST(CurvePoints, ASplineGoesThroughItsPointsAndAStairHoldsEachValue)
{
    fen::CurveData const data = curve({10, 30, 50, 70}, {0, 0.5, -0.5, 0}, 100);
    Strips const spline = fen::curveStrips(data, CurveShape::Spline, fen::Reduction::Columns);
    for (std::size_t i = 0; i < 4; ++i) {
        Vector2 const wanted(float(data.x(i)), float(data.y(i)));
        EXPECT_NE(spline.points.end(), std::find(spline.points.begin(), spline.points.end(), wanted)) << i;
    }
    Strips const stair = fen::curveStrips(data, CurveShape::Step, fen::Reduction::Columns);
    std::vector<Vector2> const corners{{10, 40}, {30, 40}, {30, 60}, {50, 60}, {50, 20}, {70, 20}, {70, 40}};
    EXPECT_EQ(corners, stair.points);
}

TEST(CurvePoints, FarPointsAreCutOffOnTheWayToThem)
{
    fen::CurveData const data = curve({0, 50, 100}, {0, 1e308, 0}, 100);
    Strips const strips = fen::curveStrips(data, CurveShape::Line, fen::Reduction::Columns);
    ASSERT_EQ(2u, strips.pieces.size());
    for (Vector2 const& p : strips.points) EXPECT_LT(std::abs(p.y()), 5000.0f);
    EXPECT_NEAR(0, (strips.points.front() - Vector2(0, 40)).length(), 1e-5);
    EXPECT_NEAR(0, (strips.points.back() - Vector2(100, 40)).length(), 1e-5);
}

TEST(CurvePoints, AnAreaIsTheCurveAtPixelCentresAndEndsAtGaps)
{
    Values x, y;
    for (int i = 0; i <= 10000; ++i) {
        x.push_back(i * 0.01);
        y.push_back(i >= 4000 && i < 6000 ? undefined : std::sin(i * 0.001) * 0.9);
    }
    fen::CurveData const data = curve(x, y, 100);
    Strips const area = fen::areaStrips(data, CurveShape::Line);
    ASSERT_EQ(2u, area.pieces.size());
    EXPECT_LT(area.points.size(), 110u);
    EXPECT_FLOAT_EQ(39.99f, area.points[area.pieces[0].count - 1].x());
    EXPECT_FLOAT_EQ(60.0f, area.points[area.pieces[1].first].x());
    for (Vector2 const& p : area.points)
        EXPECT_NEAR((std::sin(double(p.x()) * 0.1) * 0.9 + 1) * 40, double(p.y()), 0.01) << p.x();
}

TEST(CurvePoints, NarrowBarsShowTheOneNextToEachPixelCentre)
{
    Values x, y;
    for (int i = 0; i < 2000; ++i) {
        x.push_back(i * 0.05);
        y.push_back(i % 20 == 10 ? 0.5 : -0.5);
    }
    fen::CurveData const data = curve(x, y, 100);
    std::vector<fen::Bar> const bars = fen::makeBars(data, {0.05, 40});
    ASSERT_EQ(100u, bars.size());
    for (fen::Bar const& bar : bars) {
        EXPECT_EQ(60, bar.top) << bar.left;
        EXPECT_EQ(1, bar.right - bar.left);
    }
    std::vector<fen::Bar> const wide = fen::makeBars(curve({20, 60}, {0.5, undefined}, 100), {10, 40});
    ASSERT_EQ(1u, wide.size());
    EXPECT_EQ(15, wide[0].left);
    EXPECT_EQ(25, wide[0].right);
}

TEST(CurvePoints, OpaqueSymbolsInOnePlaceKeepTheLast)
{
    fen::CurveData const data = curve({10, 10.2, 50, 10.4, 300}, {0, 0, 0, 0.001, 0}, 100);
    EXPECT_EQ((std::vector<std::size_t>{2, 3}), fen::symbolPlaces(data, 5, true).indices);
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2, 3}), fen::symbolPlaces(data, 5, false).indices);
}
