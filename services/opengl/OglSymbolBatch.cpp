#include "services/opengl/OglSymbolBatch.h"

#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/OglViewport.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/PlotSymbols.h"
#include "services/opengl/TextureUpload.h"
#include "services/opengl/VertexArrays.h"

#include <QRect>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>

using Kes::Math::Vector2;

namespace {

constexpr size_t mostQuads = 3000; // above, putting the picture together is faster than drawing quads
constexpr int largestSymbol = 255; // [device px]

/// Device pixels of a logical coordinate, far from int's ends.
int devicePixels(double logical, double ratio)
{
    constexpr double most = 1e8;
    return int(std::lround(std::clamp(logical * ratio, -most, most)));
}

/// One symbol, premultiplied, rows from the bottom up, with its runs of opaque pixels.
class Stamp {
public:
    explicit Stamp(QImage const& picture)
        : _rows(picture.mirrored())
    {
    }
    int side() const { return _rows.width(); }
    QImage const& rows() const { return _rows; }

    /// Draws it over `layer` with its lower left corner at (x, y) [layer px], clipped.
    void drawOver(QImage& layer, int x, int y) const
    {
        int const left = std::max(0, -x), right = std::min(side(), layer.width() - x);
        int const low = std::max(0, -y), high = std::min(side(), layer.height() - y);
        for (int row = low; row < high; ++row) {
            auto const* from = reinterpret_cast<quint32 const*>(_rows.constScanLine(row));
            auto* to = reinterpret_cast<quint32*>(layer.bits() + (y + row) * layer.bytesPerLine()) + x;
            for (int column = left; column < right; ++column) to[column] = over(from[column], to[column]);
        }
    }

private:
    /// Premultiplied `above` over `below`; alpha is the last of the four bytes in memory.
    static quint32 over(quint32 above, quint32 below)
    {
        quint32 const alpha = qFromLittleEndian(above) >> 24;
        if (alpha == 255) return above;
        if (alpha == 0) return below;
        quint32 const rest = 255 - alpha;
        auto const scaled = [rest](quint32 pair) { // two bytes at a time, rounded
            quint32 const product = pair * rest + 0x800080;
            return ((product + ((product >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF;
        };
        return above + scaled(below & 0xFF00FF) + (scaled((below >> 8) & 0xFF00FF) << 8);
    }

    QImage _rows;
};

/// Blending and colour for premultiplied pictures, inside a flat scope.
void usePremultiplied()
{
    fen::FlatScope::enableTexture(GL_REPLACE);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    glColor(Qt::white);
}

void bindPicture(std::shared_ptr<fen::GlName>& texture, QImage const& rows)
{
    if (!texture || texture->get() == 0)
        texture = fen::uploadTexture(rows, GL_NEAREST, GL_CLAMP_TO_EDGE);
    else
        glBindTexture(GL_TEXTURE_2D, texture->get());
}

} // namespace

struct FenOglSymbolBatch::State {
    FenOglSymbolStyle style;
    std::vector<QPoint> positions;

    // The symbol's picture, for one style, ratio and atlas.
    struct Symbol {
        double ratio;
        qint64 atlas;
        Stamp stamp;
        std::shared_ptr<fen::GlName> texture;
    };
    std::shared_ptr<Symbol> symbol;

    // All symbols from first to last within `area`, put together.
    struct Layer {
        size_t first, last;
        QRect area; ///< [device px] asked for
        QRect covered; ///< [device px] of the texture
        std::shared_ptr<fen::GlName> texture;
    };
    std::shared_ptr<Layer> layer;

    void findSymbol(FenOglCache const& cache);
    QRect symbolsArea(size_t first, size_t last, QRect const& area) const;
    void drawQuads(size_t first, size_t last) const;
    void drawLayer(size_t first, size_t last, QRect const& area);
    QImage compose(size_t first, size_t last, QRect const& covered) const;
    /// [device px] lower left corner of a symbol
    QPoint corner(QPoint const& position) const
    {
        int const half = symbol->stamp.side() / 2;
        return QPoint(devicePixels(position.x(), symbol->ratio) - half,
                      devicePixels(position.y(), symbol->ratio) - half);
    }
};

void FenOglSymbolBatch::State::findSymbol(FenOglCache const& cache)
{
    QImage const atlas = cache.symbolAtlas(style.atlas);
    double const ratio = fen::pixelRatio();
    if (symbol && symbol->ratio == ratio && symbol->atlas == atlas.cacheKey()) return;
    int const size = std::clamp(devicePixels(style.size, ratio), 1, largestSymbol);
    QImage const picture =
        fen::plotSymbolPicture(fen::plotSymbolMasksOf(atlas, style.symbol, size), style.fill, style.outline);
    symbol = std::make_shared<Symbol>(Symbol{ratio, atlas.cacheKey(), Stamp(picture), nullptr});
    layer.reset();
}

void FenOglSymbolBatch::State::drawQuads(size_t first, size_t last) const
{
    float const side = float(symbol->stamp.side()), scale = float(1 / symbol->ratio);
    std::vector<Vector2> corners, texCoords;
    for (size_t i = first; i < last; ++i) {
        QPoint const from = corner(positions[i]);
        float const x = float(from.x()), y = float(from.y());
        for (auto const& [s, t] : {std::pair(0.f, 0.f), {1.f, 0.f}, {1.f, 1.f}, {0.f, 1.f}}) {
            corners.emplace_back((x + s * side) * scale, (y + t * side) * scale);
            texCoords.emplace_back(s, t);
        }
    }
    fen::FlatScope const flat;
    usePremultiplied();
    bindPicture(symbol->texture, symbol->stamp.rows());
    fen::drawTexturedArray(GL_QUADS, corners, texCoords);
}

QRect FenOglSymbolBatch::State::symbolsArea(size_t first, size_t last, QRect const& area) const
{
    int const side = symbol->stamp.side();
    QRect found;
    int left = area.right() + 1, right = area.left(), low = area.bottom() + 1, high = area.top();
    for (size_t i = first; i < last; ++i) {
        QPoint const from = corner(positions[i]);
        left = std::min(left, from.x());
        right = std::max(right, from.x() + side);
        low = std::min(low, from.y());
        high = std::max(high, from.y() + side);
    }
    if (left < right && low < high) found = QRect(left, low, right - left, high - low) & area;
    return found;
}

QImage FenOglSymbolBatch::State::compose(size_t first, size_t last, QRect const& covered) const
{
    QImage picture(covered.size(), QImage::Format_RGBA8888_Premultiplied);
    picture.fill(0);
    for (size_t i = first; i < last; ++i) {
        QPoint const at = corner(positions[i]) - covered.topLeft();
        symbol->stamp.drawOver(picture, at.x(), at.y());
    }
    return picture;
}

void FenOglSymbolBatch::State::drawLayer(size_t first, size_t last, QRect const& area)
{
    bool const fresh = !layer || layer->first != first || layer->last != last || layer->area != area;
    if (fresh)
        layer = std::make_shared<Layer>(Layer{first, last, area, symbolsArea(first, last, area), nullptr});
    if (layer->covered.isEmpty()) return;
    fen::FlatScope const flat;
    usePremultiplied();
    if (!layer->texture || layer->texture->get() == 0)
        bindPicture(layer->texture, compose(first, last, layer->covered));
    else
        glBindTexture(GL_TEXTURE_2D, layer->texture->get());
    float const scale = float(1 / symbol->ratio);
    QRect const& c = layer->covered;
    float const x0 = float(c.x()) * scale, x1 = float(c.x() + c.width()) * scale;
    float const y0 = float(c.y()) * scale, y1 = float(c.y() + c.height()) * scale;
    fen::drawTexturedArray(GL_QUADS, {Vector2(x0, y0), Vector2(x1, y0), Vector2(x1, y1), Vector2(x0, y1)},
                           {Vector2(0, 0), Vector2(1, 0), Vector2(1, 1), Vector2(0, 1)});
}

FenOglSymbolBatch::FenOglSymbolBatch()
    : _state(std::make_unique<State>())
{
}

FenOglSymbolBatch::~FenOglSymbolBatch() = default;

FenOglSymbolBatch::FenOglSymbolBatch(FenOglSymbolBatch const& other)
    : _state(std::make_unique<State>(*other._state))
{
}

FenOglSymbolBatch& FenOglSymbolBatch::operator=(FenOglSymbolBatch const& other)
{
    *_state = State(*other._state);
    return *this;
}

void FenOglSymbolBatch::setStyle(FenOglSymbolStyle const& style)
{
    if (_state->style == style) return;
    _state->style = style;
    _state->symbol.reset();
    _state->layer.reset();
}

FenOglSymbolStyle const& FenOglSymbolBatch::style() const { return _state->style; }

void FenOglSymbolBatch::setPositions(std::vector<QPoint> positions)
{
    _state->positions = std::move(positions);
    _state->layer.reset();
}

std::vector<QPoint> const& FenOglSymbolBatch::positions() const { return _state->positions; }

void FenOglSymbolBatch::draw(FenOglCache& cache, FenOglViewport const& area, size_t first, size_t last) const
{
    last = std::min(last, _state->positions.size());
    FenOglSymbolStyle const& style = _state->style;
    if (first >= last || !area.valid() || (style.fill.alpha() == 0 && style.outline.alpha() == 0)) return;
    _state->findSymbol(cache);
    if (last - first <= mostQuads) {
        _state->drawQuads(first, last);
        return;
    }
    double const ratio = fen::pixelRatio();
    QPoint const low(devicePixels(area.x(), ratio), devicePixels(area.y(), ratio));
    _state->drawLayer(
        first, last,
        QRect(low, QSize(devicePixels(area.width(), ratio), devicePixels(area.height(), ratio))));
}

void FenOglSymbolBatch::draw(FenOglCache& cache, FenOglViewport const& area) const
{
    draw(cache, area, 0, _state->positions.size());
}
