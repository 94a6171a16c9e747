#pragma once

#include "Chart.h"
#include "ChartVariableList.h"

/// Content of a correlation chart: variable i's y column is row i of the matrix.
class FENVIS_EXPORT FenChartCorrelation : public FenChart {
public:
    static QString const typeString;

    explicit FenChartCorrelation(FenModifiedGroup& group);
    FenChartCorrelation(FenChartCorrelation const& other);
    FenChartCorrelation& operator=(FenChartCorrelation const&) = default;
    ~FenChartCorrelation() override;

    FenChartVariableList variables;
    FenPropertyAdaptor<std::vector<double>> bins; ///< edges, ascending
    FenPropertyAdaptor<QList<QColor>> colors; ///< from the lowest bin to the highest
};
