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

/// Every how many ticks is measured at most: closer labels never fit.
unsigned leastStride(std::vector<int> const& points, int space)
{
    if (points.size() < 2) return 1;
    double const length = std::abs(double(points.back()) - points.front());
    double const spacing = length / double(points.size() - 1);
    return spacing >= space ? 1 : unsigned(std::ceil(space / std::max(spacing, 1e-6)));
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

/// Smallest number such that every so many labels have room side by side.
unsigned FenVisAxesXY::labelStride(Placed const& axis, std::vector<int> const& points, FenOglText const& text)
{
    int const height = text.height();
    unsigned stride = leastStride(points, axis.vertical() ? height : 2 * AxisMetrics::labelSpace);
    if (axis.vertical() || points.size() < 2) return stride;
    std::vector<int> widths(points.size(), -1);
    auto const width = [&](std::size_t i) {
        if (widths[i] < 0)
            widths[i] = std::min(text.size(axis.scale.label(unsigned(i))).width(), AxisMetrics::labelMaximum);
        return widths[i];
    };
    auto const fits = [&] {
        for (std::size_t i = stride; i < points.size(); i += stride) {
            int const space =
                std::abs(points[i] - points[i - stride]) - (width(i) + width(i - stride) + 1) / 2;
            if (space < AxisMetrics::labelSpace) return false;
        }
        return true;
    };
    while (stride < points.size() && !fits()) ++stride;
    return stride;
}

/// Ticks that are drawn: all, or the labelled ones where all would run together.
std::vector<int> FenVisAxesXY::tickPoints(std::vector<int> const& points, unsigned stride)
{
    if (leastStride(points, AxisMetrics::tickSpace) == 1) return points;
    std::vector<int> labelled;
    for (std::size_t i = 0; i < points.size(); i += stride) labelled.push_back(points[i]);
    return labelled;
}
