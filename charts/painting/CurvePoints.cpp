#include "charts/painting/CurvePoints.h"

#include "charts/painting/StripBuilder.h"
#include "services/chartdata/ChartColumn.h"
#include "services/math/Spline.h"

#include <QRect>

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

/// Points per pixel column from which on a curve is reduced.
constexpr std::size_t reducedAbove = 4;
/// Points per pixel column from which on neither a line pattern nor a spline can be told from a plain line.
constexpr std::size_t denseAbove = 64;
/// [px] Least length of a piece of a spline.
constexpr float shortestPiece = 3;

std::size_t columns(CurveData const& data)
{
    return std::size_t(std::max(1.0, std::ceil(data.size.width() * data.ratio)));
}

void addPoints(CurveData const& data, CurveData::Range const& range, StripBuilder& strips)
{
    for (std::size_t i = range.first; i < range.last; ++i) strips.add(data.x(i), data.y(i));
}

/// Goes from pixel column to pixel column and looks at the points in between through the blocks only.
void addColumns(CurveData const& data, CurveData::Range const& range, StripBuilder& strips)
{
    std::size_t i = range.first;
    while (i < range.last) {
        double const x = data.x(i);
        if (std::isnan(x)) {
            ++i;
            continue;
        }
        double const edge = (std::floor(x * data.ratio) + 1) / data.ratio;
        std::size_t const next = std::clamp(data.firstFrom(edge, i), i + 1, range.last);
        std::size_t low, high;
        if (next - i > reducedAbove && data.extremes({i, next}, low, high)) {
            std::size_t const inner[] = {std::min(low, high), std::max(low, high)};
            strips.add(x, data.y(i), next - i - 1);
            for (std::size_t k : inner)
                if (k != i && k + 1 != next) strips.add(data.x(k), data.y(k));
            strips.add(data.x(next - 1), data.y(next - 1));
        } else {
            addPoints(data, {i, next}, strips);
        }
        i = next;
    }
}

/// Leaves out points of a spline that are closer together than can be seen, never those it goes through:
/// smoothed lines lose colour where their segments are short.
std::vector<Vector2> thinned(std::vector<Vector2> const& spline, std::vector<Vector2> const& through)
{
    std::vector<Vector2> kept;
    std::size_t next = 0;
    bool lastFixed = false;
    for (Vector2 const& p : spline) {
        while (next < through.size() && std::isnan(through[next].y())) ++next;
        bool const fixed = next < through.size() && p == through[next];
        if (fixed) ++next;
        bool const gap = std::isnan(p.y()) || kept.empty() || std::isnan(kept.back().y());
        if (!gap && (p - kept.back()).length() < shortestPiece) {
            if (!fixed) continue;
            if (!lastFixed) kept.pop_back();
        }
        kept.push_back(p);
        lastFixed = fixed || gap;
    }
    return kept;
}

void addSpline(CurveData const& data, CurveData::Range const& range, StripBuilder& strips)
{
    std::vector<Vector2> points;
    points.reserve(range.size());
    for (std::size_t i = range.first; i < range.last; ++i)
        points.push_back(Vector2(float(data.x(i)), float(data.y(i))));
    std::vector<Vector2> const through = points;
    // About one point in every fourth of a pixel along x, which leaves steep parts smooth as well.
    double const share = 4.0 * double(columns(data)) / double(std::max<std::size_t>(range.size(), 1));
    double const pieces = std::clamp(std::ceil(share), 4.0, 64.0);
    Kes::Math::interpolateCutmullRom(points, float(1 / pieces));
    for (Vector2 const& p : thinned(points, through)) strips.add(double(p.x()), double(p.y()));
}

/// Value of the curve at a pixel position between two neighbouring points.
double between(CurveData const& data, std::size_t i, CurveShape shape, double x)
{
    double const x0 = data.x(i), x1 = data.x(i + 1), y0 = data.y(i);
    if (shape == CurveShape::Step || x1 == x0) return y0;
    return y0 + (data.y(i + 1) - y0) * (x - x0) / (x1 - x0);
}

/// The curve's value at the pixel centres inside one run of defined points, and at its ends.
void addSamples(CurveData const& data, CurveData::Range const& run, CurveShape shape, StripBuilder& strips)
{
    std::size_t const last = run.last - 1;
    double const start = std::clamp(data.x(run.first), 0.0, double(data.size.width()));
    double const end = std::clamp(data.x(last), 0.0, double(data.size.width()));
    strips.add(data.x(run.first), data.y(run.first));
    std::size_t i = run.first;
    for (double column = std::floor(start * data.ratio);; ++column) {
        double const x = (column + 0.5) / data.ratio;
        if (x <= start) continue;
        if (x >= end) break;
        std::size_t const behind = std::clamp(data.firstBeyond(x, i), run.first + 1, last);
        i = behind - 1;
        strips.add(x, between(data, i, shape, x));
    }
    strips.add(data.x(last), data.y(last));
}

} // namespace

Strips curveStrips(CurveData const& data, CurveShape shape, Reduction reduction)
{
    CurveData::Range const range = data.visible();
    StripBuilder strips(data.size, data.ratio);
    std::size_t const limit = columns(data) * (reduction == Reduction::Columns ? reducedAbove : denseAbove);
    bool const spline = shape == CurveShape::Spline && range.size() <= columns(data) * denseAbove;
    bool const reduce = range.size() > limit;
    if (shape == CurveShape::Step) strips.makeSteps();
    if (reduce || (spline && reduction == Reduction::Columns && range.size() > columns(data)))
        strips.reduceColumns(StripBuilder::ToSpans);
    if (spline)
        addSpline(data, range, strips);
    else if (reduce && data.ascending())
        addColumns(data, range, strips);
    else
        addPoints(data, range, strips);
    return strips.take();
}

Strips areaStrips(CurveData const& data, CurveShape shape)
{
    CurveData::Range range = data.visible();
    StripBuilder strips(data.size, data.ratio);
    bool const many = range.size() > reducedAbove * columns(data);
    if (!many || !data.ascending()) {
        if (shape == CurveShape::Step) strips.makeSteps();
        if (many) strips.reduceColumns(StripBuilder::ToPoints);
        if (shape == CurveShape::Spline && !many)
            addSpline(data, range, strips);
        else
            addPoints(data, range, strips);
        return strips.take();
    }
    while (range.first < range.last && std::isnan(data.x(range.first))) ++range.first;
    for (std::size_t i = range.first; i < range.last;) {
        std::size_t const end = data.firstGap({i, range.last});
        if (end > i + 1) addSamples(data, {i, end}, shape, strips);
        strips.gap();
        i = end + 1;
    }
    return strips.take();
}

Strips areaBand(Strips const& curve, double base)
{
    Strips band;
    float const b = float(base);
    band.points.reserve(2 * curve.points.size());
    for (Strips::Piece const& piece : curve.pieces) {
        std::size_t const first = band.points.size();
        for (std::size_t k = 0; k < piece.count; ++k) {
            Vector2 const p = curve.points[piece.first + k];
            if (k > 0) {
                Vector2 const q = curve.points[piece.first + k - 1];
                if ((q.y() - b) * (p.y() - b) < 0) {
                    float const x = q.x() + (p.x() - q.x()) * (b - q.y()) / (p.y() - q.y());
                    band.points.insert(band.points.end(), {Vector2(x, b), Vector2(x, b)});
                }
            }
            band.points.push_back(Vector2(p.x(), b));
            band.points.push_back(p);
        }
        band.pieces.push_back({first, band.points.size() - first});
    }
    return band;
}

namespace {

/// Pixel edges of the bar around a point; NaN where x is undefined.
struct BarEdges {
    double left, right;
};

BarEdges barEdges(CurveData const& data, BarPlace const& place, std::size_t i)
{
    double const center = data.xValue(i) + data.shift;
    double left = data.pixelX(center - 0.5 * place.width), right = data.pixelX(center + 0.5 * place.width);
    // On a logarithmic axis a wide bar may begin left of zero: it takes its right half on both sides.
    if (std::isnan(left)) left = 2 * data.pixelX(center) - right;
    if (left > right) std::swap(left, right);
    return {left, right};
}

void addBar(CurveData const& data, BarPlace const& place, std::size_t i, BarEdges const& edges,
            std::vector<Bar>& bars)
{
    double const limit = 4.0 * std::max(data.size.width(), data.size.height()) + 1000;
    double const top = data.y(i);
    if (std::isnan(edges.left) || std::isnan(edges.right) || std::isnan(top)) return;
    if (edges.right < 0 || edges.left > data.size.width()) return;
    auto const whole = [&](double px) { return float(std::round(std::clamp(px, -limit, limit))); };
    float const left = whole(edges.left), right = whole(edges.right);
    bars.push_back({left, std::max(right, left + 1), whole(place.base), whole(top), i});
}

} // namespace

std::vector<Bar> makeBars(CurveData const& data, BarPlace const& place)
{
    std::vector<Bar> bars;
    if (data.size.isEmpty() || data.count == 0) return bars;
    BarEdges const one = barEdges(data, place, data.count / 2);
    double const width = std::isnan(one.right - one.left) ? 0 : one.right - one.left;
    CurveData::Range const range = data.visible(width + 1);
    if (!data.ascending() || range.size() <= reducedAbove * columns(data)) {
        for (std::size_t i = range.first; i < range.last; ++i)
            addBar(data, place, i, barEdges(data, place, i), bars);
        return bars;
    }
    std::size_t i = range.first;
    for (std::size_t column = 0; column < columns(data); ++column) {
        double const x = (double(column) + 0.5) / data.ratio;
        i = std::clamp(data.firstFrom(x, i), range.first, range.last - 1);
        if (i > range.first && std::abs(data.x(i - 1) - x) < std::abs(data.x(i) - x)) --i;
        double const pixel = 1 / data.ratio;
        double const left = std::floor(x * data.ratio) / data.ratio;
        BarEdges edges = barEdges(data, place, i);
        if (x < edges.left - pixel || x > edges.right + pixel) continue;
        if (edges.right - edges.left < pixel) edges = {left, left + pixel};
        if (bars.empty() || bars.back().index != i) addBar(data, place, i, edges, bars);
    }
    return bars;
}

SymbolPlaces symbolPlaces(CurveData const& data, int size, bool opaque)
{
    SymbolPlaces places;
    CurveData::Range const range = data.visible(size);
    QRect const area = QRect(QPoint(0, 0), data.size).adjusted(-size, -size, size, size);
    std::vector<bool> taken;
    if (opaque) taken.resize(std::size_t(area.width()) * std::size_t(area.height()));
    for (std::size_t i = range.last; i > range.first; --i) {
        if (std::isnan(data.x(i - 1)) || std::isnan(data.y(i - 1))) continue;
        QPoint const pixel = data.pixel(i - 1);
        if (!area.contains(pixel)) continue;
        if (opaque) {
            QPoint const cell = pixel - area.topLeft();
            std::size_t const at = std::size_t(cell.y()) * std::size_t(area.width()) + std::size_t(cell.x());
            if (taken[at]) continue;
            taken[at] = true;
        }
        places.positions.push_back(pixel);
        places.indices.push_back(i - 1);
    }
    std::reverse(places.positions.begin(), places.positions.end());
    std::reverse(places.indices.begin(), places.indices.end());
    return places;
}

} // namespace fen
