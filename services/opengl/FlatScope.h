#pragma once

#include "../logging/Export.h"
#include "GlScopes.h"

namespace fen {

/// State for flat drawing in pixels: plain colours, no depth, ordinary blending.
///
/// Independent of what a host or a 3D pass has left on: lighting, fog, culling, clip planes, textures
/// on any unit, texture generation, a texture matrix, stipples... Matrices, viewport, scissor, stencil and
/// colour mask stay in force. Saves and restores every attribute group, so whatever is changed inside
/// ends with the scope. May be nested; the inner ones cost little.
class FENVIS_EXPORT FlatScope {
public:
    FlatScope();
    ~FlatScope();
    FlatScope(FlatScope const&) = delete;
    FlatScope& operator=(FlatScope const&) = delete;

    /// Textures show unchanged, or with `GL_MODULATE` in the current colour.
    static void enableTexture(GLint environment);

private:
    void leaveHostBehind();

    AttribScope _attributes;
    bool _textureMatrix = false; // was put aside
};

} // namespace fen
