#pragma once

#include "../../framework/DrawContext.h"
#include "../../services/logging/Export.h"

class FenVisList;
class FenVisPlane;

/// Shows the planes of a list, which draw nothing themselves: their section through the bounding box of the
/// list, with some air around it, as an outline, a filled area, a grid and lines to its centre, and their
/// normal; and cuts the siblings that a clip plane names.
///
/// It is no node: the scene calls it around the 3D pass, as long as it is enabled.
class FENVIS_EXPORT FenPlanePainter {
public:
    /// Opaque planes come before the nodes, so that shadows fall on them, translucent ones after.
    enum Order { Opaque, Translucent };

    /// Draws the enabled planes of one order. Touches nothing when there is none.
    void draw(FenVisList const& nodes, Order order, FenVisualization::DrawContext const& context) const;

    bool enabled = true; ///< false: the program draws its planes itself
};

namespace fen {

/// While it lives, the enabled clip planes of a node's list that name the node cut it: at most as many as
/// OpenGL has.
class ClipScope {
public:
    explicit ClipScope(FenVisualization const& node);
    ~ClipScope();
    ClipScope(ClipScope const&) = delete;
    ClipScope& operator=(ClipScope const&) = delete;

private:
    unsigned _planes = 0;
};

} // namespace fen
