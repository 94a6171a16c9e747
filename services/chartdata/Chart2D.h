#pragma once

#include "ChartXYZ.h"

/// Content of a two-dimensional chart.
class FENVIS_EXPORT FenChart2D : public FenChartXYZ {
public:
    static QString const typeString;

    explicit FenChart2D(FenModifiedGroup& group);
    FenChart2D(FenChart2D const& other);
    FenChart2D& operator=(FenChart2D const&) = default;
    ~FenChart2D() override;
};
