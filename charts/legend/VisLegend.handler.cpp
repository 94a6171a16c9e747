#include "charts/legend/VisLegend.handler.h"

#include "charts/legend/LegendSample.h"
#include "picking/hits/VisHitProperty.h"
#include "picking/hits/VisHitRecord.h"
#include "services/chartdata/ChartVariable.h"
#include "services/opengl/OglViewport.h"

FenVisLegend::HitDetectEventHandler::HitDetectEventHandler(FenVisLegend& legend)
    : FenVisHoverHandler(legend)
{
}

bool FenVisLegend::HitDetectEventHandler::OnMouseDrag(FenVisHitRecord const& hit, QPoint offset)
{
    auto* const legend = nodeAs<FenVisLegend>();
    if (!legend || !lookUp(hit).defined()) return false;
    if (!_drag.active()) _drag.begin(legend->box());
    _drag.move(offset);
    return true;
}

bool FenVisLegend::HitDetectEventHandler::OnMouseRelease(FenVisHitRecord const& hit)
{
    auto* const legend = nodeAs<FenVisLegend>();
    bool const moved = _drag.active() && legend && legend->_box.valid() && lookUp(hit).defined();
    // The last part of the way may not have been drawn yet.
    FenOglViewport const box =
        moved ? legend->calcLegendViewport(legend->_box.size(), legend->_area) : FenOglViewport();
    _drag.end();
    if (!moved) return false;
    legend->legend.viewport = FenOglViewport::fitToParent(legend->group(), box, legend->_area);
    return true;
}

bool FenVisLegend::HitDetectEventHandler::OnMouseSelect(FenVisHitRecord const& hit)
{
    FenVisHitProperty const what = lookUp(hit);
    if (!what.defined()) return false;
    setHovered(what);
    return true;
}

bool FenVisLegend::HitDetectEventHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&,
                                                   QString& tooltip)
{
    if (auto const* const variable = dynamic_cast<FenChartVariable const*>(hit.property)) {
        tooltip = fen::legendLabel(*variable);
        return true;
    }
    if (!node() || !hit.isPropertyEqual(node())) return false;
    tooltip = node()->name();
    return true;
}
