#pragma once

#include "services/chartdata/ChartAxisMapping.h"
#include "services/chartdata/ChartColumn.h"
#include "services/chartdata/ChartRange.h"
#include "services/chartdata/ChartValidVariableList.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/math/NumberFormat.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

class FenChartMultiAxis;

namespace fen {

/// Place of a value on an axis, with its text.
struct ItemTick {
    double fraction; ///< [0..1]
    QString label;
};

/// The axis of one variable in a chart of items: its values and where they lie between the axis' ends.
struct ItemAxis {
    ItemAxis() = default;
    ItemAxis(FenChartMultiAxis const& chart, FenChartVariableCache const& cache);

    /// [data] of item i; NaN where it is missing, infinite, or has no place on a logarithmic axis.
    double value(std::size_t i) const;
    /// Fraction of the axis, from its lower end, at which a value lies; a half when all values are the same.
    double fraction(double value) const;
    /// The value at a fraction.
    double valueAt(double fraction) const;
    /// A value as labels and tooltips show it: category, date, or number divided by the display factor.
    QString text(double value, Kes::Math::NumberFormat const& format) const;
    /// Round values within the range, ascending by value.
    std::vector<ItemTick> ticks(unsigned count, Kes::Math::NumberFormat const& format) const;
    /// True for an axis of plain numbers.
    bool plain() const { return categories.isEmpty() && !date && !mapping.logarithmic; }

    FenChartColumn::Ptr column;
    FenChartRange range; ///< [data] of all values
    FenChartAxisMapping mapping;
    double displayFactor = 1;
    bool inverted = false;
    bool date = false;
    QStringList categories; ///< texts of the values 0, 1, 2 ...
};

/// Reads the variables of a chart that can be drawn: the visible ones with at least one value, in the order
/// of their axes' list.
/// @param cache, valid  filled with these
/// @return one axis per valid variable
std::vector<ItemAxis> readItems(FenChartMultiAxis& chart, FenChartVariableListCache& cache,
                                FenChartValidVariableList& valid);

/// The variable's label, with the display factor where it is not 1.
QString itemAxisLabel(FenChartVariable const& variable);

/// "name: value" of all axes, one per line, below the item's label.
QString itemText(FenChartMultiAxis const& chart, FenChartValidVariableList const& valid,
                 std::vector<ItemAxis> const& axes, std::size_t item, Kes::Math::NumberFormat const& format);

/// Which items lie within all filters.
/// @param filtered  [one per axis, or none] what the filters leave; an axis whose whole range is left
///     filters nothing
/// @return one flag per item; items beyond a short column are false
std::vector<bool> validItems(std::vector<ItemAxis> const& axes, std::vector<FenChartRange> const& filtered,
                             std::size_t items);

/// Colour of an item: those of `colors` in turn, of a scheme for categories when there are none.
QColor itemColor(QList<QColor> const& colors, std::size_t item);
/// Label of an item: one of the chart's, else its number counted from 1.
QString itemLabel(QStringList const& labels, std::size_t item);

} // namespace fen
