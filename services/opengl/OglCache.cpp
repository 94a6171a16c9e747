#include "services/opengl/OglCache.h"

#include "services/opengl/GlNames.h"
#include "services/opengl/LogOnce.h"
#include "services/opengl/OglTexture.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/PlotSymbols.h"
#include "services/opengl/Resource.h"
#include "services/opengl/oglft/Face.h"
#include "services/opengl/oglft/GlyphAtlas.h"
#include "services/properties/ColorSchemes.h"

#include <QDataStream>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>

#include <algorithm>
#include <iterator>
#include <list>
#include <map>
#include <optional>

namespace {

char const* const standardFamily = "DejaVu Sans";
constexpr size_t mostGradients = 4096;
constexpr size_t mostSymbols = 512;

/// Textures by key, a bounded number: the one asked for longest ago gives its texture object back, and
/// goes when the pass is over, as somebody may still refer to it.
class RecentTextures {
public:
    explicit RecentTextures(size_t most)
        : _most(most)
    {
    }

    template <class Make>
    FenOglTexture const& get(QByteArray const& key, Make const& make)
    {
        if (auto const known = _places.constFind(key); known != _places.constEnd()) {
            _entries.splice(_entries.begin(), _entries, *known);
            return _entries.front().texture;
        }
        if (_entries.size() >= _most) {
            _places.remove(_entries.back().key);
            _entries.back().texture.release();
            _retired.splice(_retired.begin(), _entries, std::prev(_entries.end()));
        }
        _entries.push_front({key, make()});
        _places.insert(key, _entries.begin());
        return _entries.front().texture;
    }
    void endPass() { _retired.clear(); }

private:
    struct Entry {
        QByteArray key;
        FenOglTexture texture;
    };
    size_t _most;
    std::list<Entry> _entries;
    std::list<Entry> _retired;
    QHash<QByteArray, std::list<Entry>::iterator> _places;
};

/// 1 x steps texels, the first entry lowest.
QImage rampPicture(QList<QColor> const& colors, int steps)
{
    QImage ramp(1, steps, QImage::Format_RGBA8888);
    for (int i = 0; i < steps; ++i)
        ramp.setPixelColor(0, steps - 1 - i, fen::rampColor(colors, steps > 1 ? double(i) / (steps - 1) : 0));
    return ramp;
}

/// White with the mask as alpha.
QImage whitePicture(QImage const& mask)
{
    QImage picture(mask.size(), QImage::Format_RGBA8888);
    for (int y = 0; y < mask.height(); ++y) {
        uchar* pixel = picture.scanLine(y);
        for (int x = 0; x < mask.width(); ++x, pixel += 4) {
            pixel[0] = pixel[1] = pixel[2] = 255;
            pixel[3] = mask.constScanLine(y)[x];
        }
    }
    return picture;
}

/// Family of a font file, empty when it cannot be read; each file is registered once.
QString familyOf(QByteArray const& file)
{
    static QHash<QByteArray, QString> families;
    auto const known = families.constFind(file);
    if (known != families.constEnd()) return *known;
    int const id = QFontDatabase::addApplicationFontFromData(file);
    QString const family = QFontDatabase::applicationFontFamilies(id).value(0);
    families.insert(file, family);
    return family;
}

/// Takes " Bold" and " Italic" off the end of a name into the font.
QString takeStyle(QString name, QFont& font)
{
    if (name.endsWith(" Italic", Qt::CaseInsensitive)) {
        font.setItalic(true);
        name.chop(7);
    }
    if (name.endsWith(" Bold", Qt::CaseInsensitive)) {
        font.setBold(true);
        name.chop(5);
    }
    return name;
}

/// Nothing for a name that neither the resources nor the system know.
std::optional<QFont> findFont(QString const& name, FenResource const& resource)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return std::nullopt;
    QFont styled;
    QString const plain = takeStyle(name, styled);
    auto const fileFamily = [&](QString const& of) {
        QByteArray const file = resource.font(of);
        return file.isEmpty() ? QString() : familyOf(file);
    };
    for (QString const& family :
         {fileFamily(name), name, fileFamily(plain), plain.isEmpty() ? QString(standardFamily) : plain}) {
        if (family.isEmpty() || !QFontDatabase::hasFamily(family)) continue;
        QFont font(family);
        font.setBold(family != name && styled.bold());
        font.setItalic(family != name && styled.italic());
        return font;
    }
    fen::warnOnce(QString("Unknown font \"%1\".").arg(name.left(80)), "@line 145");
    if (plain == name) return std::nullopt;
    styled.setFamily(standardFamily);
    return styled;
}

} // namespace

struct FenOglCache::Store {
    struct Image {
        qint64 content = 0; ///< QImage::cacheKey of what was uploaded
        FenOglTexture texture;
    };
    std::map<std::pair<QString, bool>, Image> images;
    RecentTextures gradients{mostGradients};
    RecentTextures symbols{mostSymbols};
    std::map<QString, std::unique_ptr<OGLFT::Face>> fonts;
    FenOglTexture missing;
};

struct FenOglCache::Passes {
    FenOglCache* cache; ///< null once it is gone
    unsigned open = 0; ///< scopes
};

FenOglCache::FenOglCache(FenResource const& resource)
    : _resource(resource)
    , _names(std::make_shared<fen::GlNames>())
    , _glyphs(std::make_unique<fen::GlyphAtlas>())
    , _store(std::make_unique<Store>())
    , _passes(std::make_shared<Passes>(Passes{this}))
{
}

FenOglCache::~FenOglCache()
{
    clear();
    _passes->cache = nullptr;
}

FenOglTexture const& FenOglCache::texture(QString const& name, bool repeat)
{
    QImage const image = _resource.image(name);
    if (image.isNull()) {
        if (!name.isEmpty()) fen::warnOnce(QString("Unknown image \"%1\".").arg(name.left(80)), "@line 177");
        return _store->missing;
    }
    Store::Image& entry = _store->images[{name, repeat}];
    if (entry.content != image.cacheKey())
        entry = {image.cacheKey(),
                 FenOglTexture(image, FenOglTexture::Linear,
                               repeat ? FenOglTexture::Repeat : FenOglTexture::Clamp)};
    return entry.texture;
}

FenOglTexture const& FenOglCache::gradient(QList<QColor> const& colors, unsigned steps, bool nearest)
{
    int const count = int(std::clamp(steps, 1u, 4096u));
    QByteArray key;
    QDataStream(&key, QIODevice::WriteOnly) << count << nearest << colors;
    return _store->gradients.get(key, [&] {
        return FenOglTexture(
            QSize(1, count), [colors, count] { return rampPicture(colors, count); },
            nearest ? FenOglTexture::Nearest : FenOglTexture::Linear, FenOglTexture::Clamp);
    });
}

QImage FenOglCache::symbolAtlas(QString const& name) const
{
    if (_resource.hasImage(name)) return _resource.image(name);
    if (!name.isEmpty() && name != QLatin1String(fen::plotSymbolsName))
        fen::warnOnce(QString("Unknown image \"%1\".").arg(name.left(80)), "@line 204");
    return QImage();
}

FenOglTexture const& FenOglCache::symbolMask(SymbolKey const& key)
{
    QImage const atlas = symbolAtlas(key.atlas);
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly)
        << atlas.cacheKey() << fen::pixelRatio() << key.symbol << key.size << int(key.part);
    return _store->symbols.get(bytes, [&] {
        fen::PlotSymbolMasks const masks = fen::plotSymbolMasksOf(atlas, key.symbol, key.size);
        return FenOglTexture(whitePicture(key.part == SymbolKey::Fill ? masks.fill : masks.outline),
                             FenOglTexture::Linear, FenOglTexture::Clamp);
    });
}

OGLFT::Face* FenOglCache::font(QString const& name)
{
    if (auto const known = _store->fonts.find(name); known != _store->fonts.end()) return known->second.get();
    std::optional<QFont> const font = name.isEmpty() ? QFont(standardFamily) : findFont(name, _resource);
    if (!font) return this->font(QString());
    return (_store->fonts[name] = std::make_unique<OGLFT::Face>(*font, *_glyphs)).get();
}

void FenOglCache::clear()
{
    fen::GlNamesScope const current(_names);
    _store = std::make_unique<Store>();
    _glyphs->reset();
    ++_generation;
}

void FenOglCache::contextChanged()
{
    _names->forget();
    fen::GlNames::outside()->forget();
    ++_generation;
}

FenOglContextScope::FenOglContextScope(FenOglCache& cache)
    : _scope(std::make_unique<fen::GlNamesScope>(cache._names))
    , _passes(cache._passes)
{
    ++_passes->open;
}

FenOglContextScope::~FenOglContextScope()
{
    if (--_passes->open > 0 || !_passes->cache) return;
    _passes->cache->_store->gradients.endPass();
    _passes->cache->_store->symbols.endPass();
}
