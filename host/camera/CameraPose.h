#pragma once

#include "services/math/Matrix.h"
#include "services/opengl/FittedView.h"

#include <QString>

#include <optional>

namespace Kes::Math {
class BoundingBox;
}

namespace fen {

/// How a camera looks at a box: the numbers behind a model-view matrix.
///
/// z points up. Azimuth 0 looks along +y (the front), 90 from the right; elevation 90 looks down.
struct CameraPose {
    double azimuth = 45; ///< [deg]
    double elevation = isometric; ///< [deg] -90 to 90
    double zoom = 1; ///< 1: the box fits
    double panX = 0; ///< [half heights of the picture]
    double panY = 0;

    static constexpr double margin = 0.82; // of the picture
    static double const isometric; ///< [deg] elevation from which three edges look equally long
    /// "front", "back", "left", "right", "top", "bottom", "iso"; empty for any other word
    static std::optional<CameraPose> named(QString const& direction);

    /// Within the limits: never past a pole, and never so far away that the box is lost.
    CameraPose limited() const;
    /// From [scene] to eye coordinates.
    Kes::Math::Matrix rotation() const;
    /// The matrix that a viewpoint keeps: turned, zoomed about the box's centre, moved, and drawn away
    /// from the eye, so that no pose gives the identity, which stands for none.
    /// @param aspect  width of the picture over its height
    Kes::Math::Matrix matrix(Kes::Math::BoundingBox const& box, double aspect) const;
    /// The pose that a matrix stands for; the isometric one for the identity. A roll is left out.
    static CameraPose of(Kes::Math::Matrix const& modelView, Kes::Math::BoundingBox const& box,
                         double aspect);

    /// What the projections make of it. Labels stand around a box, so it is fitted with a margin.
    FittedView view(double angle) const { return {margin * zoom, panX, panY, angle}; }
};

} // namespace fen
