#include "axes/VisAxesXY.h"
#include "axes/AxisMetrics.h"
#include "axes/ElidedText.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPair.h"
#include "services/chartdata/ChartAxisPairScale.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/opengl/OglText.h"
#include "services/properties/Labels.h"

#include <algorithm>
#include <cmath>

using fen::AxisMetrics;

namespace {

FenChartAxisScale const* scaleOf(FenChartAxis const* axis, FenChartAxisPairScale const& scales)
{
    return axis ? scales.find(axis->name()) : nullptr;
}

} // namespace

bool FenVisAxesXY::Placed::visible() const { return axis.color.get().alpha() > 0; }

FenVisAxesXY::PlacedAxes FenVisAxesXY::placeAxes(FenChartAxisPair const& x, FenChartAxisPair const& y,
                                                 FenChartAxisPairScale const& xScale,
                                                 FenChartAxisPairScale const& yScale)
{
    PlacedAxes axes;
    auto const place = [&](Side side, FenChartAxis const* axis, FenChartAxisPairScale const& scales) {
        FenChartAxisScale const* const scale = scaleOf(axis, scales);
        if (scale && scale->shown()) axes.push_back({side, *axis, *scale});
    };
    place(Bottom, x.first(), xScale);
    place(Top, x.second(), xScale);
    place(Left, y.first(), yScale);
    place(Right, y.second(), yScale);
    return axes;
}

FenOglViewport FenVisAxesXY::GetDataViewport(FenOglText& text, FenChartAxisPair const& x,
                                             FenChartAxisPair const& y, FenChartAxisPairScale const& xScale,
                                             FenChartAxisPairScale const& yScale,
                                             FenOglViewport const& viewport) const
{
    text.clear();
    text.setPointSize(AxisMetrics::pointSize);
    int const h = text.height();
    auto const margin = [&](FenChartAxis const* axis, FenChartAxisPairScale const& scales, bool vertical) {
        return getAxisMargin(scaleOf(axis, scales), axis, text, h, vertical);
    };
    int const bottom = margin(x.first(), xScale, false), top = margin(x.second(), xScale, false);
    int const left = margin(y.first(), yScale, true), right = margin(y.second(), yScale, true);
    text.clear();
    FenOglViewport const data(viewport.x() + left, viewport.y() + bottom, viewport.width() - left - right,
                              viewport.height() - bottom - top);
    return data.valid() ? data : FenOglViewport();
}

int FenVisAxesXY::axisTitleHeight(FenChartAxis const& axis, int lineHeight)
{
    int const room = lineHeight != 0 ? 3 * lineHeight + 1 : 0;
    // A transparent title keeps its room, so that charts side by side stay aligned.
    if (axis.titleColor.get().alpha() == 0) return room;
    bool empty = axis.title.get().isEmpty();
    if (auto const* continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis))
        empty = empty && continuous->shownUnit().isEmpty();
    return empty ? 0 : room;
}

int FenVisAxesXY::divLabelMaxWidth(FenChartAxisScale const& scale, FenOglText const& text)
{
    // Of very many labels only some are ever shown; these few hundred stand for all.
    unsigned const step = std::max(1u, scale.size() / 256);
    int widest = 0;
    for (unsigned i = 0; i < scale.size() && widest < AxisMetrics::labelMaximum; i += step)
        widest = std::max(widest, text.size(scale.label(i)).width());
    return std::min(widest, AxisMetrics::labelMaximum);
}

int FenVisAxesXY::getAxisMargin(FenChartAxisScale const* scale, FenChartAxis const* axis,
                                FenOglText const& text, int lineHeight, bool vertical)
{
    int const h = std::max(lineHeight, 0);
    if (!scale || !scale->shown()) return h;
    int margin = (vertical ? divLabelMaxWidth(*scale, text) : h) + (h + 1) / 2;
    if (axis) margin += axisTitleHeight(*axis, h);
    return margin < h ? margin + h : margin;
}

QString FenVisAxesXY::getAxisTitle(FenChartAxis const& axis)
{
    QString title = axis.title.get();
    auto const* const continuous = dynamic_cast<FenChartAxisContinuous const*>(&axis);
    if (!continuous || axis.titleColor.get().alpha() == 0) return title;
    double const factor = continuous->shownFactor();
    QString factorText;
    if (continuous->logarithmic.get())
        factorText = fen::toLogLabel(QStringLiteral("10"), factor);
    else if (factor != 1.0)
        factorText = fen::toFactorLabel(factor);
    QString const unit = continuous->shownUnit();
    if (!factorText.isEmpty()) title += QLatin1String("  (") + factorText + QLatin1Char(')');
    if (!unit.isEmpty()) title += QLatin1String("  [") + unit + QLatin1Char(']');
    return title;
}

std::vector<int> FenVisAxesXY::calcGridPoints(FenChartAxisScale const& scale, int origin, int length)
{
    std::vector<int> points;
    points.reserve(scale.size());
    for (unsigned i = 0; i < scale.size(); ++i) {
        double const fraction = scale.percentage(i);
        points.push_back(qRound((fraction > 0 ? std::min(fraction, 1.0) : 0.0) * length + origin));
    }
    return points;
}

/// Ticks along one side of the data rectangle, thinned so that their labels have room.
std::vector<fen::Tick> FenVisAxesXY::placeTicks(Placed const& axis, FenOglViewport const& data,
                                                FenOglText const& text)
{
    std::vector<int> const points = axis.vertical() ? calcGridPoints(axis.scale, data.y(), data.height())
                                                    : calcGridPoints(axis.scale, data.x(), data.width());
    fen::LabelRow row;
    row.label = [&](unsigned i) { return fen::elided(text, axis.scale.label(i), AxisMetrics::labelMaximum); };
    if (axis.vertical()) {
        row.least = text.height();
    } else {
        row.extent = [&](QString const& label) { return text.size(label).width(); };
        row.least = 2 * AxisMetrics::labelSpace;
        row.space = AxisMetrics::labelSpace;
    }
    return fen::thinnedTicks(points, row);
}
