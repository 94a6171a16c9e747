#pragma once

#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisHoverHandler.h"
#include "scene/VisAnnotation.h"
#include "services/opengl/BoxPlacement.h"

/// Hover and drag of an annotation: by its strip it is moved, by a corner resized.
/// The settings change only when the button is released.
class FenVisAnnotation::HitDetectEventHandler : public FenVisHoverHandler {
public:
    explicit HitDetectEventHandler(FenVisAnnotation& annotation);

    /// True for every hit on the annotation, also where its settings forbid a change.
    bool OnMouseDrag(FenVisHitRecord const& hit, QPoint offset) override;
    bool OnMouseRelease(FenVisHitRecord const& hit) override;

    bool dragging() const { return _drag.active(); }
    /// [px, window] the box as it is dragged.
    FenOglViewport box() const;

private:
    void begin(FenVisAnnotation const& annotation, FenVisHitProperty const& what);
    void store(FenVisAnnotation& annotation) const;
    void end();

    fen::BoxDrag _drag;
    FenOglViewport _start; // [px, window] where the drag began
    bool _moving = false;
    bool _resizing = false;
    FenVisHitResizeQualifier::ResizeArea _area{};
};
