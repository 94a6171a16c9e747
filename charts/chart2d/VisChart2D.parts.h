#pragma once

#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.h"

#include <QPoint>
#include <QRectF>

/// One pass over the chart: drawing (no live handle) or picking.
struct FenVisChart2D::Pass {
    DrawContext const& context;
    FenVisOglSelectWeakPtr select;
    QPoint mouse; ///< [px] pointer, relative to the node
    QRectF area; ///< [px] pick region, relative to the data rectangle
};

/// What of one variable is highlighted.
struct FenVisChart2D::Highlight {
    bool on = false;
    qint64 point = -1; ///< index of the data point; -1: the variable as a whole

    bool whole() const { return on && point < 0; }
};

/// A variable in the depth view.
struct FenVisChart2D::Sheet {
    fen::DrawnVariable const& one;
    Kes::Math::Matrix toScene; ///< [sheet px] to [scene]
    Kes::Math::Matrix toEye; ///< model-view matrix
};

namespace fen {

/// Where the line into the scene under a pixel meets a sheet.
/// @param point  [px] relative to the origin of `viewport`
/// @param toEye  model-view matrix of the sheet
/// @param sheet  [sheet px] the place
/// @return false where it does not, or far outside
bool onSheet(QPointF const& point, FenOglViewport const& viewport, Kes::Math::Matrix const& toEye,
             Kes::Math::Matrix const& projection, QPointF& sheet);

} // namespace fen
