#pragma once

#include "../../logging/Export.h"

#include <QFont>

#include <memory>

class QString;

namespace fen {
class GlyphAtlas;
class GlyphBatch;
struct Rgba;
struct ShapedText;
} // namespace fen

namespace OGLFT {

/// One font face at a point size that can be changed.
///
/// Texts are laid out at the logical size with hinted, whole-pixel advances and
/// their glyphs painted at the size times the pixel ratio, so that a text is
/// sharp and has the same extent at any ratio. Shaped texts are kept in a cache
/// of bounded size. At most 4096 characters of a text are shaped; the rest
/// becomes an ellipsis. Without any font it draws nothing and measures 0.
class FENVIS_EXPORT Face {
public:
    /// @param glyphs  store of glyph images; must outlive the face
    Face(QFont const& font, fen::GlyphAtlas& glyphs);
    ~Face();
    Face(Face const&) = delete;
    Face& operator=(Face const&) = delete;

    /// False when there is no font on the machine.
    bool valid() const;
    /// [pt] at 96 dpi, rounded to whole pixels; clamped to 1..512 pixels.
    void setPointSize(float size);
    /// [px] the same directly.
    void setPixelSize(int size);
    int pixelSize() const;

    /// Draws one line in the current colour, (x, y) [px] being the left end of its
    /// baseline; blending is switched on meanwhile.
    void draw(float x, float y, QString const& text);
    /// [px] line height
    float height() const;
    /// [px] height of the line above the baseline
    float ascender() const;
    /// [px] distance from the start of a text to the start of what would follow it
    float advance(QString const& text) const;

    /// Where glyphs go: origin of the baseline and directions, for FenOglText.
    struct Placement {
        float x, y; ///< [px] left end of the baseline
        float cos, sin; ///< direction of the baseline
    };
    /// Adds a text to a batch, to be drawn with it.
    void append(fen::GlyphBatch& batch, Placement const& placement, fen::Rgba const& color,
                QString const& text);

private:
    struct Metrics;
    struct State;
    std::shared_ptr<fen::ShapedText const> shape(QString const& text) const;

    std::unique_ptr<State> _state;
};

} // namespace OGLFT
