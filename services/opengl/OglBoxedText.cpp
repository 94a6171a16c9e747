#include "services/opengl/OglBoxedText.h"

#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/OglText.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/TextPlacement.h"
#include "services/opengl/VertexArrays.h"

#include <cmath>

using Kes::Math::Angle;
using Kes::Math::Vector2;

namespace {

constexpr QSize margin(8, 4); // [px] of both sides together

/// Corners of a rectangle [px] that is turned about an anchor.
std::vector<Vector2> turnedCorners(Vector2 const& anchor, fen::Direction const& direction,
                                   QPoint const& origin, QSize const& size, float inset)
{
    float const left = float(origin.x()) + inset, right = float(origin.x() + size.width()) - inset;
    float const bottom = float(origin.y()) + inset, top = float(origin.y() + size.height()) - inset;
    auto const turned = [&](float u, float v) {
        return Vector2(anchor.x() + u * direction.cos - v * direction.sin,
                       anchor.y() + u * direction.sin + v * direction.cos);
    };
    return {turned(left, bottom), turned(right, bottom), turned(right, top), turned(left, top)};
}

} // namespace

FenOglBoxedText::FenOglBoxedText(FenOglText& text)
    : _text(text)
{
    clear();
}

void FenOglBoxedText::clear()
{
    setColor(Qt::transparent, Qt::transparent);
    setAlignment(Qt::AlignRight | Qt::AlignTop);
    setOrientation(Angle::fromDegrees(0));
}

void FenOglBoxedText::setColor(QColor const& background, QColor const& border)
{
    _background = background;
    _border = border;
}

void FenOglBoxedText::setAlignment(Qt::Alignment alignment) { _alignment = alignment; }
void FenOglBoxedText::setOrientation(Angle const& orientation) { _orientation = orientation; }

QSize FenOglBoxedText::size(QString const& text) const
{
    return text.isEmpty() ? QSize(0, 0) : _text.size(text) + margin;
}

void FenOglBoxedText::draw(QPoint const& anchor, QString const& text) { draw(anchor, size(text), text); }
void FenOglBoxedText::draw(Vector2 const& anchor, QString const& text) { draw(anchor, size(text), text); }

void FenOglBoxedText::draw(QPoint const& anchor, QSize const& size, QString const& text)
{
    draw(Vector2(float(anchor.x()), float(anchor.y())), size, text);
}

void FenOglBoxedText::draw(Vector2 const& anchor, QSize const& size, QString const& text)
{
    if (size.isEmpty() || !std::isfinite(anchor.x()) || !std::isfinite(anchor.y())) return;
    fen::Direction const direction = fen::directionOf(_orientation);
    QPoint const origin = fen::alignedOrigin(_alignment, size);
    Vector2 const pixel(std::round(anchor.x()), std::round(anchor.y()));
    if (fen::selectionMode()) {
        fen::drawArray(GL_TRIANGLE_FAN, turnedCorners(pixel, direction, origin, size, 0));
        return;
    }
    drawBox(turnedCorners(pixel, direction, origin, size, 0),
            turnedCorners(pixel, direction, origin, size, 1));

    Qt::Alignment const alignment = _text.alignment();
    Angle const orientation = _text.orientation();
    _text.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    _text.setOrientation(_orientation);
    float const u = float(origin.x() + size.width() / 2), v = float(origin.y() + size.height() / 2);
    _text.draw(Vector2(pixel.x() + u * direction.cos - v * direction.sin,
                       pixel.y() + u * direction.sin + v * direction.cos),
               text);
    _text.setAlignment(alignment);
    _text.setOrientation(orientation);
}

void FenOglBoxedText::drawBox(std::vector<Vector2> const& area, std::vector<Vector2> const& inner) const
{
    fen::FlatScope const flat;
    if (_background.alpha() > 0) {
        glColor(_background);
        fen::drawArray(GL_TRIANGLE_FAN, area);
    }
    if (_border.alpha() > 0) {
        // An area between two rectangles, since lines would leave out corner pixels.
        std::vector<Vector2> frame;
        for (size_t const corner : {0, 1, 2, 3, 0}) {
            frame.push_back(area[corner]);
            frame.push_back(inner[corner]);
        }
        glColor(_border);
        fen::drawArray(GL_TRIANGLE_STRIP, frame);
    }
}
