#pragma once

#include "services/opengl/VertexArrays.h"

#include <QHash>
#include <QImage>
#include <QPoint>
#include <QRawFont>
#include <QSize>

#include <memory>
#include <vector>

namespace fen {

class GlName;

/// Image of one glyph in the atlas.
struct GlyphImage {
    QPoint cell; ///< [texel] its upper left corner, counted from the first row of the texture
    QSize size; ///< [texel] empty for a blank
    int left = 0; ///< [device px] from the pen to its left edge
    int top = 0; ///< [device px] from the baseline up to its upper edge
};

/// A text laid out at its logical size.
struct ShapedText {
    struct Glyph {
        unsigned font; ///< index in `fonts`
        quint32 index;
        float x, y; ///< [px] from the left end of the baseline, y up
    };
    std::vector<QRawFont> fonts;
    std::vector<Glyph> glyphs;
    float advance = 0; ///< [px]

    // Where the images of the glyphs lie, valid for one atlas content and pixel ratio.
    mutable std::vector<GlyphImage> images;
    mutable unsigned imagesGeneration = 0; ///< 0: never looked up
    mutable double imagesRatio = 0;
};

/// Glyph images of all faces of a cache, in one texture of alpha values.
///
/// Grows up to a limit; when that is full it is emptied and begun anew. The
/// texture follows the pictures at the next `bind`, and is made anew after a
/// change of context.
class GlyphAtlas {
public:
    GlyphAtlas() = default;
    GlyphAtlas(GlyphAtlas const&) = delete;
    GlyphAtlas& operator=(GlyphAtlas const&) = delete;

    /// Sees to it that all glyphs of the text have their images for `ratio`.
    /// @return false when the atlas is full; draw what has been collected and `reset`
    bool prepare(ShapedText const& text, double ratio);
    /// Empties the atlas.
    void reset();
    /// True when nothing is in it.
    bool empty() const { return _glyphs.isEmpty(); }

    /// Binds the texture, up to date; `linear` for texts that are turned.
    void bind(bool linear);
    /// [texel] side of the square texture
    int side() const { return _picture.width(); }

private:
    static constexpr int lastRow = 1 << 20; ///< beyond any texture
    struct ScaledFont {
        QRawFont logical;
        double ratio;
        QRawFont device;
    };
    unsigned fontNumber(QRawFont const& font, double ratio);
    bool image(unsigned font, quint32 glyph, GlyphImage& image);
    bool place(QSize const& size, QPoint& cell);
    bool grow();
    void upload(bool whole);
    bool uploadAll() const;
    bool uploadRows() const;

    std::vector<ScaledFont> _fonts;
    QHash<quint64, GlyphImage> _glyphs; ///< by font number and glyph index
    QImage _picture; ///< Format_Alpha8
    QPoint _pen; ///< [texel] next free place in the row that is being filled
    int _rowHeight = 0;
    int _dirtyFrom = lastRow, _dirtyTo = 0; ///< rows that the texture lacks
    unsigned _generation = 1;
    std::shared_ptr<GlName> _texture;
};

/// Texts collected for one draw call, or one for each run of upright or turned texts.
class GlyphBatch {
public:
    explicit GlyphBatch(GlyphAtlas& atlas)
        : _atlas(atlas)
    {
    }

    struct Item {
        std::shared_ptr<ShapedText const> text;
        float x, y; ///< [px] left end of the baseline
        float cos, sin; ///< its direction
        Rgba color;
    };
    void add(Item item) { _items.push_back(std::move(item)); }
    bool empty() const { return _items.empty(); }
    /// Draws everything and forgets it.
    void flush();

private:
    /// Glyphs that are drawn with the same texture filter.
    struct Run {
        bool turned;
        VertexArrays quads; ///< positions [px], texture coordinates [texel] until they are drawn
    };
    void appendQuads(Item const& item, double ratio);
    void drawRuns();

    GlyphAtlas& _atlas;
    std::vector<Item> _items;
    std::vector<Run> _runs;
};

} // namespace fen
