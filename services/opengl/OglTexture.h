#pragma once

#include "../logging/Export.h"

#include <QImage>
#include <QSize>

#include <functional>
#include <memory>

namespace fen {
class GlName;
class GlNames;
} // namespace fen

/// A two-dimensional texture, held by the cache.
///
/// Keeps the recipe of its picture (a picture or a function that paints one)
/// and makes the texture object when it is first bound, and again after a
/// change of context. Binding while a display list records puts the upload
/// into the list when the texture does not exist yet; bind it once before.
class FENVIS_EXPORT FenOglTexture {
public:
    /// How texels are looked up.
    enum Filter { Nearest, Linear };
    enum Wrap { Clamp, Repeat };

    /// No picture: width() = height() = 0 and set() binds texture 0.
    FenOglTexture() = default;
    FenOglTexture(QImage const& image, Filter filter, Wrap wrap);
    /// @param paint  paints the picture of `size` texels; called at each upload
    FenOglTexture(QSize const& size, std::function<QImage()> paint, Filter filter, Wrap wrap);

    int width() const { return _size.width(); } ///< [texel]
    int height() const { return _size.height(); } ///< [texel]
    /// Binds the texture to GL_TEXTURE_2D; texture coordinate (0, 0) is the
    /// lower left corner of the picture, (1, 1) the upper right one.
    void set() const;
    /// Gives the texture object back; the next set() makes it anew.
    void release() const { _name.reset(); }

private:
    void upload() const;

    QSize _size = QSize(0, 0);
    std::function<QImage()> _paint;
    Filter _filter = Linear;
    Wrap _wrap = Clamp;
    mutable std::shared_ptr<fen::GlName> _name;
};
