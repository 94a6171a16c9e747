#pragma once

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
