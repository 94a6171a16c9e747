#pragma once

#include "services/math/BoundingBox.h"
#include "services/math/Matrix.h"

#include <QPoint>
#include <QSize>

class FenOglViewport;

namespace fen {

/// The part of the scene that lies under a pick region. GL-free: what is far away from the pointer is
/// sorted out with it, so that only a few things are drawn in selection mode.
class PickVolume {
public:
    /// @param point     [px] relative to the origin of `viewport`
    /// @param size      [px] of the region around it; each extent is raised to at least 1
    /// @param toClip    projection x model-view
    PickVolume(QPoint const& point, QSize const& size, FenOglViewport const& viewport,
               Kes::Math::Matrix const& toClip);

    /// False when a box [scene] lies outside; true for all others and for a few beside the region.
    bool mayMeet(Kes::Math::BoundingBox const& box) const;
    /// Depth of a point, 0 near to 1 far; negative when it lies outside.
    float depthOf(Kes::Math::Vector3 const& point) const;
    /// The same for a point that may lie beside the region; behind the eye it is 0.
    float depthAnywhere(Kes::Math::Vector3 const& point) const;

private:
    struct Clip {
        float x, y, z, w;
    };
    Clip clip(Kes::Math::Vector3 const& point) const;

    Kes::Math::Matrix _toRegion; // clip space of the region
};

/// The straight line into the scene under a pixel.
struct PickRay {
    Kes::Math::Vector3 from, to; ///< [scene] on the near and on the far plane

    /// @param point  [px] relative to the origin of `viewport`
    PickRay(QPoint const& point, FenOglViewport const& viewport, Kes::Math::Matrix const& modelView,
            Kes::Math::Matrix const& projection);

    /// Where the ray meets a triangle, as a share of its length; negative when it does not.
    double meets(Kes::Math::Vector3 const& a, Kes::Math::Vector3 const& b, Kes::Math::Vector3 const& c) const;
    Kes::Math::Vector3 at(double share) const;
};

} // namespace fen
