#pragma once

#include "../logging/Export.h"

namespace fen {

/// What a user has chosen on top of the projection that fits a box into a viewport.
struct FittedView {
    double zoom = 1; ///< size on the screen over the fitted one
    double panX = 0, panY = 0; ///< way of the box's centre from the viewport's, in half heights of it
    double angle = 0; ///< [deg] vertical opening of a perspective view; 0: parallel

    bool plain() const { return zoom == 1 && panX == 0 && panY == 0 && !(angle > 0); }
};

/// While it lives, every `glOrtho(viewport, box, modelView)` shows its box as `view` says: so do the
/// scene and each node in it that has a viewport of its own. A scope, as passes end early.
class FENVIS_EXPORT FittedViewScope {
public:
    explicit FittedViewScope(FittedView const& view);
    ~FittedViewScope();
    FittedViewScope(FittedViewScope const&) = delete;
    FittedViewScope& operator=(FittedViewScope const&) = delete;

private:
    FittedView _before;
};

/// The one in force.
FittedView const& fittedView();

} // namespace fen
