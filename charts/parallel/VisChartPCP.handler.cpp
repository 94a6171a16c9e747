#include "charts/parallel/VisChartPCP.handler.h"

#include "charts/multiaxis/ItemAxis.h"
#include "charts/parallel/FilterRanges.h"
#include "charts/parallel/ParallelLayout.h"
#include "framework/IVisPropertyEdit.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/logging/Checks.h"
#include "services/logging/DebugLogger.h"
#include "services/math/Vector3.h"
#include "services/properties/Quantity.h"

namespace {

// Logged texts, kept as they are.
constexpr char const* sizesText =
    "numAxes == minLabels.size() && numAxes == maxLabels.size() && filterMinMax.size() == numAxes";
constexpr char const* noIndexText =
    "WARNING: false && \"The index of the highlighted item cannot be found!\"";

template <class T>
T const* as(FenVisHitProperty const& hit)
{
    return dynamic_cast<T const*>(hit.qualifier.get());
}

/// The variable of a slider or axis whose filter is on; null for anything else.
FenChartVariable const* filteredVariable(FenVisHitProperty const& hit)
{
    if (!hit.defined()) return nullptr;
    auto const* const variable = dynamic_cast<FenChartVariable const*>(hit.property);
    return variable && variable->filter.get() ? variable : nullptr;
}

} // namespace

FenVisChartPCP::HitDetectEventHandler::HitDetectEventHandler(FenVisChartPCP& chart)
    : fen::ItemHoverHandler(chart)
{
}

bool FenVisChartPCP::HitDetectEventHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&,
                                                     QString& tooltip)
{
    auto const& chart = *nodeAs<FenVisChartPCP>();
    if (!chart._axes) return false;
    if (auto const* const record = as<FenVisHitDataPointQualifier>(hit)) {
        tooltip = fen::itemText(chart.chart, chart._validVariables, *chart._axes, record->dataPointIdx,
                                chart._numberFormat);
        return true;
    }
    auto const* const variable = dynamic_cast<FenChartVariable const*>(hit.property);
    int const index = variable ? chart._validVariables.findIndexByName(variable->name()) : -1;
    if (index < 0) return false;
    tooltip = chart.getAxisLabel(unsigned(index));
    if (as<FenVisHitRangeMinQualifier>(hit)) tooltip += QStringLiteral(": ") + chart._minLabels[index];
    if (as<FenVisHitRangeMaxQualifier>(hit)) tooltip += QStringLiteral(": ") + chart._maxLabels[index];
    return true;
}

bool FenVisChartPCP::HitDetectEventHandler::OnMouseDrag(FenVisHitRecord const& hit, QPoint offset)
{
    FenVisHitProperty const found = lookUp(hit);
    if (!found.defined()) return false;
    if (!hovered().defined() || !isSame(found, hovered())) setHovered(found);
    if (!filteredVariable(hovered()) || offset.y() == 0) return false;
    if (as<FenVisHitRangeMinQualifier>(hovered()))
        moveSliders(-offset.y(), 0);
    else if (as<FenVisHitRangeMaxQualifier>(hovered()))
        moveSliders(0, -offset.y());
    else
        return false;
    return true;
}

void FenVisChartPCP::HitDetectEventHandler::moveSliders(int dLow, int dHigh)
{
    auto& chart = *nodeAs<FenVisChartPCP>();
    qsizetype const numAxes = qsizetype(chart._validVariables.size());
    bool const fits = numAxes == chart._minLabels.size() && numAxes == chart._maxLabels.size()
        && qsizetype(chart._filterRanges.size()) == numAxes;
    FENVIS_ENSURE(fits, sizesText);
    int const position = getHighlightedIndex();
    if (position < 0 || !chart._layout || (dLow == 0 && dHigh == 0)) return;
    int const i = chart.variableAt(position);
    FenChartRange range;
    chart.GetFilteredMinMax(i, range.min, range.max);
    fen::FilterEnd const end = dLow != 0 ? fen::FilterEnd::Low : fen::FilterEnd::High;
    double const share = double(dLow != 0 ? dLow : dHigh) / chart._layout->plot.height();
    fen::ItemAxis const& axis = (*chart._axes)[std::size_t(i)];
    range = fen::movedRange(axis, range, end, share);
    chart._filterRanges[std::size_t(i)] = range;
    if (end == fen::FilterEnd::Low)
        chart._minLabels[i] = axis.text(range.min, chart._numberFormat);
    else
        chart._maxLabels[i] = axis.text(range.max, chart._numberFormat);
    chart.applyFilters();
}

int FenVisChartPCP::HitDetectEventHandler::getHighlightedIndex() const
{
    auto const& chart = *nodeAs<FenVisChartPCP>();
    int const count = int(chart._validVariables.size());
    for (int k = 0; k < count; ++k) {
        unsigned const i = unsigned(chart.variableAt(k));
        if (chart._validVariables.alive(i) && hovered().isPropertyEqual(&chart._validVariables.variable(i)))
            return k;
    }
    fen::debug_logger::debuglogger().derr << noIndexText << std::endl;
    return -1;
}

bool FenVisChartPCP::HitDetectEventHandler::OnMouseRelease(FenVisHitRecord const& hit)
{
    bool const committed = lookUp(hit).defined() && commit();
    forget();
    return committed;
}

bool FenVisChartPCP::HitDetectEventHandler::commit()
{
    FenChartVariable const* const variable = filteredVariable(hovered());
    bool const low = as<FenVisHitRangeMinQualifier>(hovered());
    if (!variable || (!low && !as<FenVisHitRangeMaxQualifier>(hovered()))) return false;
    auto const& chart = *nodeAs<FenVisChartPCP>();
    int const position = getHighlightedIndex();
    if (position < 0 || !chart._propertyEdit) return false;
    double min = 0, max = 0;
    chart.GetFilteredMinMax(chart.variableAt(position), min, max);
    FenChartRange const stored{low ? min : variable->filterRangeMin.get(),
                               low ? variable->filterRangeMax.get() : max};
    chart._propertyEdit->beginEdit();
    write(*variable, low, low ? min : max);
    // Beside a limit that was never set the new one would mean nothing.
    if (!(stored.max > stored.min)) write(*variable, !low, low ? max : min);
    chart._propertyEdit->endEdit();
    return true;
}

void FenVisChartPCP::HitDetectEventHandler::write(FenChartVariable const& variable, bool low,
                                                  double value) const
{
    auto& chart = *nodeAs<FenVisChartPCP>();
    auto& property = low ? variable.filterRangeMin : variable.filterRangeMax;
    float const number = float(value);
    QString const text = FenQuantityTriple::ToStringWithUnit(FenQuantityTriple(property),
                                                             Kes::Math::Vector3(number, number, number));
    // Hits see variables const because picking changes nothing; the chart's own are its to edit.
    chart._propertyEdit->editProperty(chart.chart, const_cast<FenChartVariable&>(variable), property.name(),
                                      text);
}
