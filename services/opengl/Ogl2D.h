#pragma once

#include "../logging/Export.h"
#include "OglViewport.h"

/// Scope for drawing in pixels over a viewport: saves both matrices and sets a
/// projection in which one unit is one logical pixel of the viewport, origin at
/// its lower left corner, and an identity model-view matrix. The OpenGL viewport
/// itself is left alone. Leaves the matrix mode at GL_MODELVIEW.
class FENVIS_EXPORT FenOgl2D {
public:
    explicit FenOgl2D(FenOglViewport const& viewport);
    /// Ends what was begun.
    ~FenOgl2D();
    FenOgl2D(FenOgl2D const&) = delete;
    FenOgl2D& operator=(FenOgl2D const&) = delete;

    /// Nothing when it has begun already.
    void begin();
    /// Nothing when it has not begun.
    void end();

private:
    FenOglViewport _viewport;
    bool _begun = false;
};
