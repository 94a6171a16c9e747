#pragma once

#include "Chart.h"
#include "ChartVariableList.h"

/// Content of a pie chart: each variable is a segment of the ring that its key "ring" names, as large as
/// the first entry of its y column.
class FENVIS_EXPORT FenChartPie : public FenChart {
public:
    static QString const typeString;

    explicit FenChartPie(FenModifiedGroup& group);
    FenChartPie(FenChartPie const& other);
    FenChartPie& operator=(FenChartPie const&) = default;
    ~FenChartPie() override;

    FenChartVariableList variables;
    FenPropertyAdaptor<bool> showPercent;
};
