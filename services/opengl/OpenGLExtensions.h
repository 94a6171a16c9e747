#pragma once

#include "../logging/Export.h"

namespace fen {

/// Extensions that drawing code asks for before it relies on them.
enum OpenGLExtensions {
    PointSprite, ///< textured points (core since OpenGL 2.0)
    NonPowerOfTwo ///< textures of any size (core since OpenGL 2.0)
};

/// True when the current context supports the extension; false without a context.
FENVIS_EXPORT bool openGLHasSupport(OpenGLExtensions extension);

} // namespace fen
