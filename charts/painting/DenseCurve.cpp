#include "charts/painting/DenseCurve.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

using Kes::Math::Vector2;

namespace fen {

namespace {

/// How often the rectangle may be painted over before its pixels are found first.
constexpr double mostLayersOfLine = 1, mostLayersOfArea = 4;

/// Calls visit(column, from, to) with the heights [device px] at which each segment passes a pixel column.
template <class Visit>
void forEachPassage(Strips const& strips, double ratio, int columns, Visit const& visit)
{
    auto const pass = [&](Vector2 const& a, Vector2 const& b) {
        double const ax = double(a.x()) * ratio, bx = double(b.x()) * ratio;
        double const ay = double(a.y()) * ratio, by = double(b.y()) * ratio;
        bool const right = bx >= ax;
        double const x0 = right ? ax : bx, x1 = right ? bx : ax, y0 = right ? ay : by, y1 = right ? by : ay;
        if (x1 < 0 || x0 >= columns) return;
        int const first = std::max(0, int(std::floor(x0))), last = std::min(columns - 1, int(std::floor(x1)));
        if (first == last && x1 - x0 < 1) return visit(first, y0, y1);
        double const slope = (y1 - y0) / (x1 - x0);
        double from = y0 + (std::max(x0, double(first)) - x0) * slope;
        for (int c = first; c <= last; ++c) {
            double const to = y0 + (std::min(x1, double(c + 1)) - x0) * slope;
            visit(c, from, to);
            from = to;
        }
    };
    for (Strips::Piece const& piece : strips.pieces)
        for (std::size_t i = piece.first + 1; i < piece.first + piece.count; ++i)
            pass(strips.points[i - 1], strips.points[i]);
    for (std::size_t i = 0; i + 1 < strips.spans.size(); i += 2) pass(strips.spans[i], strips.spans[i + 1]);
}

/// Pixels of one rectangle, a bit each, column by column.
class PixelSet {
public:
    PixelSet(int columns, int rows)
        : _rows(rows)
        , _words(std::size_t(rows + 63) / 64)
        , _bits(_words * std::size_t(columns))
    {
    }

    /// Rows from `low` to `high`, as far as they are inside.
    void add(int column, int low, int high)
    {
        low = std::max(low, 0);
        high = std::min(high, _rows - 1);
        if (low > high) return;
        std::uint64_t* const words = _bits.data() + std::size_t(column) * _words;
        constexpr std::uint64_t all = ~std::uint64_t(0);
        std::uint64_t const from = all << (low % 64), to = all >> (63 - high % 64);
        int const first = low / 64, last = high / 64;
        if (first == last) {
            words[first] |= from & to;
            return;
        }
        words[first] |= from;
        for (int w = first + 1; w < last; ++w) words[w] = all;
        words[last] |= to;
    }

    /// Calls visit(low, high) for every run of rows of a column, `high` being the row behind it.
    template <class Visit>
    void forEachRun(int column, Visit const& visit) const
    {
        for (int row = next(column, 0, true); row < _rows;) {
            int const end = next(column, row, false);
            visit(row, end);
            row = next(column, end, true);
        }
    }

private:
    /// First row from `row` on that is in the set, or not; the number of rows when there is none.
    int next(int column, int row, bool in) const
    {
        std::uint64_t const* const words = _bits.data() + std::size_t(column) * _words;
        while (row < _rows) {
            std::uint64_t const word = (in ? words[row / 64] : ~words[row / 64]) >> (row % 64);
            if (word != 0) return std::min(_rows, row + std::countr_zero(word));
            row = (row / 64 + 1) * 64;
        }
        return _rows;
    }

    int _rows;
    std::size_t _words;
    std::vector<std::uint64_t> _bits;
};

struct Extent {
    int columns, rows; // [device px]
    double pixels() const { return double(columns) * rows; }
};

Extent extentOf(QSize const& size, double ratio)
{
    return {int(std::ceil(size.width() * ratio)), int(std::ceil(size.height() * ratio))};
}

/// [device px] that drawing the segments takes, up to `limit`.
template <class Work>
double workOf(Strips const& strips, double limit, Work const& work)
{
    double sum = 0;
    for (Strips::Piece const& piece : strips.pieces)
        for (std::size_t i = piece.first + 1; i < piece.first + piece.count && sum <= limit; ++i)
            sum += work(strips.points[i - 1], strips.points[i]);
    return sum;
}

} // namespace

Strips lineOrCover(Strips line, QSize const& size, double ratio)
{
    Extent const extent = extentOf(size, ratio);
    double const limit = mostLayersOfLine * extent.pixels();
    double const work = workOf(line, limit, [&](Vector2 const& a, Vector2 const& b) {
        double const dx = std::abs(double(b.x()) - double(a.x())),
                     dy = std::abs(double(b.y()) - double(a.y()));
        return std::min(std::max(dx, dy) * ratio, double(std::max(extent.columns, extent.rows)));
    });
    if (work <= limit || extent.pixels() <= 0) return line;
    PixelSet pixels(extent.columns, extent.rows);
    forEachPassage(line, ratio, extent.columns, [&](int column, double from, double to) {
        // A level part takes the row of its middle, as OpenGL draws it; a steep one all that it passes.
        if (std::abs(to - from) < 1) from = to = 0.5 * (from + to);
        double const top = extent.rows;
        double const low = std::clamp(std::min(from, to), -1.0, top),
                     high = std::clamp(std::max(from, to), -1.0, top);
        pixels.add(column, int(std::floor(low)), int(std::floor(high)));
    });
    Strips cover;
    for (int column = 0; column < extent.columns; ++column)
        pixels.forEachRun(column, [&](int low, int high) {
            float const x = float((column + 0.5) / ratio);
            cover.spans.emplace_back(x, float(low / ratio));
            cover.spans.emplace_back(x, float(high / ratio));
        });
    return cover;
}

Strips bandOrCover(Strips const& edge, double base, QSize const& size, double ratio)
{
    Extent const extent = extentOf(size, ratio);
    double const limit = mostLayersOfArea * extent.pixels();
    double const work = workOf(edge, limit, [&](Vector2 const& a, Vector2 const& b) {
        double const dx = std::abs(double(b.x()) - double(a.x()));
        double const high = std::abs(0.5 * (double(a.y()) + double(b.y())) - base);
        return std::min(dx * ratio, double(extent.columns)) * std::min(high * ratio, double(extent.rows));
    });
    if (work <= limit || extent.pixels() <= 0) return areaBand(edge, base);
    constexpr double none = std::numeric_limits<double>::infinity();
    std::vector<std::pair<double, double>> heights(std::size_t(extent.columns), {none, -none}); // [device px]
    forEachPassage(edge, ratio, extent.columns, [&](int column, double from, double to) {
        auto& [low, high] = heights[std::size_t(column)];
        low = std::min({low, from, to});
        high = std::max({high, from, to});
    });
    Strips band;
    for (int column = 0; column < extent.columns; ++column) {
        auto const [low, high] = heights[std::size_t(column)];
        if (low > high) continue;
        double const bottom = std::min(low / ratio, base), top = std::max(high / ratio, base);
        std::size_t const first = band.points.size();
        for (double const x : {column / ratio, (column + 1) / ratio})
            for (double const y : {bottom, top}) band.points.emplace_back(float(x), float(y));
        band.pieces.push_back({first, band.points.size() - first});
    }
    return band;
}

} // namespace fen
