#include "scene/VisText.h"

#include "framework/DrawContext.h"
#include "scene/TextMarkup.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/OglCache.h"
#include "services/opengl/oglft/Face.h"
#include "services/opengl/oglft/GlyphAtlas.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int largestSize = 512; // [px] as large as a face gets
constexpr float widestLine = 16384; // [px] beyond any viewport
constexpr qsizetype mostLines = 4096; // more than a screen is high

} // namespace

QString const FenVisText::typeString = QStringLiteral("visualization.text");

FenVisText::FenVisText(FenModifiedGroup& group)
    : FenVisPassiveNode(group)
    , text(*this, "text", QStringList(), QString())
    , font(*this, "font", QString(), QString())
    , fontBold(*this, "fontBold", QString(), QString())
    , fontItalic(*this, "fontItalic", QString(), QString())
    , fontBoldItalic(*this, "fontBoldItalic", QString(), QString())
    , fontAuxiliary(*this, "fontAuxiliary", QString(), QString())
    , fontSize(*this, "size", 20, QString())
    , color(*this, "color", Qt::white, QString())
    , shadow(*this, "shadow", Qt::black, QString())
{
    rename(typeString);
    setType(typeString);
    layer.set(99);
}

FenVisText::FenVisText(FenVisText const& other)
    : FenVisPassiveNode(other)
    , text(*this, other.text)
    , font(*this, other.font)
    , fontBold(*this, other.fontBold)
    , fontItalic(*this, other.fontItalic)
    , fontBoldItalic(*this, other.fontBoldItalic)
    , fontAuxiliary(*this, other.fontAuxiliary)
    , fontSize(*this, other.fontSize)
    , color(*this, other.color)
    , shadow(*this, other.shadow)
{
    rename(typeString);
    setType(typeString);
}

FenVisText& FenVisText::operator=(FenVisText const&) = default;

FenVisText::~FenVisText() = default;

void FenVisText::update(DrawContext const& context)
{
    loadFaces(context);
    parse(text.get());
}

void FenVisText::loadFaces(DrawContext const& context) const
{
    auto const face = [&](QString const& name, char const* style) {
        return context.cache.font(name.isEmpty() ? font.get() + QLatin1String(style) : name);
    };
    _faces[Regular] = context.cache.font(font.get());
    _faces[Bold] = face(fontBold.get(), " Bold");
    _faces[Italic] = face(fontItalic.get(), " Italic");
    _faces[Bold | Italic] = face(fontBoldItalic.get(), " Bold Italic");
    _faces[Auxiliary] = face(fontAuxiliary.get(), "");
    _glyphs = &context.cache.glyphs();
}

void FenVisText::parse(QStringList const& lines) const
{
    if (lines == _parsedLines && !_runs.empty()) return;
    _parsedLines = lines;
    _runs.clear();
    for (qsizetype i = 0; i < std::min(lines.size(), mostLines); ++i)
        _runs.push_back(fen::textRuns(lines[i]));
}

void FenVisText::draw2d(DrawContext const& context) const { doDraw2d(context); }

void FenVisText::doDraw2d(DrawContext const& context) const
{
    if (text.get().isEmpty()) return;
    loadFaces(context);
    fen::FlatScope const flat;
    fen::GlyphBatch batch(*_glyphs); // both passes at once
    _batch = &batch;
    int const baseline = context.viewport.height() - std::clamp(fontSize.get(), 1, largestSize);
    if (shadow.get().alpha() > 0) drawMultilineString(1, baseline - 1, shadow.get(), text.get(), true);
    if (color.get().alpha() > 0) drawMultilineString(0, baseline, color.get(), text.get(), false);
    _batch = nullptr;
    batch.flush();
}

void FenVisText::drawMultilineString(int x, int y, QColor const& ink, QStringList const& lines,
                                     bool asShadow) const
{
    if (!_batch) return;
    parse(lines);
    for (OGLFT::Face* const face : _faces) face->setPixelSize(fontSize.get());
    int const height = int(std::lround(_faces[Regular]->height()));
    if (height <= 0) return; // no font on the machine
    QPoint pen(x, y);
    for (std::vector<fen::TextRun> const& runs : _runs) {
        if (pen.y() < -height) break; // below the viewport
        appendLine(*_batch, pen, runs, ink, asShadow);
        pen.ry() -= height;
    }
}

void FenVisText::appendLine(fen::GlyphBatch& batch, QPoint const& start, std::vector<fen::TextRun> const& runs,
                            QColor const& ink, bool asShadow) const
{
    auto pen = float(start.x());
    for (fen::TextRun const& run : runs) {
        if (pen > widestLine) break;
        OGLFT::Face& face = *_faces[size_t((run.bold ? Bold : 0) | (run.italic ? Italic : 0))];
        QColor const& own = !asShadow && run.color.isValid() ? run.color : ink;
        face.append(batch, {pen, float(start.y()), 1, 0}, own, run.text);
        pen += face.advance(run.text);
    }
}
