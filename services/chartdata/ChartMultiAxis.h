#pragma once

#include "../properties/Quantity.h"
#include "Chart.h"
#include "ChartVariableList.h"

/// Content of a chart with an axis per variable (parallel coordinates, spider): item i has entry i of each
/// variable's y column.
///
/// Call `modify()` after a change of `unitSystem`, which is no property.
class FENVIS_EXPORT FenChartMultiAxis : public FenChart {
public:
    static QString const typeString;

    explicit FenChartMultiAxis(FenModifiedGroup& group);
    FenChartMultiAxis(FenChartMultiAxis const& other);
    FenChartMultiAxis& operator=(FenChartMultiAxis const&) = default;
    ~FenChartMultiAxis() override;

    FenChartVariableList variables;
    FenUnitSystem unitSystem;
    FenPropertyAdaptor<QString> firstAxis; ///< name of the variable whose axis comes first

protected:
    void onItemRename(FenProperties const& list, QString const& oldName, QString const& newName) override;
};
