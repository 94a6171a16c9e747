#include "charts/painting/StripBuilder.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

constexpr std::size_t crowdedAbove = 4; // points in a pixel column

} // namespace

StripBuilder::StripBuilder(QSize const& size, double ratio)
    : _ratio(ratio)
{
    double const margin = 2.0 * std::max(size.width(), size.height()) + 1000;
    _minX = -margin;
    _minY = -margin;
    _maxX = size.width() + margin;
    _maxY = size.height() + margin;
}

void StripBuilder::reduceColumns(Columns columns)
{
    _reduce = true;
    _columns = columns;
}

void StripBuilder::add(double x, double y, std::size_t count)
{
    if (std::isnan(x) || std::isnan(y)) return gap();
    if (!_reduce) return shape({x, y});
    double const number = std::floor(x * _ratio);
    if (number != _column.number) {
        flushSpans();
        if (_column.count > 0) {
            flushColumn();
            _columnAlone = false;
        }
    }
    collect({x, y}, number, count);
}

void StripBuilder::collect(Vertex const& v, double number, std::size_t count)
{
    Column& c = _column;
    if (c.count == 0) {
        c = {number, 0, 0, 0, v, v, v, v};
    } else {
        if (v.y < c.lowest.y) c.lowest = v, c.low = c.count;
        if (v.y > c.highest.y) c.highest = v, c.high = c.count;
    }
    c.last = v;
    c.count += count;
}

void StripBuilder::flushColumn()
{
    Column const column = _column;
    _column.count = 0;
    if (column.count == 0) return;
    bool const crowded = column.count > crowdedAbove && _columns == ToSpans;
    if (_crowd) finishCrowd(&column.first);
    if (crowded)
        addCrowd(column);
    else
        addReduced(column);
}

/// The first, lowest, highest and last point of a column.
void StripBuilder::addReduced(Column const& column)
{
    shape(column.first);
    std::size_t const end = column.count - 1;
    bool const lowFirst = column.low < column.high;
    auto const inner = [&](std::size_t at, Vertex const& v) {
        if (at != 0 && at != end) shape(v);
    };
    inner(std::min(column.low, column.high), lowFirst ? column.lowest : column.highest);
    if (column.low != column.high)
        inner(std::max(column.low, column.high), lowFirst ? column.highest : column.lowest);
    if (end > 0) shape(column.last);
}

/// Height at which the way between two points passes a column's edge.
double StripBuilder::heightAt(double edge, Vertex const& from, Vertex const& to) const
{
    if (_steps || from.x == to.x) return from.y;
    return from.y + (edge - from.x) / (to.x - from.x) * (to.y - from.y);
}

/// Ends the strip at the edge of a crowded column; the rest of the way belongs to the column.
void StripBuilder::addCrowd(Column const& column)
{
    Span span = {column.lowest.y, column.highest.y};
    if (_hasPrevious) {
        Vertex const from = _steps ? _stair : _previous;
        double const edge = (column.number + (column.first.x >= from.x ? 0 : 1)) / _ratio;
        double const y = heightAt(edge, from, column.first);
        if (from.x != edge) emitVertex({edge, y});
        span.insert(y);
        endPiece();
    }
    _hasPrevious = false;
    _hasStair = false;
    _crowd = Crowd{column.number, span, column.last};
}

/// Draws a crowded column with its part of the way to the next point and begins a strip with the rest.
void StripBuilder::finishCrowd(Vertex const* next)
{
    Crowd crowd = *_crowd;
    _crowd.reset();
    if (next) {
        double const edge = (crowd.number + (next->x >= crowd.last.x ? 1 : 0)) / _ratio;
        double const y = heightAt(edge, crowd.last, *next);
        crowd.span.insert(y);
        _stair = {edge, y};
        _hasStair = true;
        emitVertex(_stair);
    }
    emitSpan(crowd.number, crowd.span);
}

void StripBuilder::gap()
{
    if (_column.count > 0) {
        if (_columnAlone) {
            // Nothing but this column: only its extent shows. A point alone draws no line.
            if (_column.count > 1) _spans.push_back({_column.lowest.y, _column.highest.y});
            _column.count = 0;
        } else {
            flushColumn();
        }
    }
    if (_crowd) finishCrowd(nullptr);
    endPiece();
    _columnAlone = true;
    _hasStair = false;
    _hasPrevious = false;
}

/// Draws the extents of all short strips of a column, those that meet as one.
void StripBuilder::flushSpans()
{
    if (_spans.empty()) return;
    std::vector<Span> spans;
    spans.swap(_spans);
    std::sort(spans.begin(), spans.end(), [](Span const& a, Span const& b) { return a.low < b.low; });
    for (std::size_t i = 0; i < spans.size();) {
        Span merged = spans[i++];
        while (i < spans.size() && spans[i].low <= merged.high + 0.5 / _ratio)
            merged.high = std::max(merged.high, spans[i++].high);
        emitSpan(_column.number, merged);
    }
}

/// Whole pixels from the one with the lower end to the one with the upper end.
void StripBuilder::emitSpan(double number, Span const& span)
{
    if (span.high < _minY || span.low > _maxY) return;
    double const low = std::floor(std::max(span.low, _minY) * _ratio) / _ratio;
    double const high = (std::floor(std::min(span.high, _maxY) * _ratio) + 1) / _ratio;
    float const x = float((number + 0.5) / _ratio);
    _strips.spans.push_back(Vector2(x, float(low)));
    _strips.spans.push_back(Vector2(x, float(high)));
}

void StripBuilder::shape(Vertex const& v)
{
    if (_steps && _hasStair && v.x != _stair.x) emitVertex({v.x, _stair.y});
    _stair = v;
    _hasStair = true;
    emitVertex(v);
}

bool StripBuilder::inside(Vertex const& v) const
{
    return v.x >= _minX && v.x <= _maxX && v.y >= _minY && v.y <= _maxY;
}

/// Appends a vertex; the way to it is cut at the far edges (after Liang and Barsky: each edge bounds the
/// parameter of the segment from one side).
void StripBuilder::emitVertex(Vertex const& v)
{
    auto const push = [&](Vertex const& p) { _strips.points.push_back(Vector2(float(p.x), float(p.y))); };
    Vertex const from = _previous;
    bool const joined = _hasPrevious;
    _previous = v;
    _hasPrevious = true;
    if (!joined || (inside(from) && inside(v))) {
        if (inside(v)) push(v);
        return;
    }
    double enter = 0, leave = 1;
    double const dx = v.x - from.x, dy = v.y - from.y;
    double const p[] = {-dx, dx, -dy, dy};
    double const q[] = {from.x - _minX, _maxX - from.x, from.y - _minY, _maxY - from.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0 && q[i] < 0) enter = 2;
        if (p[i] < 0) enter = std::max(enter, q[i] / p[i]);
        if (p[i] > 0) leave = std::min(leave, q[i] / p[i]);
    }
    if (enter > leave) return endPiece();
    if (!inside(from)) {
        endPiece();
        push({from.x + enter * dx, from.y + enter * dy});
    }
    push({from.x + leave * dx, from.y + leave * dy});
    if (!inside(v)) endPiece();
}

void StripBuilder::endPiece()
{
    std::size_t const count = _strips.points.size() - _pieceStart;
    if (count > 1)
        _strips.pieces.push_back({_pieceStart, count});
    else
        _strips.points.resize(_pieceStart);
    _pieceStart = _strips.points.size();
}

Strips StripBuilder::take()
{
    gap();
    flushSpans();
    return std::move(_strips);
}

} // namespace fen
