#include "charts/parallel/VisChartPCP.h"

#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPass.h"
#include "charts/parallel/ParallelLayout.h"
#include "charts/parallel/VisChartPCP.handler.h"
#include "framework/DrawContext.h"
#include "picking/hits/VisHitQualifiers.h"
#include "picking/select/VisPickScope.h"
#include "services/opengl/FlatScope.h"
#include "services/opengl/GlWrappers.h"
#include "services/opengl/PixelRatio.h"
#include "services/opengl/VertexArrays.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

using Kes::Math::Vector2;

namespace {

/// Hits beside axes and sliders that a pick has room for.
constexpr std::size_t mostRecords = 10;
} // namespace

FenVisHitRecordList FenVisChartPCP::select2d(SelectContext const& context) const
{
    unsigned const room = 3 * _validVariables.size() + unsigned(mostRecords);
    return pick(context, room, chart, _handler, [&](FenVisOglSelectWeakPtr select) {
        drawSelect2d(context, fen::pickArea(context), select);
    });
}

void FenVisChartPCP::drawSelect2d(DrawContext const& context, QRectF const& area,
                                  FenVisOglSelectWeakPtr select) const
{
    if (!select) drawTitle(context, chart);
    if (!_layout || !_picture) return;
    fen::FlatScope const flat;
    drawParallelData(context, area, select);
    drawParallelAxes(context, select);
    drawParallelSliders(context, select);
}

void FenVisChartPCP::drawParallelData(DrawContext const& context, QRectF const& area,
                                      FenVisOglSelectWeakPtr select) const
{
    if (select) return fen::nameItems(*_picture, chart, area, mostRecords, select, hitProperties());
    _picture->draw();
    qint64 const hovered = fen::hitItem(_handler->hovered(), chart);
    if (hovered >= 0) fen::drawHighlightedItem(*_picture, std::size_t(hovered), context.geometry);
}

void FenVisChartPCP::drawParallelSliders(DrawContext const&, FenVisOglSelectWeakPtr select) const
{
    for (int k = 0; k < int(_axes->size()); ++k) {
        unsigned const i = unsigned(variableAt(k));
        if (!_validVariables.alive(i) || !_validVariables.variable(i).filter.get()) continue;
        drawSlider(k, true, select);
        drawSlider(k, false, select);
    }
}

/// A wedge that points at the limit from outside. Picked around the limit, half way to the other one at most.
void FenVisChartPCP::drawSlider(int position, bool low, FenVisOglSelectWeakPtr select) const
{
    int const i = variableAt(position);
    FenChartVariable const& variable = _validVariables.variable(unsigned(i));
    fen::ItemAxis const& axis = (*_axes)[std::size_t(i)];
    double min = 0, max = 0;
    GetFilteredMinMax(i, min, max);
    FenVisPickScope const name(select, hitProperties(), [&] {
        boost::shared_ptr<FenVisHitProperty::IQualifier> part;
        if (low)
            part = boost::make_shared<FenVisHitRangeMinQualifier>(min);
        else
            part = boost::make_shared<FenVisHitRangeMaxQualifier>(max);
        return FenVisHitProperty(&variable, part);
    });
    bool const below = low != axis.inverted;
    bool const constant = !(axis.range.min < axis.range.max); // its line runs from end to end
    auto const pixel = [&](bool lower) {
        double const at = constant ? (lower != axis.inverted ? 0 : 1) : axis.fraction(lower ? min : max);
        return float(_layout->pixelY(at)) + 0.5f;
    };
    float const end = pixel(low), other = pixel(!low);
    float const x = float(_layout->axisX(std::size_t(position))) + 0.5f;
    float const reach = float(fen::ParallelLayout::handleReach), away = below ? -reach : reach;
    float const half = float(_layout->handleHalfWidth());
    if (select) {
        float const inner =
            below ? std::min(end + reach, (end + other) / 2) : std::max(end - reach, (end + other) / 2);
        float const side = std::min(reach, std::max(half, float(_layout->spacing) / 2));
        fen::drawRectangle(x - side, std::min(inner, end + away), x + side, std::max(inner, end + away));
        return;
    }
    bool const wide = _handler->hovered().isPropertyEqual(&variable);
    std::vector<Vector2> const wedge = {Vector2(x, end), Vector2(x - half, end + away),
                                        Vector2(x + half, end + away)};
    QColor const color = variable.colors.get().isEmpty() ? QColor(Qt::black) : variable.colors.get().first();
    glColor(wide ? color : QColor(color.red(), color.green(), color.blue(), 200));
    fen::drawArray(GL_TRIANGLES, wedge);
    glColor(color);
    fen::lineWidth(1);
    fen::drawArray(GL_LINE_LOOP, wedge);
}
