#pragma once

#include "../logging/Export.h"
#include "../math/Angle.h"
#include "../math/Vector2.h"

#include <QColor>
#include <QPoint>
#include <QSize>

#include <vector>

class FenOglText;
class QString;

/// Text centred in a filled and framed box; font, size and text colour are those
/// of the text object that it points at.
///
/// Alignment and orientation place the box as FenOglText places a text. A
/// transparent background is not filled, a transparent border not drawn. In
/// selection mode the area of the box is drawn.
class FENVIS_EXPORT FenOglBoxedText {
public:
    explicit FenOglBoxedText(FenOglText& text);

    /// Back to the defaults: both colours transparent, AlignRight | AlignTop, no rotation.
    void clear();
    void setColor(QColor const& background, QColor const& border);
    void setAlignment(Qt::Alignment alignment);
    /// Counter-clockwise rotation about the anchor.
    void setOrientation(Kes::Math::Angle const& orientation);

    /// A box as large as the text and a margin; nothing for an empty text.
    void draw(QPoint const& anchor, QString const& text);
    /// A box of `size` [px], drawn for an empty text too.
    void draw(QPoint const& anchor, QSize const& size, QString const& text);
    void draw(Kes::Math::Vector2 const& anchor, QString const& text);
    void draw(Kes::Math::Vector2 const& anchor, QSize const& size, QString const& text);

    /// [px] extent of the box of a text.
    QSize size(QString const& text) const;

private:
    void drawBox(std::vector<Kes::Math::Vector2> const& area,
                 std::vector<Kes::Math::Vector2> const& inner) const;

    FenOglText& _text;
    QColor _background;
    QColor _border;
    Qt::Alignment _alignment;
    Kes::Math::Angle _orientation;
};
