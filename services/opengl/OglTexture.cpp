#include "services/opengl/OglTexture.h"

#include "services/opengl/Gl.h"
#include "services/opengl/OglDisplayList.h"
#include "services/opengl/OpenGLExtensions.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/TextureUpload.h"

#include <algorithm>
#include <bit>

namespace {

/// [texel] nearest extent that the context can take
int supportedExtent(int extent)
{
    GLint most = 64; // what every OpenGL can do
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    int const within = std::min(extent, int(most));
    return fen::openGLHasSupport(fen::NonPowerOfTwo) ? within : int(std::bit_floor(unsigned(within)));
}

/// Rows from the bottom up, four bytes per texel, in an extent that the context can take.
QImage uploadable(QImage const& picture)
{
    QSize const size(supportedExtent(picture.width()), supportedExtent(picture.height()));
    QImage const fitting = picture.size() == size
        ? picture
        : picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage::Format const format = picture.format() == QImage::Format_RGBA8888_Premultiplied
        ? QImage::Format_RGBA8888_Premultiplied
        : QImage::Format_RGBA8888;
    return fitting.convertToFormat(format).mirrored();
}

} // namespace

FenOglTexture::FenOglTexture(QImage const& image, Filter filter, Wrap wrap)
    : FenOglTexture(
        image.size(), [image] { return image; }, filter, wrap)
{
}

FenOglTexture::FenOglTexture(QSize const& size, std::function<QImage()> paint, Filter filter, Wrap wrap)
    : _size(size.expandedTo(QSize(0, 0)))
    , _paint(std::move(paint))
    , _filter(filter)
    , _wrap(wrap)
{
}

void FenOglTexture::set() const
{
    if (_size.isEmpty()) {
        glBindTexture(GL_TEXTURE_2D, 0);
        return;
    }
    if (!_name || _name->get() == 0) {
        upload();
        return;
    }
    glBindTexture(GL_TEXTURE_2D, _name->get());
    FenOglDisplayList::keepWhileRecorded(_name);
}

void FenOglTexture::upload() const
{
    _name = fen::uploadTexture(uploadable(_paint()), _filter == Nearest ? GL_NEAREST : GL_LINEAR,
                               _wrap == Repeat ? GL_REPEAT : GL_CLAMP_TO_EDGE);
    if (!_name) return;
    FenOglDisplayList::keepWhileRecorded(_name);
    // While a list records, the upload goes into the list and the texture object stays empty until the
    // list is drawn: the list keeps this one, and others make their own.
    if (fen::recordingList()) _name.reset();
}
