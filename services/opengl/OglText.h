#pragma once

#include "../logging/Export.h"
#include "../math/Angle.h"
#include "../math/Vector2.h"

#include <QColor>
#include <QPoint>
#include <QSize>
#include <QString>

#include <memory>

class FenOglCache;

namespace OGLFT {
class Face;
}
namespace fen {
class GlyphBatch;
}

/// Draws texts in window pixels, within a 2D pixel mode.
///
/// Alignment flags name the side of the anchor on which the text lies: AlignTop
/// above it, AlignLeft left of it, AlignHCenter and AlignVCenter centred. They
/// hold in the text's own directions, before it is turned about the anchor.
/// Points at the cache, which must outlive it. In selection mode a text is the
/// rectangle that it covers. Texts are not for display lists. Measuring needs
/// no OpenGL context.
class FENVIS_EXPORT FenOglText {
public:
    explicit FenOglText(FenOglCache& cache);
    ~FenOglText();
    FenOglText(FenOglText const&) = delete;
    FenOglText& operator=(FenOglText const&) = delete;

    /// Back to the defaults: default font, point size 8, black, AlignRight |
    /// AlignTop, no rotation. Does not end a batch.
    void clear();
    /// Font by name as FenOglCache::font understands it.
    void setFont(QString const& name);
    /// [pt] at 96 dpi; 0 counts as 1.
    void setPointSize(unsigned size);
    void setColor(QColor const& color);
    void setAlignment(Qt::Alignment alignment);
    /// Counter-clockwise rotation about the anchor.
    void setOrientation(Kes::Math::Angle const& orientation);

    unsigned pointSize() const { return _pointSize; }
    QColor const& color() const { return _color; }
    Qt::Alignment alignment() const { return _alignment; }
    Kes::Math::Angle const& orientation() const { return _orientation; }

    /// Draws at an anchor [px] of the pixel mode in force.
    void draw(QPoint const& anchor, QString const& text);
    /// The anchor is rounded to whole device pixels while the text is upright.
    void draw(Kes::Math::Vector2 const& anchor, QString const& text);

    /// [px] extent of a text, not turned; (0, 0) for an empty one.
    QSize size(QString const& text) const;
    /// [px] line height at the current point size: 13 at 8, 14 at 9.
    int height() const;

private:
    friend class FenOglTextBatch;
    struct Box;
    OGLFT::Face& face() const;
    Box box(QString const& text) const;
    void drawAt(Kes::Math::Vector2 const& anchor, QString const& text);
    void drawArea(Kes::Math::Vector2 const& anchor, Box const& box) const;

    FenOglCache& _cache;
    QString _font;
    mutable OGLFT::Face* _face = nullptr;
    mutable unsigned _generation = 0; ///< of the cache when the face was fetched
    unsigned _pointSize;
    QColor _color;
    Qt::Alignment _alignment;
    Kes::Math::Angle _orientation;
    std::unique_ptr<fen::GlyphBatch> _batch;
    int _batches = 0;
};

/// Joins the texts drawn during its lifetime into one draw call, made at the
/// end of the outermost batch. Matrices must stay the same meanwhile. Without
/// effect in selection mode, where each text is drawn at once under its name.
class FENVIS_EXPORT FenOglTextBatch {
public:
    explicit FenOglTextBatch(FenOglText& text);
    ~FenOglTextBatch();
    FenOglTextBatch(FenOglTextBatch const&) = delete;
    FenOglTextBatch& operator=(FenOglTextBatch const&) = delete;

private:
    FenOglText& _text;
};
