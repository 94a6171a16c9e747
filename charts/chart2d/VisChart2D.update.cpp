#include "charts/chart2d/VisChart2D.h"
#include "charts/ChartMetrics.h"
#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.handler.h"
#include "framework/DrawContext.h"
#include "framework/IVisPropertyEdit.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartPerVariableScaling.h"
#include "services/chartdata/ChartUpdateVariableUnits.h"
#include "services/chartdata/ChartVariableListCache.h"
#include "services/logging/DebugLogger.h"
#include "services/opengl/OglText.h"

#include <algorithm>

using fen::ChartMetrics;
using Kes::Math::BoundingBox;
using Kes::Math::Vector2;
using Kes::Math::Vector3;

namespace {

QString rangeText(double value) { return QString::number(value, 'g', 6); }

/// Tells an axis with an automatic range what was found; quiet when it knows. Writing may make the host
/// delete anything, chart and axis too.
/// @return false when the chart is gone
bool writeRange(IFenVisPropertyEdit& edit, fen::view_ptr<FenChart2D> const& chart, FenChartAxis* written,
                FenChartAxisScale const* scale)
{
    if (!written || !scale || !written->autoRange.get()) return true;
    fen::view_ptr<FenChartAxis> const axis(written);
    QString const min = rangeText(scale->min()), max = rangeText(scale->max());
    if (axis->min.getString() == min && axis->max.getString() == max) return true;
    edit.beginEdit();
    if (chart && axis) edit.editProperty(*chart, *axis, axis->min.name(), min);
    if (chart && axis) edit.editProperty(*chart, *axis, axis->max.name(), max);
    edit.endEdit();
    return bool(chart);
}

float inverse(float extent) { return extent != 0 ? 1 / extent : 1.0f; }

} // namespace

void FenVisChart2D::clearCaches()
{
    _dataViewport.reset();
    _bounds.reset();
    _scaling = Kes::Math::Vector1;
    _offset = Kes::Math::Vector0;
    hitProperties().clear();
    _variables.clear();
    _sheets.clear();
    _sheetDepths.clear();
    // Whatever was highlighted may have gone, or be something else by now.
    _handler->forget();
}

void FenVisChart2D::update(DrawContext const& context)
{
    clearCaches();
    FenChartUpdateVariableUnits convert(chart.unitSystem, chart.xAxes, chart.yAxes, chart.zAxes,
                                        chart.variables);
    FenChartVariableListCache const variables(convert(), chart.xAxes.names());
    _xScale = FenChartAxisPairScale(chart.xAxes, variables);
    _yScale = FenChartAxisPairScale(chart.yAxes, variables);
    std::vector<void const*> xAxes;
    for (unsigned i = 0; i < variables.size(); ++i)
        xAxes.push_back(_xScale.find(variables.cache(i).variable().xAxis.get()));
    _variables = fen::drawnVariables(FenChartPerVariableScaling(_xScale, _yScale, variables), xAxes);
    if (variables.size() == 0) return;
    if (chart.view3D.get() && !updateView3d(context, variables)) return;
    updateScales(ChartMetrics::minimumDivisions, context);
}

/// Box, scaling and offset of the 3D view.
/// @return false when the first variable has no x axis: then there is no such view
bool FenVisChart2D::updateView3d(DrawContext const& context, FenChartVariableListCache const& variables)
{
    _bounds = variables.bounds();
    _xScale.update(ChartMetrics::minimumDivisions, context.numberFormat);
    _yScale.update(ChartMetrics::minimumDivisions, context.numberFormat);
    if (!_bounds.defined()) return true;
    Vector3 min = _bounds.min(), max = _bounds.max();
    auto const centers = [](FenChartAxisScale const* scale) {
        return scale && scale->shown() && scale->centered();
    };
    bool const centered = centers(_xScale.first()) || centers(_xScale.second());
    if (!centered) FenChartAxisScale::ExpandRange(min.x(), max.x(), 0.02f);
    FenChartAxisScale::ExpandRange(min.y(), max.y(), 0.05f);
    Vector3 const extent = max - min;
    float const largest = std::max({extent.x(), extent.y(), extent.z()});
    float const d = largest > 0 ? largest : 1.0f;
    FenChartAxisScale const* const xScale = _xScale.find(variables.cache(0).variable().xAxis.get());
    if (!xScale) {
        _bounds.reset();
        return false;
    }
    if (extent.x() == 0 || xScale->discrete()) max.x() = min.x() + d;
    if (extent.y() == 0) max.y() = min.y() + d;
    max.z() = min.z() + d;
    Vector3 const size = max - min;
    _scaling = Vector3(inverse(size.x()), inverse(size.y()), inverse(size.z()));
    _bounds = BoundingBox(min, max).scale(_scaling);
    fen::debug_logger::debuglogger().dlog << "bounds: " << _bounds << '\n';
    _axes3d.Update(*this, variables);
    makeSheets(context, _bounds);
    Vector3 const margin = (_bounds.max() - _bounds.min()) * 0.05f;
    _bounds = BoundingBox(_bounds.min() - margin, _bounds.max() + margin);
    return true;
}

/// @return false when the chart has been deleted meanwhile
bool FenVisChart2D::updateScales(unsigned divisions, DrawContext const& context)
{
    _xScale.update(divisions, context.numberFormat);
    _yScale.update(divisions, context.numberFormat);
    boost::shared_ptr<IFenVisPropertyEdit> const edit = context.propertyEdit;
    fen::view_ptr<FenChart2D> const content(&chart);
    return writeRange(*edit, content, chart.xAxes.first(), _xScale.first())
        && writeRange(*edit, content, chart.xAxes.second(), _xScale.second())
        && writeRange(*edit, content, chart.yAxes.first(), _yScale.first())
        && writeRange(*edit, content, chart.yAxes.second(), _yScale.second());
}

void FenVisChart2D::resize(DrawContext const& context)
{
    for (fen::DrawnVariable& one : _variables) one.picture.reset();
    FenOglViewport room;
    if (!calcDataViewport(context, chart, room)) {
        _dataViewport.reset();
        return;
    }
    int const divisions = std::min(room.width(), room.height()) / ChartMetrics::pixelsPerDivision;
    if (!updateScales(std::max(unsigned(divisions), ChartMetrics::minimumDivisions), context)) return;
    context.text.clear();
    _dataViewport = _axes.GetDataViewport(context.text, chart.xAxes, chart.yAxes, _xScale, _yScale, room);
    if (!_dataViewport.valid() || chart.view3D.get()) return;
    fen::makePictures(_variables, _dataViewport.size(), context.text);
}
