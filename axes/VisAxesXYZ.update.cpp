#include "axes/VisAxesXYZ.h"
#include "charts/chart2d/VisChart2D.h"
#include "charts/chart3d/VisChart3D.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/logging/Checks.h"

using Kes::Math::Vector3;

namespace {

/// The labels of a discrete axis, with numbers for categories that have none; empty for an axis of numbers.
QStringList categoryLabels(FenChartAxis const* axis, FenChartVariableListCache const& variables,
                           Vector3::Comp comp)
{
    auto const* const discrete = dynamic_cast<FenChartAxisDiscrete const*>(axis);
    if (!discrete) return QStringList();
    QStringList labels = discrete->labels.get();
    if (!labels.isEmpty()) return labels;
    constexpr double most = 1000;
    double last = 0;
    for (unsigned i = 0; i < variables.size(); ++i)
        if (!variables.cache(i).empty()) last = std::max(last, variables.cache(i).range(comp).max);
    for (int i = 0; i <= int(std::min(last, most)); ++i) labels << QString::number(i);
    return labels;
}

QString unitOf(FenChartAxis const* axis, FenChartVariable const& variable, Vector3::Comp comp)
{
    auto const* const continuous = dynamic_cast<FenChartAxisContinuous const*>(axis);
    if (!continuous || continuous->date()) return QString();
    QString const unit = variable.unit(comp);
    return unit.isEmpty() ? continuous->shownUnit() : unit;
}

} // namespace

void FenVisAxesXYZ::reset()
{
    _scaling = Kes::Math::Vector1;
    _offset = Kes::Math::Vector0;
    _units.fill(QString());
    _bounds.reset();
    _axes.fill({});
    _discreteLabels.fill(QStringList());
}

void FenVisAxesXYZ::Update(FenVisChart3D const& chart, FenChartAxisContinuous const* _xAxis,
                           FenChartAxisContinuous const* _yAxis, FenChartAxisContinuous const* _zAxis,
                           QString const& xUnit, QString const& yUnit, QString const& zUnit)
{
    reset();
    if (chart.chart.variables.size() > 0) {
        _axes = {fen::view_ptr<FenChartAxis const>(_xAxis), fen::view_ptr<FenChartAxis const>(_yAxis),
                 fen::view_ptr<FenChartAxis const>(_zAxis)};
        FENVIS_ENSURE(_xAxis && _yAxis && _zAxis, "_xAxis && _yAxis && _zAxis");
        _units = {xUnit, yUnit, zUnit};
    }
    _bounds = chart.boundingBox();
    _scaling = chart.scaling();
    _offset = chart.offset();
    _chart = fen::view_ptr<FenProperties const>(&chart.chart);
    _node = fen::view_ptr<FenVisualization const>(&chart);
}

void FenVisAxesXYZ::Update(FenVisChart2D const& chart, FenChartVariableListCache const& variables)
{
    reset();
    if (variables.size() > 0) {
        FenChartVariable const& first = variables.cache(0).variable();
        FenChartAxis const* const x = chart.chart.xAxes.resolve(first.xAxis.get());
        FenChartAxis const* const y = chart.chart.yAxes.resolve(first.yAxis.get());
        _axes = {fen::view_ptr<FenChartAxis const>(x), fen::view_ptr<FenChartAxis const>(y), {}};
        _discreteLabels[0] = categoryLabels(x, variables, Vector3::CompX);
        _discreteLabels[1] = categoryLabels(y, variables, Vector3::CompY);
        _units = {unitOf(x, first, Vector3::CompX), unitOf(y, first, Vector3::CompY), QString()};
        for (unsigned i = variables.size(); i-- > 0;) // the first stands in front
            _discreteLabels[2] << variables.cache(i).variable().shownName();
    }
    _bounds = chart.boundingBox();
    _scaling = chart.scaling();
    _offset = chart.offset();
    _chart = fen::view_ptr<FenProperties const>(&chart.chart);
    _node = fen::view_ptr<FenVisualization const>(&chart);
}
