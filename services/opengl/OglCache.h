#pragma once

#include "../logging/Export.h"

#include <QColor>
#include <QImage>
#include <QList>

#include <memory>

class FenOglTexture;
class FenResource;
class QString;

namespace OGLFT {
class Face;
}
namespace fen {
class GlNames;
class GlyphAtlas;
class GlNamesScope;
} // namespace fen

/// Textures, gradients and fonts of one OpenGL context.
///
/// Points at the resources, which must outlive it. What it returns stays valid
/// until the cache is cleared. Of gradients the 4096 asked for last are kept;
/// others give their texture object back at once, make it anew where they are
/// still used, and go when the outermost `FenOglContextScope` ends. A display
/// list keeps the textures that it uses. Destroy or clear the cache while its
/// context is current, or call `contextChanged` when the context is gone.
class FENVIS_EXPORT FenOglCache {
public:
    explicit FenOglCache(FenResource const& resource);
    ~FenOglCache();
    FenOglCache(FenOglCache const&) = delete;
    FenOglCache& operator=(FenOglCache const&) = delete;

    /// Texture of a named image; follows the resource when it changes. An unknown
    /// name gives a texture without size that binds 0; it is logged once.
    /// @param repeat  texture coordinates outside 0..1 repeat the picture, else they are clamped
    FenOglTexture const& texture(QString const& name, bool repeat);

    /// Colour ramp of 1 x `steps` texels: entry i is the colour list at
    /// i / (steps - 1); t = 0 shows the first entry and t = 1 the last. An empty
    /// list is black; `steps` is clamped to 1..4096.
    /// @param nearest  bins with hard edges, else a smooth ramp
    FenOglTexture const& gradient(QList<QColor> const& colors, unsigned steps, bool nearest);

    /// Face of a font: a font file of the resources, a family of the system,
    /// optionally followed by " Bold", " Italic" or " Bold Italic", or "DejaVu
    /// Sans" for an empty name. An unknown name is logged once and gives the
    /// default face, with the style asked for. Never null.
    OGLFT::Face* font(QString const& name);

    /// Atlas image of a name that the host has set; null for the built-in symbols.
    QImage symbolAtlas(QString const& name) const;
    /// One mask of a plot symbol as white with alpha, for the drawing helpers.
    struct SymbolKey {
        QString const& atlas;
        unsigned symbol;
        int size; ///< [device px]
        enum Part { Fill, Outline } part;
    };
    FenOglTexture const& symbolMask(SymbolKey const& key);

    FenResource const& resource() const { return _resource; }
    fen::GlyphAtlas& glyphs() { return *_glyphs; }

    /// Forgets everything and deletes the texture objects (context current).
    void clear();
    /// The context is gone or replaced: forgets every OpenGL name without
    /// deleting it. Faces, textures and gradients stay valid and are uploaded
    /// again; display lists count as not compiled.
    void contextChanged();
    /// Changes with every contextChanged().
    unsigned generation() const { return _generation; }

private:
    friend class FenOglContextScope;
    struct Store;
    struct Passes;

    FenResource const& _resource;
    std::shared_ptr<fen::GlNames> _names;
    std::unique_ptr<fen::GlyphAtlas> _glyphs;
    std::unique_ptr<Store> _store;
    std::shared_ptr<Passes> _passes; // shared with the scopes that are open
    unsigned _generation = 0;
};

/// Says that the context of `cache` is current until the scope ends: lists and
/// textures made inside belong to it, and names that were released meanwhile
/// are deleted now. A host with several contexts opens one around each pass;
/// the end of the outermost one is the end of the pass for the cache.
class FENVIS_EXPORT FenOglContextScope {
public:
    explicit FenOglContextScope(FenOglCache& cache);
    ~FenOglContextScope();
    FenOglContextScope(FenOglContextScope const&) = delete;
    FenOglContextScope& operator=(FenOglContextScope const&) = delete;

private:
    std::unique_ptr<fen::GlNamesScope> _scope;
    std::shared_ptr<FenOglCache::Passes> _passes;
};
