#include "charts/chart2d/VisChart2D.h"

#include "charts/chart2d/DrawnVariable.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double step = 6; // [px] between samples along a curve

/// Collects every n-th of the places it is offered, n growing with their number, so that what is kept is
/// spread evenly however many there are.
class Sampler {
public:
    explicit Sampler(std::size_t limit)
        : _limit(std::max<std::size_t>(1, limit))
    {
    }

    void add(double x, double y)
    {
        if (_offered++ % _stride != 0) return;
        if (_places.size() == _limit) thin();
        _places.emplace_back(int(x), int(y));
    }

    std::vector<QPoint> take() { return std::move(_places); }

private:
    void thin()
    {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < _places.size(); i += 2) _places[kept++] = _places[i];
        _places.resize(kept);
        _stride *= 2;
    }

    std::size_t _limit;
    std::size_t _offered = 0;
    std::size_t _stride = 1;
    std::vector<QPoint> _places;
};

void sampleStrips(fen::Strips const& strips, Sampler& sampler)
{
    for (fen::Strips::Piece const& piece : strips.pieces) {
        for (std::size_t i = piece.first + 1; i < piece.first + piece.count; ++i) {
            Kes::Math::Vector2 const& a = strips.points[i - 1];
            Kes::Math::Vector2 const& b = strips.points[i];
            double const dx = double(b.x()) - double(a.x());
            double const dy = double(b.y()) - double(a.y());
            // Strips are bounded, a few screens wide at most.
            int const pieces = std::clamp(int(std::hypot(dx, dy) / step), 1, 1000);
            for (int k = 0; k < pieces; ++k) {
                sampler.add(double(a.x()) + dx * k / pieces, double(a.y()) + dy * k / pieces);
            }
        }
    }
    for (std::size_t i = 0; i + 1 < strips.spans.size(); i += 2)
        for (double y = double(strips.spans[i].y()); y < double(strips.spans[i + 1].y()); y += step)
            sampler.add(double(strips.spans[i].x()), y);
}

void sampleBars(std::vector<fen::Bar> const& bars, Sampler& sampler)
{
    for (fen::Bar const& bar : bars) {
        double const low = double(std::min(bar.base, bar.top));
        double const high = double(std::max(bar.base, bar.top));
        int const columns = std::clamp(int(double(bar.right - bar.left) / step), 1, 1000);
        int const rows = std::clamp(int((high - low) / step), 1, 1000);
        for (int column = 0; column <= columns; ++column) {
            double const x = double(bar.left) + double(bar.right - bar.left) * column / columns;
            for (int row = 0; row <= rows; ++row) sampler.add(x, low + (high - low) * row / rows);
        }
    }
}

} // namespace

std::vector<QPoint> FenVisChart2D::drawnPixels(std::size_t limit) const
{
    Sampler sampler(limit);
    if (!_dataViewport.valid()) return {};
    for (fen::DrawnVariable const& one : _variables) {
        if (!one.picture) continue;
        fen::ShapePicture const& shape = one.picture->shape;
        sampleStrips(shape.line, sampler);
        sampleStrips(shape.area, sampler);
        sampleBars(shape.bars, sampler);
        for (QPoint const& symbol : one.picture->symbols.positions()) sampler.add(symbol.x(), symbol.y());
    }
    return sampler.take();
}
