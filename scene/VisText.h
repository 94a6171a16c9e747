#pragma once

#include "../framework/VisPassiveNode.h"

#include <QPoint>
#include <QStringList>

#include <array>
#include <vector>

namespace OGLFT {
class Face;
}
namespace fen {
class GlyphAtlas;
class GlyphBatch;
struct TextRun;
} // namespace fen

/// Lines of text from the top left corner of the parent's viewport down, with a
/// drop shadow.
///
/// Lines may hold <b>, <i> and <font color="#rrggbb"> with their ends; each line
/// begins anew in regular type and the text's colour. In the shadow colours are
/// ignored. An end of font swallows the character behind it.
class FENVIS_EXPORT FenVisText : public FenVisPassiveNode {
public:
    static QString const typeString;

    FenPropertyAdaptor<QStringList> text; ///< top line first
    FenPropertyAdaptor<QString> font; ///< name as FenOglCache::font takes it; empty: the default font
    FenPropertyAdaptor<QString> fontBold; ///< empty: the regular font made bold; the same for the next two
    FenPropertyAdaptor<QString> fontItalic;
    FenPropertyAdaptor<QString> fontBoldItalic;
    FenPropertyAdaptor<QString> fontAuxiliary; ///< loaded with the others, for classes that derive
    FenPropertyAdaptor<int> fontSize; ///< [px] key "size"; also the height of the first line
    FenPropertyAdaptor<QColor> color;
    FenPropertyAdaptor<QColor> shadow; ///< transparent: none

    explicit FenVisText(FenModifiedGroup& group);
    FenVisText(FenVisText const& other);
    FenVisText& operator=(FenVisText const& other);
    ~FenVisText() override;

    void update(DrawContext const& context) override;
    void draw2d(DrawContext const& context) const override;
    virtual void doDraw2d(DrawContext const& context) const;

protected:
    /// Draws lines below each other; between `doDraw2d`'s beginning and end only.
    /// @param x, y      [px] left end of the first line's baseline
    /// @param asShadow  ignores the colours in the lines
    void drawMultilineString(int x, int y, QColor const& ink, QStringList const& lines, bool asShadow) const;

private:
    enum { Regular = 0, Bold = 1, Italic = 2, Auxiliary = 4, Faces = 5 }; // Bold | Italic is 3

    void loadFaces(DrawContext const& context) const;
    void parse(QStringList const& lines) const;
    void appendLine(fen::GlyphBatch& batch, QPoint const& start, std::vector<fen::TextRun> const& runs,
                    QColor const& ink, bool asShadow) const;

    mutable std::array<OGLFT::Face*, Faces> _faces{}; // of the cache; of the pass that runs
    mutable fen::GlyphAtlas* _glyphs = nullptr; // the same
    mutable fen::GlyphBatch* _batch = nullptr; // what `doDraw2d` collects
    mutable QStringList _parsedLines;
    mutable std::vector<std::vector<fen::TextRun>> _runs; // one per parsed line
};
