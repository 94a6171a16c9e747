#pragma once

#include "../properties/Quantity.h"
#include "Chart.h"
#include "ChartVariableList.h"

#include <QColor>
#include <QList>
#include <QStringList>

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
    /// Of items 0, 1, 2 ..., from the beginning again when there are more items; empty: a colour scheme.
    FenPropertyAdaptor<QList<QColor>> itemColors;
    FenPropertyAdaptor<QStringList> itemLabels; ///< of items 0, 1, 2 ...; empty: "1", "2" ...
    /// FenChart::fillSolid: the polygons of a spider are filled.
    FenPropertyAdaptor<QString> fillMode;
    FenPropertyAdaptor<QStringList> axisOrder; ///< names in the order of their axes; others follow
    FenPropertyAdaptor<QStringList> invertedAxes; ///< names of variables whose largest value is at the bottom
    FenPropertyAdaptor<QStringList> logarithmicAxes; ///< values that are not above 0 are undefined on them
    FenPropertyAdaptor<QStringList> dateAxes; ///< values are seconds since 1970-01-01 UTC
    /// Values are 0, 1, 2 ... and stand for the texts in the variable's "labels".
    FenPropertyAdaptor<QStringList> categoryAxes;

protected:
    void onItemRename(FenProperties const& list, QString const& oldName, QString const& newName) override;
};
