#include "host/input/NavigatedAxis.h"

#include "host/edit/UndoPropertyEdit.h"
#include "services/chartdata/Chart.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/math/NumberFormat.h"

#include <algorithm>
#include <cmath>

namespace {

double const largest = 1e300;
double const smallestShare = 1e-12; // of the values' size: below it ticks cannot be told apart

bool usable(double min, double max)
{
    double const size = std::max(std::abs(min), std::abs(max));
    return std::isfinite(min) && std::isfinite(max) && size < largest && max - min > smallestShare * size
        && max - min > 1 / largest;
}

} // namespace

fen::NavigatedAxis::NavigatedAxis(FenChartAxis& axis, FenChartAxisScale const* scale, bool horizontal)
    : _axis(&axis)
    , _horizontal(horizontal)
    , _logarithmic(scale && scale->logarithmic())
    , _min(axis.min.get())
    , _max(axis.max.get())
{
    bool const chosen = !axis.autoRange.get() && _min < _max && (!_logarithmic || _min > 0);
    if (scale && !chosen) {
        _min = scale->min();
        _max = scale->max();
    }
    _logarithmic = _logarithmic && _min > 0 && _max > 0;
    if (!_logarithmic) return;
    _min = std::log10(_min);
    _max = std::log10(_max);
}

bool fen::NavigatedAxis::show(FenUndoPropertyEdit& edit, FenChart& chart, double min, double max) const
{
    FenChartAxis* const axis = _axis.get();
    if (!axis) return false;
    if (_logarithmic) {
        min = std::pow(10.0, min);
        max = std::pow(10.0, max);
    }
    if (!usable(min, max)) return false;
    auto const write = [&](FenPropertyAdaptorBase const& property, QString const& value) {
        edit.editProperty(chart, *axis, property.name(), value);
    };
    edit.beginEdit();
    write(axis->autoRange, QStringLiteral("false"));
    write(axis->min, QString::fromStdString(Kes::Math::shortestText(min)));
    write(axis->max, QString::fromStdString(Kes::Math::shortestText(max)));
    edit.endEdit();
    return true;
}
