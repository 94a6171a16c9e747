#include "charts/painting/CoverageMap.h"

#include <algorithm>
#include <array>
#include <cmath>

using Kes::Math::Vector2;

namespace fen {

namespace {

/// Columns that are summed side by side: a cache line of the picture.
constexpr int block = 16;
constexpr std::uint32_t tableSize = 16384; ///< larger sums are as opaque as the last one

CoverageMap::Cell weighted(Rgba const& color, std::uint32_t weight)
{
    return {{color.red * weight, color.green * weight, color.blue * weight, weight}};
}

/// Calls `visit(line, column, low, high)` for the rows low .. high - 1 that each line of a bundle covers in
/// each column. Column by column, as then all that is visited lies near each other.
template <class Visit>
void forEachSpan(CoverageMap::Bundle const& bundle, QSize const& size, Visit const& visit)
{
    std::size_t const count = bundle.from.size();
    if (count == 0 || bundle.columns <= 0) return;
    std::vector<float> low(count), high(count), slope(count);
    float const grow = float(bundle.thickness - 1) / 2;
    for (std::size_t i = 0; i < count; ++i) {
        slope[i] = (bundle.to[i] - bundle.from[i]) / float(bundle.columns);
        float const half = std::abs(slope[i]) / 2 + grow;
        low[i] = bundle.from[i] - half;
        high[i] = bundle.from[i] + half;
    }
    int const top = size.height();
    int const begin = std::max(0, -bundle.first), end = std::min(bundle.columns, size.width() - bundle.first);
    std::vector<int> lows(count), highs(count);
    for (int c = begin; c < end; ++c) {
        float const at = float(c);
        for (std::size_t i = 0; i < count; ++i) {
            lows[i] = std::clamp(int(low[i] + slope[i] * at), 0, top);
            highs[i] = std::min(std::max(int(high[i] + slope[i] * at), lows[i] + bundle.thickness), top);
        }
        for (std::size_t i = 0; i < count; ++i) visit(i, bundle.first + c, lows[i], highs[i]);
    }
}

/// Opacity divided by the weight, for each sum of weights.
std::vector<float> opacityShares(CoveragePicture::Layer const& layer)
{
    std::vector<float> shares(tableSize);
    for (std::size_t w = 1; w < shares.size(); ++w) {
        double const opacity = std::clamp(layer.opacity(double(w) / layer.map->unit()), 0.0, 1.0);
        shares[w] = float(opacity / double(w));
    }
    return shares;
}

} // namespace

CoverageMap::CoverageMap(QSize const& size, Unit unit)
    : _size(size.expandedTo(QSize(0, 0)))
    , _unit(unit)
    , _stride(std::size_t(_size.height()) + 1)
    , _cells(std::size_t(_size.width()) * _stride + 1)
{
}

void CoverageMap::addAt(int x, float y, Rgba const& color, std::uint32_t weight, bool add)
{
    float const height = float(_size.height());
    float const inside = std::clamp(y, 0.0f, height);
    std::size_t const row = std::size_t(inside);
    std::uint32_t const above = std::uint32_t((inside - float(row)) * float(weight) + 0.5f);
    // Behind the last row of the last column there is a cell that nobody reads.
    Cell* const cell = _cells.data() + std::size_t(x) * _stride + row;
    Cell const low = weighted(color, weight - above), high = weighted(color, above);
    bool const both = above != 0 && row + 1 < _stride;
    if (add) {
        cell[0].add(low);
        if (both) cell[1].add(high);
    } else {
        cell[0].subtract(low);
        if (both) cell[1].subtract(high);
    }
}

/// The area above an edge that leads right is added, above one that leads left taken away.
void CoverageMap::addEdge(Vector2 from, Vector2 to, Rgba const& color, int samples, Change change)
{
    bool const right = to.x() > from.x();
    if (!right) std::swap(from, to);
    float const width = to.x() - from.x();
    if (!(width > 0)) return;
    bool const add = right == (change == Change::Add);
    float const slope = (to.y() - from.y()) / width, looks = float(samples);
    float const last = float(_size.width()) * looks;
    int const begin = int(std::ceil(std::clamp(from.x() * looks - 0.5f, 0.0f, last)));
    int const end = int(std::ceil(std::clamp(to.x() * looks - 0.5f, 0.0f, last)));
    std::uint32_t const weight = unit() / std::uint32_t(samples);
    for (int i = begin; i < end; ++i) {
        float const x = (float(i) + 0.5f) / looks;
        addAt(i / samples, from.y() + slope * (x - from.x()), color, weight, add);
    }
}

void CoverageMap::addPolygon(std::vector<Vector2> const& corners, Rgba const& color, int samples,
                             Change change)
{
    for (std::size_t i = 0; i < corners.size(); ++i)
        addEdge(corners[i], corners[(i + 1) % corners.size()], color, samples, change);
}

void CoverageMap::addLine(Vector2 const& from, Vector2 const& to, float thickness, Rgba const& color,
                          int samples, Change change)
{
    float const dx = to.x() - from.x(), dy = to.y() - from.y();
    float const length = std::hypot(dx, dy);
    if (!(length > 0)) return;
    float const u = -dy / length * thickness / 2, v = dx / length * thickness / 2;
    Vector2 const a(from.x() - u, from.y() - v), b(to.x() - u, to.y() - v);
    Vector2 const c(to.x() + u, to.y() + v), d(from.x() + u, from.y() + v);
    addEdge(a, b, color, samples, change);
    addEdge(b, c, color, samples, change);
    addEdge(c, d, color, samples, change);
    addEdge(d, a, color, samples, change);
}

void CoverageMap::addBundle(Bundle const& bundle, Change change)
{
    std::uint32_t const weight = change == Change::Add ? unit() : 0u - unit();
    std::vector<Cell> inks;
    for (Rgba const& color : bundle.colors) inks.push_back(weighted(color, weight));
    if (_finished) {
        forEachSpan(bundle, _size, [&](std::size_t i, int x, int low, int high) {
            Cell* const cells = _cells.data() + std::size_t(x) * _stride;
            for (int y = low; y < high; ++y) cells[y].add(inks[i]);
        });
        return;
    }
    forEachSpan(bundle, _size, [&](std::size_t i, int x, int low, int high) {
        Cell* const cells = _cells.data() + std::size_t(x) * _stride;
        Cell const ink = inks[i];
        cells[low].add(ink);
        cells[high].subtract(ink);
    });
}

void CoverageMap::finish()
{
    if (_finished) return;
    _finished = true;
    for (int x = 0; x < _size.width(); ++x) {
        Cell* const cells = _cells.data() + std::size_t(x) * _stride;
        for (std::size_t y = 1; y < _stride; ++y) cells[y].add(cells[y - 1]);
    }
}

CoveragePicture::CoveragePicture(std::vector<Layer> const& layers)
{
    for (Layer const& layer : layers) {
        _maps.push_back(layer.map);
        _shares.push_back(opacityShares(layer));
    }
}

namespace {

/// Colour of a pixel. The number of maps is known when this is compiled, which makes it twice as fast.
template <std::size_t Maps>
Rgba pixelOf(std::array<CoverageMap::Cell, Maps> const& sums, std::array<float const*, Maps> const& shares)
{
    std::array<float, 4> ink = {0.5f, 0.5f, 0.5f, 0}; // rounds
    for (std::size_t m = 0; m < Maps; ++m) {
        std::uint32_t const last = tableSize - 1, weight = sums[m].weight();
        float share = shares[m][std::min(weight, last)];
        if (weight > last) share *= float(last) / float(weight);
        // Sums of more than 2^31 would take millions of lines.
        float const rest = 1 - share * float(int(weight));
        for (std::size_t k = 0; k < 4; ++k) ink[k] = ink[k] * rest + share * float(int(sums[m].sums[k]));
    }
    ink[3] = ink[3] * 255 + 0.5f;
    Rgba result;
    result.red = GLubyte(int(ink[0]));
    result.green = GLubyte(int(ink[1]));
    result.blue = GLubyte(int(ink[2]));
    result.alpha = GLubyte(int(ink[3]));
    return result;
}

/// The bytes of a picture, rows counted from the bottom.
struct Raster {
    explicit Raster(QImage& image)
        : last(reinterpret_cast<Rgba*>(image.scanLine(image.height() - 1)))
        , width(image.bytesPerLine() / qsizetype(sizeof(Rgba)))
    {
    }
    Rgba* row(int y) const { return last - y * width; }

    Rgba* last;
    qsizetype width;
};

/// Columns x0 .. x0 + columns - 1 of the picture.
template <std::size_t Maps>
void paintColumns(Raster const& raster, int height, std::array<CoverageMap const*, Maps> const& maps,
                  std::array<float const*, Maps> const& shares, int x0, int columns)
{
    std::array<std::array<CoverageMap::Cell, Maps>, block> sums{};
    std::array<std::array<CoverageMap::Cell const*, Maps>, block> cells{};
    for (int i = 0; i < columns; ++i)
        for (std::size_t m = 0; m < Maps; ++m) cells[std::size_t(i)][m] = maps[m]->column(x0 + i);
    bool const add = !maps[0]->finished();
    Rgba clear;
    clear.alpha = 0;
    for (int y = 0; y < height; ++y) {
        Rgba* const row = raster.row(y) + x0;
        for (std::size_t i = 0; i < std::size_t(columns); ++i) {
            std::uint32_t any = 0;
            for (std::size_t m = 0; m < Maps; ++m) {
                if (!add) sums[i][m] = {};
                sums[i][m].add(cells[i][m][y]);
                any |= sums[i][m].weight();
            }
            row[i] = any != 0 ? pixelOf<Maps>(sums[i], shares) : clear;
        }
    }
}

} // namespace

template <std::size_t Maps>
void CoveragePicture::paint(QImage& picture, CoverageMap::Bundle const* bundle) const
{
    std::array<CoverageMap const*, Maps> maps{};
    std::array<float const*, Maps> shares{};
    for (std::size_t m = 0; m < Maps; ++m) {
        maps[m] = _maps[m];
        shares[m] = _shares[m].data();
    }
    if (picture.isNull()) return;
    Raster const raster(picture);
    if (!bundle) {
        for (int x0 = 0; x0 < picture.width(); x0 += block)
            paintColumns<Maps>(raster, picture.height(), maps, shares, x0,
                               std::min(block, picture.width() - x0));
        return;
    }
    forEachSpan(*bundle, picture.size(), [&](std::size_t, int x, int low, int high) {
        for (int y = low; y < high; ++y) {
            std::array<CoverageMap::Cell, Maps> sums;
            for (std::size_t m = 0; m < Maps; ++m) sums[m] = maps[m]->column(x)[y];
            raster.row(y)[x] = pixelOf<Maps>(sums, shares);
        }
    });
}

void CoveragePicture::paint(QImage& picture, CoverageMap::Bundle const* bundle) const
{
    if (_maps.size() == 1) paint<1>(picture, bundle);
    if (_maps.size() == 2) paint<2>(picture, bundle);
    if (_maps.size() == 3) paint<3>(picture, bundle);
}

QImage CoveragePicture::image() const
{
    if (_maps.empty()) return QImage();
    QImage picture(_maps.front()->size(), QImage::Format_RGBA8888_Premultiplied);
    paint(picture, nullptr);
    return picture;
}

void CoveragePicture::update(QImage& image, CoverageMap::Bundle const& bundle) const
{
    paint(image, &bundle);
}

OpacityOfCount crowdOpacity(std::size_t lines, int rows)
{
    double const count = double(std::max<std::size_t>(1, lines));
    double const single = std::clamp(1.3 - 0.28 * std::log10(count), 0.12, 1.0);
    double const full = std::max(4.0, 4 * count / std::max(1, rows));
    return [=](double covered) {
        if (covered <= 1) return single * covered;
        return std::min(1.0, single + (1 - single) * std::log(covered) / std::log(full));
    };
}

} // namespace fen
