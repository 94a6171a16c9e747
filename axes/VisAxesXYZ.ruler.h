#pragma once

#include "axes/AxisDivisions.h"
#include "axes/VisAxesXYZ.h"

/// What is drawn along one axis in one frame.
struct FenVisAxesXYZ::Ruler {
    Vector3::Comp k = Vector3::CompX;
    FenChartAxis const* style = nullptr; ///< colours
    FenChartAxis const* axis = nullptr; ///< title; null for a lone axis: it has none
    QString unit; ///< behind the title
    bool discrete = false;
    fen::AxisDivisions divisions; ///< the far end of the edge comes last
    float direction = 1; ///< side of the edge with the labels
    Kes::Math::Segment place; ///< [px] the edge with the labels

    /// [px] the middle of division i: of its interval when the axis is discrete.
    Vector2 labelPoint(size_t i) const
    {
        std::vector<Vector2> const& points = divisions.windowPoints;
        return discrete && i + 1 < points.size() ? (points[i] + points[i + 1]) * 0.5f : points[i];
    }
};
