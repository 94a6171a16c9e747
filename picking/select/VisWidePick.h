#pragma once

#include "../../framework/DrawContext.h"
#include "../../services/logging/Export.h"
#include "../../services/opengl/GlScopes.h"

/// Widens the region of a select pass while it lasts, for things that OpenGL picks by a point or a line
/// thinner than what is drawn.
class FENVIS_EXPORT FenVisWidePick {
public:
    /// @param extra  [px] by which the thing is wider
    FenVisWidePick(FenVisualization::SelectContext const& context, int extra);
    FenVisWidePick(FenVisWidePick const&) = delete;
    FenVisWidePick& operator=(FenVisWidePick const&) = delete;

private:
    fen::MatrixScope _matrix;
};
