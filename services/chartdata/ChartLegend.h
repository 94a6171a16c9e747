#pragma once

#include "../properties/Viewport.h"
#include "Chart.h"

/// Settings of a legend.
class FENVIS_EXPORT FenChartLegend : public FenChart {
public:
    static QString const typeString;

    explicit FenChartLegend(FenModifiedGroup& group);
    FenChartLegend(FenChartLegend const& other);
    FenChartLegend& operator=(FenChartLegend const&) = default;
    ~FenChartLegend() override;

    FenPropertyAdaptor<QString> chart; ///< name of the chart node, a sibling of the legend
    FenPropertyAdaptor<QString> orientation;
    FenViewport viewport; ///< place in the data area of the chart
};
