#pragma once

#include "../properties/Quantity.h"
#include "Chart.h"
#include "ChartAxisPair.h"
#include "ChartVariableList.h"

/// Content of a chart with variables over axes: what 2D and 3D charts share.
///
/// Call `modify()` after a change of `unitSystem`, which is no property.
class FENVIS_EXPORT FenChartXYZ : public FenChart {
public:
    ~FenChartXYZ() override;
    FenChartXYZ& operator=(FenChartXYZ const&) = default;

    FenChartVariableList variables;
    FenChartAxisPair xAxes;
    FenChartAxisPair yAxes;
    FenChartAxisPair zAxes;
    FenUnitSystem unitSystem;
    FenPropertyAdaptor<bool> view3D; ///< a 2D chart is shown in depth
    FenPropertyAdaptor<bool> normalize; ///< a 3D chart is scaled to a cube

protected:
    FenChartXYZ(FenModifiedGroup& group, QString const& type);
    FenChartXYZ(FenChartXYZ const& other);
    /// The variables of an axis follow it.
    void onItemRename(FenProperties const& list, QString const& oldName, QString const& newName) override;

private:
    void insertChildren();
};
