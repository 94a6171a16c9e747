#pragma once

#include "../services/logging/Export.h"
#include "DrawContext.h"

namespace Kes::Math {
class BoundingBox;
}

/// Context for a child with a viewport of its own, and the OpenGL state that
/// belongs to it: viewport and both matrices are set by the constructor and
/// restored by the destructor. Destroy in reverse order of construction.
class FENVIS_EXPORT FenVisualization::UpdateDrawContext : public FenVisualization::DrawContext {
public:
    /// For 2D: one unit is one pixel of `own`, held by the model-view matrix.
    UpdateDrawContext(DrawContext const& parent, FenOglViewport const& own);
    /// For 3D: `box`, seen through the parent's model-view matrix, fits into `own`.
    UpdateDrawContext(DrawContext const& parent, FenOglViewport const& own,
                      Kes::Math::BoundingBox const& box);
    ~UpdateDrawContext() override;
    UpdateDrawContext(UpdateDrawContext const&) = delete;
    UpdateDrawContext& operator=(UpdateDrawContext const&) = delete;

private:
    bool enterViewport(FenOglViewport const& own);
};

/// The same for a select pass: the pick point becomes relative to `own`.
class FENVIS_EXPORT FenVisualization::UpdateSelectContext : public FenVisualization::SelectContext {
public:
    UpdateSelectContext(SelectContext const& parent, FenOglViewport const& own);
    UpdateSelectContext(SelectContext const& parent, FenOglViewport const& own,
                        Kes::Math::BoundingBox const& box);
    ~UpdateSelectContext() override;
    UpdateSelectContext(UpdateSelectContext const&) = delete;
    UpdateSelectContext& operator=(UpdateSelectContext const&) = delete;

    /// Whether the pick point lies in the child's rectangle; ask the child only then.
    bool inside() const { return _inside; }

private:
    void takeOver(FenOglViewport const& parent);

    UpdateDrawContext _draw; // holds the OpenGL state
    bool _inside = false;
};
