#include "services/opengl/oglft/Face.h"

#include "services/opengl/Gl.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/oglft/GlyphAtlas.h"

#include <QCache>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace OGLFT {

namespace {

constexpr int mostCharacters = 4096; // longer texts may take seconds to shape
constexpr int mostCachedCharacters = 1 << 16;
constexpr QChar ellipsis(0x2026);

struct TextKey {
    int pixelSize;
    QString text;
    bool operator==(TextKey const&) const = default;
};
size_t qHash(TextKey const& key, size_t seed = 0) { return qHashMulti(seed, key.pixelSize, key.text); }

/// What is shaped: not too long, with blanks for control characters.
QString shapeable(QString const& text)
{
    QString line = text;
    if (line.size() > mostCharacters) {
        qsizetype const end = mostCharacters - 1;
        line.truncate(line[end - 1].isHighSurrogate() ? end - 1 : end);
        line += ellipsis;
    }
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = u' ';
    return line;
}

/// Qt's font code needs the application object. Without any font on the machine it gives one that calls
/// itself valid, paints boxes and crashes when it is asked for more; it has no tables.
bool usable(QFont const& font)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return false;
    QRawFont const raw = QRawFont::fromFont(font);
    return raw.isValid() && !raw.fontTable("head").isEmpty();
}

void layOut(QTextLayout& layout)
{
    constexpr qreal endless = 1e7; // [px]
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(false);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setLineWidth(endless);
        line.setPosition(QPointF(0, 0));
    }
    layout.endLayout();
}

void collectGlyphs(QTextLayout const& layout, float ascent, fen::ShapedText& shaped)
{
    for (QGlyphRun const& run : layout.glyphRuns()) {
        if (!run.rawFont().isValid()) continue;
        auto const font = unsigned(shaped.fonts.size());
        shaped.fonts.push_back(run.rawFont());
        QList<quint32> const indices = run.glyphIndexes();
        QList<QPointF> const positions = run.positions();
        for (qsizetype i = 0; i < std::min(indices.size(), positions.size()); ++i)
            shaped.glyphs.push_back(
                {font, indices[i], float(positions[i].x()), ascent - float(positions[i].y())});
    }
}

} // namespace

/// Heights of a line at one pixel size.
struct Face::Metrics {
    int pixelSize = 0; ///< 0: not measured
    float ascent = 0; ///< [px]
    float height = 0; ///< [px]
};

struct Face::State {
    State(QFont const& f, fen::GlyphAtlas& g)
        : font(f)
        , glyphs(g)
    {
    }
    Metrics const& metrics(int size);

    QFont font;
    fen::GlyphAtlas& glyphs;
    bool valid = false;
    Metrics measured;
    QCache<TextKey, std::shared_ptr<fen::ShapedText const>> shaped{mostCachedCharacters};
};

Face::Metrics const& Face::State::metrics(int size)
{
    if (measured.pixelSize == size) return measured;
    measured = {size, 0, 0};
    if (!valid) return measured;
    QTextLayout layout("X", font);
    layOut(layout);
    if (layout.lineCount() == 1) {
        measured.ascent = float(std::round(layout.lineAt(0).ascent()));
        measured.height = float(std::ceil(layout.lineAt(0).height()));
    }
    return measured;
}

Face::Face(QFont const& font, fen::GlyphAtlas& glyphs)
    : _state(std::make_unique<State>(font, glyphs))
{
    constexpr int standardSize = 11; // [px] 8 points
    _state->font.setPixelSize(standardSize);
    _state->font.setHintingPreference(QFont::PreferFullHinting);
    _state->font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    _state->valid = usable(_state->font);
    if (!_state->valid) fen::warnOnce("There is no font on this machine: texts are not drawn.", "@line 132");
}

Face::~Face() = default;

bool Face::valid() const { return _state->valid; }

void Face::setPointSize(float size)
{
    constexpr float pixelsPerPoint = 96.0f / 72.0f;
    constexpr float most = 1000;
    setPixelSize(qRound((size > 0 ? std::min(size, most) : 1) * pixelsPerPoint));
}

void Face::setPixelSize(int size)
{
    constexpr int most = 512;
    _state->font.setPixelSize(std::clamp(size, 1, most));
}

int Face::pixelSize() const { return _state->font.pixelSize(); }

float Face::height() const { return _state->metrics(pixelSize()).height; }
float Face::ascender() const { return _state->metrics(pixelSize()).ascent; }

float Face::advance(QString const& text) const { return shape(text)->advance; }

std::shared_ptr<fen::ShapedText const> Face::shape(QString const& text) const
{
    TextKey key{pixelSize(), text.left(mostCharacters + 1)};
    if (auto const* const known = _state->shaped.object(key)) return *known;
    auto shaped = std::make_shared<fen::ShapedText>();
    if (_state->valid && !text.isEmpty()) {
        QTextLayout layout(shapeable(key.text), _state->font);
        layOut(layout);
        if (layout.lineCount() == 1) {
            QTextLine const line = layout.lineAt(0);
            shaped->advance = float(line.horizontalAdvance());
            collectGlyphs(layout, float(line.ascent()), *shaped);
        }
    }
    auto const cost = 16 + key.text.size(); // with what an entry takes besides its characters
    _state->shaped.insert(std::move(key), new std::shared_ptr<fen::ShapedText const>(shaped), cost);
    return shaped;
}

void Face::append(fen::GlyphBatch& batch, Placement const& placement, fen::Rgba const& color,
                  QString const& text)
{
    std::shared_ptr<fen::ShapedText const> shaped = shape(text);
    if (shaped->glyphs.empty()) return;
    batch.add({std::move(shaped), placement.x, placement.y, placement.cos, placement.sin, color});
}

void Face::draw(float x, float y, QString const& text)
{
    if (!std::isfinite(x) || !std::isfinite(y)) return;
    GLfloat color[4] = {0, 0, 0, 1};
    glGetFloatv(GL_CURRENT_COLOR, color);
    fen::GlyphBatch batch(_state->glyphs);
    append(batch, {x, y, 1, 0}, QColor::fromRgbF(color[0], color[1], color[2], color[3]), text);
    batch.flush();
}

} // namespace OGLFT
