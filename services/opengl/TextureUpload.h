#pragma once

#include "services/opengl/Gl.h"
#include "services/opengl/GlNames.h"
#include "services/opengl/GlScopes.h"

#include <QImage>
#include <QSize>

#include <memory>

namespace fen {

/// Unpacking of pixels from client memory, whatever the host has set: no buffer object, no scale and bias,
/// nothing skipped. Bind the texture before it begins, and change nothing but texels in it.
class UploadScope {
public:
    /// @param rowLength  [texel] from row to row
    /// @param alignment  of rows in bytes, 1, 2, 4 or 8
    UploadScope(GLint rowLength, GLint alignment);
    ~UploadScope();
    UploadScope(UploadScope const&) = delete;
    UploadScope& operator=(UploadScope const&) = delete;

private:
    AttribScope _transfer;
};

/// True when the texture bound to GL_TEXTURE_2D has that size; taken on trust while a list records.
bool textureHasSize(QSize const& size);

/// Makes a texture object, leaves it bound to GL_TEXTURE_2D and fills it.
/// @param rows  four bytes per texel in the order R, G, B, A, the lowest row first
/// @param filter, wrap  GL_NEAREST or GL_LINEAR; GL_REPEAT or GL_CLAMP_TO_EDGE
/// @return null when OpenGL did not take it: try again at the next draw
std::shared_ptr<GlName> uploadTexture(QImage const& rows, GLint filter, GLint wrap);

} // namespace fen
