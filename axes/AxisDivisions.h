#pragma once

#include "axes/AxisLabelEdges.h"
#include "services/math/NumberFormat.h"
#include "services/math/Vector3.h"

#include <QString>

#include <vector>

class FenOglViewport;

namespace Kes::Math {
class Matrix;
}

namespace fen {

/// Places along an edge of the box of an XYZ chart, with what they are called.
struct AxisDivisions {
    std::vector<Kes::Math::Vector3> points; ///< [scene]
    std::vector<Kes::Math::Vector2> windowPoints; ///< [px] one per point
    std::vector<QString> labels; ///< of the first points; there may be fewer
    double factor = 1; ///< what the labels are to be multiplied with

    void add(Kes::Math::Vector3 const& point, ScreenProjection const& project);
};

/// Equal parts of an edge: `p_divisions` + 1 points from its start to its end; none for an edge without
/// length or a negative number.
AxisDivisions discreteDivisions(Kes::Math::Segment const& edge, int p_divisions,
                                ScreenProjection const& project);

/// How the numbers of an axis lie in the scene: scene = (data + offset) x scaling.
struct AxisNumbers {
    Kes::Math::Vector3::Comp axis;
    Kes::Math::Vector3 scaling, offset;
};

/// About `count` round values of the data between the ends of an edge. An edge on which all data is one
/// number v shows v - 1 to v + 1.
AxisDivisions continuousDivisions(Kes::Math::Segment const& edge, AxisNumbers const& numbers, unsigned count,
                                  Kes::Math::NumberFormat const& format, ScreenProjection const& project);

/// How many divisions an axis gets: one for each 100 px of the larger side of the viewport, more as the
/// view is scaled up; at least 2.
unsigned divisionCount(FenOglViewport const& viewport, Kes::Math::Matrix const& modelView);

} // namespace fen
