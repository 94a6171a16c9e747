#include "host/link/LinkedSelection.h"

#include "host/scene/Scene.h"

#include "charts/VisChart.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartVariableList.h"

#include <boost/make_shared.hpp>

#include <utility>

FenLinkedSelection::FenLinkedSelection(FenVisScene& scene)
    : _scene(scene)
{
}

void FenLinkedSelection::setEnabled(bool enabled)
{
    if (!enabled) hover(FenVisHitProperty(), nullptr);
    _enabled = enabled;
}

bool FenLinkedSelection::hover(FenVisHitProperty const& hit, FenVisualization const* source)
{
    if (!_enabled) return false;
    std::optional<FenTableRow> const row = _scene.tableRows().row(hit);
    if (row == _row && source == _source.get()) return false;
    _row = row;
    _source = fen::view_ptr<FenVisualization const>(source);
    bool changed = false;
    for (fen::view_ptr<FenVisChart> const& chart : std::exchange(_shown, {})) {
        if (!chart || chart.get() == source) continue;
        chart->highlight(FenVisHitProperty());
        changed = true;
    }
    FenVisList& nodes = _scene.root();
    for (unsigned i = 0; row && i < nodes.size(); ++i) {
        auto* const chart = dynamic_cast<FenVisChart*>(nodes.at(i));
        if (chart && chart != source && chart->enabled.get()) changed = show(*chart) || changed;
    }
    return changed;
}

/// Highlights the first thing in a chart that is the row.
bool FenLinkedSelection::show(FenVisChart& chart)
{
    auto const highlight = [&](FenProperties const* owner) {
        std::optional<std::size_t> const point =
            owner ? _scene.tableRows().point(*owner, *_row) : std::optional<std::size_t>();
        if (!point) return false;
        chart.highlight(
            FenVisHitProperty(owner, boost::make_shared<FenVisHitDataPointQualifier>(quint32(*point))));
        _shown.emplace_back(&chart);
        return true;
    };
    if (highlight(chart.content())) return true;
    FenChartVariableList const* const variables = chart.variables();
    for (unsigned i = 0; variables && i < variables->size(); ++i)
        if (highlight(&(*variables)[i])) return true;
    return false;
}
