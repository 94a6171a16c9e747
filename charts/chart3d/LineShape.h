#pragma once

#include "services/math/Vector3.h"

#include <vector>

namespace fen {

/// The fixed coordinate of a line that lies in a plane.
struct LinePlane {
    int index = 0; ///< 1: x is fixed, 2: y is, 0: the line runs freely
    float value = 0; ///< [data]

    /// The plane of a chart's axis flags. A line has one constant: that of its data, or the middle of what
    /// its data has there.
    LinePlane(unsigned mode, std::vector<Kes::Math::Vector3> const& points);

    /// A sample (a, b) of the line in space: (c, a, b) for a fixed x, else (a, c, b).
    Kes::Math::Vector3 lift(Kes::Math::Vector2 const& sample) const;
    /// The sample that a point stands for.
    Kes::Math::Vector2 flat(Kes::Math::Vector3 const& point) const;
};

/// The points of a line as it is drawn [data].
/// @param spline  a smooth curve through the points
std::vector<Kes::Math::Vector3> linePoints(std::vector<Kes::Math::Vector3> const& points,
                                           LinePlane const& plane, bool spline);

/// The area between a line and a base line, as one triangle strip of pairs: a point of the line, and the
/// point below it at height `base`. Where the line crosses the base the pair falls together.
std::vector<Kes::Math::Vector3> areaStrip(std::vector<Kes::Math::Vector3> const& line, float base);

} // namespace fen
