#include "services/opengl/OglText.h"

#include "services/opengl/OglCache.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/TextPlacement.h"
#include "services/opengl/VertexArrays.h"
#include "services/opengl/oglft/Face.h"
#include "services/opengl/oglft/GlyphAtlas.h"

#include <cmath>

using Kes::Math::Angle;
using Kes::Math::Vector2;

/// Rectangle of a text relative to its anchor, before it is turned.
struct FenOglText::Box {
    QPoint origin; ///< [px] lower left corner
    QSize size; ///< [px]
    fen::Direction direction;

    /// Point of the text's own coordinates, turned about the anchor.
    Vector2 turned(Vector2 const& anchor, float u, float v) const
    {
        return Vector2(anchor.x() + u * direction.cos - v * direction.sin,
                       anchor.y() + u * direction.sin + v * direction.cos);
    }
};

namespace {

constexpr unsigned standardSize = 8; // [pt]
constexpr unsigned largestSize = 384; // [pt]

} // namespace

FenOglText::FenOglText(FenOglCache& cache)
    : _cache(cache)
    , _batch(std::make_unique<fen::GlyphBatch>(cache.glyphs()))
{
    clear();
}

FenOglText::~FenOglText() = default;

void FenOglText::clear()
{
    setFont(QString());
    setPointSize(standardSize);
    setColor(Qt::black);
    setAlignment(Qt::AlignRight | Qt::AlignTop);
    setOrientation(Angle::fromDegrees(0));
}

void FenOglText::setFont(QString const& name)
{
    if (_font == name) return;
    _font = name;
    _face = nullptr;
}

void FenOglText::setPointSize(unsigned size) { _pointSize = std::min(std::max(size, 1u), largestSize); }
void FenOglText::setColor(QColor const& color) { _color = color; }
void FenOglText::setAlignment(Qt::Alignment alignment) { _alignment = alignment; }
void FenOglText::setOrientation(Angle const& orientation) { _orientation = orientation; }

OGLFT::Face& FenOglText::face() const
{
    if (!_face || _generation != _cache.generation()) {
        _face = _cache.font(_font);
        _generation = _cache.generation();
    }
    _face->setPointSize(float(_pointSize));
    return *_face;
}

FenOglText::Box FenOglText::box(QString const& text) const
{
    QSize const extent = size(text);
    return {fen::alignedOrigin(_alignment, extent), extent, fen::directionOf(_orientation)};
}

void FenOglText::draw(QPoint const& anchor, QString const& text)
{
    drawAt(Vector2(float(anchor.x()), float(anchor.y())), text);
}

void FenOglText::draw(Vector2 const& anchor, QString const& text)
{
    if (std::isfinite(anchor.x()) && std::isfinite(anchor.y())) drawAt(anchor, text);
}

void FenOglText::drawAt(Vector2 const& anchor, QString const& text)
{
    if (text.isEmpty() || _color.alpha() == 0) return;
    OGLFT::Face& current = face();
    if (!current.valid()) return;
    Box const area = box(text);
    if (fen::selectionMode()) {
        drawArea(anchor, area);
        return;
    }
    // From a whole pixel on, so that the parts of the text keep their distances.
    float const ratio = float(fen::pixelRatio());
    Vector2 const pixel(std::round(anchor.x() * ratio) / ratio, std::round(anchor.y() * ratio) / ratio);
    float const baseline = float(area.origin.y()) + current.height() - current.ascender();
    Vector2 const start = area.turned(pixel, float(area.origin.x()), baseline);
    current.append(*_batch, {start.x(), start.y(), area.direction.cos, area.direction.sin}, _color, text);
    if (_batches == 0) _batch->flush();
}

void FenOglText::drawArea(Vector2 const& anchor, Box const& box) const
{
    float const left = float(box.origin.x()), right = left + float(box.size.width());
    float const bottom = float(box.origin.y()), top = bottom + float(box.size.height());
    fen::drawArray(GL_TRIANGLE_FAN,
                   std::vector<Vector2>{box.turned(anchor, left, bottom), box.turned(anchor, right, bottom),
                                        box.turned(anchor, right, top), box.turned(anchor, left, top)});
}

QSize FenOglText::size(QString const& text) const
{
    if (text.isEmpty()) return QSize(0, 0);
    OGLFT::Face& current = face();
    return QSize(int(std::ceil(current.advance(text))), int(current.height()));
}

int FenOglText::height() const { return int(face().height()); }

FenOglTextBatch::FenOglTextBatch(FenOglText& text)
    : _text(text)
{
    ++_text._batches;
}

FenOglTextBatch::~FenOglTextBatch()
{
    if (--_text._batches == 0) _text._batch->flush();
}
