#include "services/opengl/oglft/GlyphAtlas.h"

#include "services/opengl/FlatScope.h"
#include "services/opengl/GlNames.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/TextureUpload.h"

#include <algorithm>
#include <cmath>

namespace fen {

namespace {

constexpr int firstSide = 512; // [texel]
constexpr int lastSide = 4096; // [texel]
constexpr int gap = 2; // [texel] blank between glyphs, so that turned ones may be smoothed
constexpr size_t mostFonts = 256;

/// Coverage of a glyph as Format_Alpha8; null when the font has no image for it.
QImage coverage(QRawFont const& font, quint32 glyph)
{
    QImage const map = font.alphaMapForGlyph(glyph, QRawFont::PixelAntialiasing);
    if (map.isNull() || map.format() == QImage::Format_Alpha8) return map;
    if (map.hasAlphaChannel()) return map.convertToFormat(QImage::Format_Alpha8);
    QImage grey = map.convertToFormat(QImage::Format_Grayscale8);
    grey.reinterpretAsFormat(QImage::Format_Alpha8);
    return grey;
}

} // namespace

unsigned GlyphAtlas::fontNumber(QRawFont const& font, double ratio)
{
    for (unsigned i = 0; i < _fonts.size(); ++i)
        if (_fonts[i].ratio == ratio && _fonts[i].logical == font) return i;
    QRawFont device = font;
    if (ratio != 1) device.setPixelSize(font.pixelSize() * ratio);
    _fonts.push_back({font, ratio, device});
    return unsigned(_fonts.size() - 1);
}

bool GlyphAtlas::prepare(ShapedText const& text, double ratio)
{
    if (text.imagesGeneration == _generation && text.imagesRatio == ratio) return true;
    if (_fonts.size() + text.fonts.size() > mostFonts && !empty()) return false;
    std::vector<unsigned> numbers;
    for (QRawFont const& font : text.fonts) numbers.push_back(fontNumber(font, ratio));

    text.images.assign(text.glyphs.size(), GlyphImage());
    for (size_t i = 0; i < text.glyphs.size(); ++i)
        if (!image(numbers[text.glyphs[i].font], text.glyphs[i].index, text.images[i])) return false;
    text.imagesGeneration = _generation;
    text.imagesRatio = ratio;
    return true;
}

bool GlyphAtlas::image(unsigned font, quint32 glyph, GlyphImage& image)
{
    quint64 const key = quint64(font) << 32 | glyph;
    if (auto const known = _glyphs.constFind(key); known != _glyphs.constEnd()) {
        image = *known;
        return true;
    }
    QRawFont const& device = _fonts[font].device;
    QImage const map = device.isValid() ? coverage(device, glyph) : QImage();
    if (!map.isNull()) {
        QRectF const bounds = device.boundingRect(glyph);
        image = {QPoint(), map.size(), int(std::floor(bounds.x())), -int(std::floor(bounds.y()))};
        if (!place(map.size(), image.cell)) return false;
        for (int y = 0; y < map.height(); ++y)
            std::copy_n(map.constScanLine(y), map.width(),
                        _picture.scanLine(image.cell.y() + y) + image.cell.x());
        _dirtyFrom = std::min(_dirtyFrom, image.cell.y());
        _dirtyTo = std::max(_dirtyTo, image.cell.y() + map.height());
    }
    _glyphs.insert(key, image);
    return true;
}

bool GlyphAtlas::place(QSize const& size, QPoint& cell)
{
    if (_picture.isNull() && !grow()) return false;
    int const width = size.width() + gap, height = size.height() + gap;
    while (true) {
        if (_pen.x() + width > side()) { // begin the next row
            _pen = QPoint(gap, _pen.y() + _rowHeight);
            _rowHeight = 0;
        }
        if (_pen.x() + width <= side() && _pen.y() + height <= side()) break;
        if (!grow()) return false;
    }
    cell = _pen;
    _pen.rx() += width;
    _rowHeight = std::max(_rowHeight, height);
    return true;
}

bool GlyphAtlas::grow()
{
    int const side = _picture.isNull() ? firstSide : 2 * this->side();
    GLint most = lastSide;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    if (side > std::min<int>(most, lastSide)) return false;
    QImage larger(side, side, QImage::Format_Alpha8);
    larger.fill(0);
    for (int y = 0; y < _picture.height(); ++y)
        std::copy_n(_picture.constScanLine(y), _picture.width(), larger.scanLine(y));
    if (_picture.isNull()) _pen = QPoint(gap, gap);
    _picture = larger;
    _texture.reset(); // of the old size
    return true;
}

void GlyphAtlas::reset()
{
    _fonts.clear();
    _glyphs.clear();
    _picture = QImage();
    _rowHeight = 0;
    _dirtyFrom = lastRow;
    _dirtyTo = 0;
    _texture.reset();
    ++_generation;
}

void GlyphAtlas::bind(bool linear)
{
    bool const fresh = !_texture || _texture->get() == 0;
    if (fresh) {
        GLuint name = 0;
        glGenTextures(1, &name);
        _texture = std::make_shared<GlName>(GlNames::Texture, name);
    }
    glBindTexture(GL_TEXTURE_2D, _texture->get());
    FenOglDisplayList::keepWhileRecorded(_texture);
    if (fresh || _dirtyFrom < _dirtyTo) upload(fresh);
    GLint const filter = linear ? GL_LINEAR : GL_NEAREST;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, filter);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, filter);
}

void GlyphAtlas::upload(bool whole)
{
    bool done;
    {
        UploadScope const unpacking(GLint(_picture.bytesPerLine()), 1);
        done = whole ? uploadAll() : uploadRows();
    }
    if (recordingList()) { // the upload went into the list only
        if (whole) _texture.reset();
        return;
    }
    if (!done) {
        _texture.reset(); // the next draw makes it anew
        return;
    }
    _dirtyFrom = lastRow;
    _dirtyTo = 0;
}

bool GlyphAtlas::uploadAll() const
{
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_ALPHA8, side(), side(), 0, GL_ALPHA, GL_UNSIGNED_BYTE,
                 _picture.constBits());
    return textureHasSize(_picture.size());
}

bool GlyphAtlas::uploadRows() const
{
    // Somebody else may have emptied the texture's name, or never filled it.
    if (!textureHasSize(_picture.size())) return false;
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, _dirtyFrom, side(), _dirtyTo - _dirtyFrom, GL_ALPHA,
                    GL_UNSIGNED_BYTE, _picture.constScanLine(_dirtyFrom));
    return true;
}

void GlyphBatch::flush()
{
    double const ratio = pixelRatio();
    for (Item const& item : _items) {
        if (!_atlas.prepare(*item.text, ratio)) {
            drawRuns();
            _atlas.reset();
            if (!_atlas.prepare(*item.text, ratio))
                warnOnce("A text has more glyphs than fit into a texture; it is drawn in part.", "@line 176");
        }
        appendQuads(item, ratio);
    }
    _items.clear();
    drawRuns();
}

void GlyphBatch::appendQuads(Item const& item, double ratio)
{
    // A quarter turn keeps glyphs on whole pixels.
    bool const straight = item.cos == 0 || item.sin == 0;
    float const scale = float(ratio);
    float const x = straight ? std::round(item.x * scale) : item.x * scale;
    float const y = straight ? std::round(item.y * scale) : item.y * scale;
    int const rim = straight ? 0 : 1; // [texel] blank edge that smooths a turned glyph
    if (_runs.empty() || _runs.back().turned == straight) _runs.push_back({!straight, {}});
    VertexArrays& quads = _runs.back().quads;
    auto const corner = [&](float u, float v, float s, float t) {
        quads.positions.emplace_back((x + u * item.cos - v * item.sin) / scale,
                                     (y + u * item.sin + v * item.cos) / scale, 0.0f);
        quads.texCoords.emplace_back(s, t);
        quads.colors.push_back(item.color);
    };
    ShapedText const& text = *item.text;
    for (size_t i = 0; i < text.images.size(); ++i) {
        GlyphImage const& image = text.images[i];
        if (image.size.isEmpty()) continue;
        float const left = std::round(text.glyphs[i].x * scale) + float(image.left - rim);
        float const top = std::round(text.glyphs[i].y * scale) + float(image.top + rim);
        float const width = float(image.size.width() + 2 * rim),
                    height = float(image.size.height() + 2 * rim);
        float const s = float(image.cell.x() - rim), t = float(image.cell.y() - rim);
        corner(left, top - height, s, t + height);
        corner(left + width, top - height, s + width, t + height);
        corner(left + width, top, s + width, t);
        corner(left, top, s, t);
    }
}

void GlyphBatch::drawRuns()
{
    if (_runs.empty()) return;
    FlatScope const flat;
    FlatScope::enableTexture(GL_MODULATE);
    for (Run& run : _runs) {
        if (run.quads.positions.empty()) continue;
        _atlas.bind(run.turned);
        float const texel = 1.0f / float(_atlas.side());
        for (Kes::Math::Vector2& each : run.quads.texCoords) each = each * texel;
        run.quads.draw(GL_QUADS);
    }
    _runs.clear();
}

} // namespace fen
