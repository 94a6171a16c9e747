#pragma once

#include "ChartXYZ.h"

/// Content of a three-dimensional chart.
class FENVIS_EXPORT FenChart3D : public FenChartXYZ {
public:
    static QString const typeString;

    explicit FenChart3D(FenModifiedGroup& group);
    FenChart3D(FenChart3D const& other);
    FenChart3D& operator=(FenChart3D const&) = default;
    ~FenChart3D() override;
};
