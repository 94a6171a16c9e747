#include "charts/multiaxis/ItemAxis.h"

#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/chartdata/ChartMultiAxis.h"
#include "services/chartdata/ChartUpdateVariableUnits.h"
#include "services/chartdata/DateTicks.h"
#include "services/math/NiceIntervals.h"
#include "services/properties/ColorSchemes.h"
#include "services/properties/Labels.h"
#include "services/properties/ModifiedGroup.h"

#include <algorithm>
#include <cmath>

using Kes::Math::Vector3;

namespace fen {

namespace {

/// A tooltip with more lines would not fit on a screen.
constexpr unsigned mostLines = 40;

/// The variables in the order that the chart asks for, those it does not name behind the others.
void sortByName(std::vector<FenChartVariable const*>& variables, QStringList const& order)
{
    if (order.isEmpty()) return;
    auto const place = [&](FenChartVariable const* variable) {
        qsizetype const index = order.indexOf(variable->name());
        return index < 0 ? order.size() : index;
    };
    std::stable_sort(variables.begin(), variables.end(),
                     [&](auto const* a, auto const* b) { return place(a) < place(b); });
}

std::vector<ItemTick> categoryTicks(ItemAxis const& axis, unsigned count)
{
    std::vector<ItemTick> ticks;
    double const first = std::max(std::ceil(axis.range.min), 0.0);
    double const last = std::min(std::floor(axis.range.max), double(axis.categories.size()) - 1);
    double const step = std::max(1.0, std::ceil((last - first + 1) / std::max(count, 1u)));
    for (double value = first; value <= last; value += step)
        ticks.push_back({axis.fraction(value), axis.categories[qsizetype(value)]});
    return ticks;
}

std::vector<ItemTick> scaleTicks(ItemAxis const& axis, unsigned count, Kes::Math::NumberFormat const& format)
{
    FenModifiedGroup group;
    FenChartAxisContinuous continuous(group);
    continuous.autoRange.set(false);
    continuous.min.set(axis.range.min);
    continuous.max.set(axis.range.max);
    continuous.logarithmic.set(axis.mapping.logarithmic);
    if (axis.date) continuous.format.set(QStringLiteral("date"));
    FenChartAxisScale scale(continuous, {axis.range, axis.range, false}, 0);
    scale.update(count, format);
    std::vector<ItemTick> ticks;
    for (unsigned i = 0; i < scale.size(); ++i) {
        double const at = scale.percentage(i);
        ticks.push_back({axis.inverted ? 1 - at : at, scale.label(i)});
    }
    return ticks;
}

} // namespace

ItemAxis::ItemAxis(FenChartMultiAxis const& chart, FenChartVariableCache const& cache)
    : column(cache.yColumn())
{
    FenChartVariable const& variable = cache.variable();
    QString const name = variable.name();
    bool const logarithmic = chart.logarithmicAxes.get().contains(name);
    range = logarithmic ? cache.positiveRange(Vector3::CompY) : cache.range(Vector3::CompY);
    if (range.defined() && range.min < range.max)
        mapping = FenChartAxisMapping(range.min, range.max, logarithmic);
    mapping.logarithmic = logarithmic;
    double const factor = variable.displayFactor.get();
    if (std::isfinite(factor) && factor != 0) displayFactor = factor;
    inverted = chart.invertedAxes.get().contains(name);
    date = chart.dateAxes.get().contains(name);
    if (chart.categoryAxes.get().contains(name)) categories = variable.labels.get();
}

double ItemAxis::value(std::size_t i) const
{
    if (!column || i >= column->size()) return std::nan("");
    double const value = column->value(i);
    return std::isfinite(value) && (!mapping.logarithmic || value > 0) ? value : std::nan("");
}

double ItemAxis::fraction(double value) const
{
    if (std::isnan(value)) return value;
    if (!(range.min < range.max)) return 0.5;
    double const at = (mapping.chart(value) + 1) / 2;
    return inverted ? 1 - at : at;
}

double ItemAxis::valueAt(double fraction) const
{
    if (!(range.min < range.max)) return range.min;
    return mapping.data(2 * (inverted ? 1 - fraction : fraction) - 1);
}

QString ItemAxis::text(double value, Kes::Math::NumberFormat const& format) const
{
    if (std::isnan(value)) return QStringLiteral("-");
    double const category = std::round(value);
    if (category >= 0 && category < double(categories.size())) return categories[qsizetype(category)];
    QString const day = date ? dateText(value) : QString();
    return day.isEmpty() ? QString::fromStdString(format.format(value / displayFactor)) : day;
}

std::vector<ItemTick> ItemAxis::ticks(unsigned count, Kes::Math::NumberFormat const& format) const
{
    if (!categories.isEmpty()) return categoryTicks(*this, count);
    if (!plain() && range.min < range.max) return scaleTicks(*this, count, format);
    std::vector<ItemTick> ticks;
    Kes::Math::NiceIntervals const nice(range.min, range.max, count, true, false, format);
    for (unsigned i = 0; i < nice.size(); ++i)
        ticks.push_back({fraction(nice.value(i)), QString::fromStdString(nice.label(i))});
    return ticks;
}

std::vector<ItemAxis> readItems(FenChartMultiAxis& chart, FenChartVariableListCache& cache,
                                FenChartValidVariableList& valid)
{
    auto variables = FenChartUpdateVariableUnits(chart.unitSystem, chart.variables)();
    sortByName(variables, chart.axisOrder.get());
    cache = FenChartVariableListCache(variables, QStringList());
    valid.clear();
    std::vector<ItemAxis> axes;
    for (unsigned i = 0; i < cache.size(); ++i) {
        ItemAxis axis(chart, cache.cache(i));
        if (!axis.range.defined()) continue;
        valid.push_back(cache.cache(i));
        axes.push_back(std::move(axis));
    }
    return axes;
}

QString itemAxisLabel(FenChartVariable const& variable)
{
    QString const label = variable.shownName();
    double const factor = variable.displayFactor.get();
    if (factor == 1.0) return label;
    return label + QStringLiteral("(x%1)").arg(tidyExponent(factor), 0, QLatin1Char(' '));
}

std::vector<bool> validItems(std::vector<ItemAxis> const& axes, std::vector<FenChartRange> const& filtered,
                             std::size_t items)
{
    std::vector<bool> valid(items, true);
    for (std::size_t k = 0; k < axes.size(); ++k) {
        ItemAxis const& axis = axes[k];
        std::size_t const count = axis.column ? std::min(axis.column->size(), items) : 0;
        std::fill(valid.begin() + std::ptrdiff_t(count), valid.end(), false);
        if (k >= filtered.size() || filtered[k] == axis.range) continue;
        FenChartRange const& left = filtered[k];
        for (std::size_t i = 0; i < count; ++i) {
            double const value = axis.value(i);
            if (!(value >= left.min && value <= left.max)) valid[i] = false;
        }
    }
    return valid;
}

QColor itemColor(QList<QColor> const& colors, std::size_t item)
{
    static QList<QColor> const scheme = colorScheme(QLatin1String(defaultCategoryScheme));
    QList<QColor> const& all = colors.isEmpty() ? scheme : colors;
    return all[qsizetype(item % std::size_t(all.size()))];
}

QString itemLabel(QStringList const& labels, std::size_t item)
{
    QString const known = labels.isEmpty() ? QString() : labels[qsizetype(item % std::size_t(labels.size()))];
    return known.isEmpty() ? QString::number(item + 1) : known;
}

QString itemText(FenChartMultiAxis const& chart, FenChartValidVariableList const& valid,
                 std::vector<ItemAxis> const& axes, std::size_t item, Kes::Math::NumberFormat const& format)
{
    QStringList lines = {itemLabel(chart.itemLabels.get(), item)};
    unsigned const shown = std::min(unsigned(axes.size()), mostLines);
    for (unsigned i = 0; i < shown; ++i)
        lines +=
            valid.variable(i).shownName() + QStringLiteral(": ") + axes[i].text(axes[i].value(item), format);
    if (shown < axes.size()) lines += QStringLiteral("and %1 more").arg(axes.size() - shown);
    return lines.join(QLatin1Char('\n'));
}

} // namespace fen
