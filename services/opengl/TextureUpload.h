#pragma once

#include "services/opengl/GlNames.h"

#include <QImage>

#include <memory>

namespace fen {

/// Makes a texture object, leaves it bound to GL_TEXTURE_2D and fills it.
/// @param rows  four bytes per texel in the order R, G, B, A, the lowest row first
/// @param filter, wrap  GL_NEAREST or GL_LINEAR; GL_REPEAT or GL_CLAMP_TO_EDGE
std::shared_ptr<GlName> uploadTexture(QImage const& rows, GLint filter, GLint wrap);

} // namespace fen
