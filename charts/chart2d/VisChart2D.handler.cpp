#include "charts/chart2d/VisChart2D.handler.h"

#include "charts/chart2d/DrawnVariable.h"
#include "charts/chart2d/VisChart2D.parts.h"
#include "charts/style/PointText.h"
#include "picking/hits/VisHitProjectedPointQualifier.h"
#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartVariable.h"

#include <boost/make_shared.hpp>
#include <boost/pointer_cast.hpp>

FenVisChart2D::HitDetectEventHandler::HitDetectEventHandler(FenVisChart2D& chart)
    : FenVisHoverHandler(chart)
{
}

bool FenVisChart2D::HitDetectEventHandler::OnMouseOver(FenVisHitRecord const& hit,
                                                       FenStringBuilder const& builder, QString& text)
{
    FenVisHitProperty property = lookUp(hit);
    if (!property.defined()) return false;
    if (dynamic_cast<FenChartVariable const*>(property.property)) {
        if (!describeVariable(*nodeAs<FenVisChart2D>(), hit, property, builder, text)) return false;
    } else if (auto const* axis = dynamic_cast<FenChartAxis const*>(property.property)) {
        text = axis->name();
    } else {
        return false;
    }
    setHovered(property);
    return true;
}

bool FenVisChart2D::HitDetectEventHandler::describeVariable(FenVisChart2D const& chart,
                                                            FenVisHitRecord const& hit,
                                                            FenVisHitProperty& property,
                                                            FenStringBuilder const& builder,
                                                            QString& text) const
{
    auto const& variable = static_cast<FenChartVariable const&>(*property.property);
    fen::DrawnVariable const* const one = chart.find(variable);
    text = variable.name();
    if (!one) return true;
    if (auto const* place = dynamic_cast<FenVisHitProjectedPointQualifier const*>(property.qualifier.get())) {
        property = toDataPoint(chart, *one, *place, property);
        chart.hitProperties().insert(hit.context(), property);
    }
    if (auto const* point = dynamic_cast<FenVisHitDataPointQualifier const*>(property.qualifier.get()))
        text = fen::pointText(builder, variable, point->inner.get(), chart._xScale.find(variable.xAxis.get()),
                              chart._yScale.find(variable.yAxis.get()));
    return true;
}

FenVisHitProperty
FenVisChart2D::HitDetectEventHandler::toDataPoint(FenVisChart2D const& chart, fen::DrawnVariable const& one,
                                                  FenVisHitProjectedPointQualifier const& place,
                                                  FenVisHitProperty const& property) const
{
    if (!one.picture) return property;
    fen::VariablePicture const& picture = *one.picture;
    QPointF at = QPointF(place.point - chart._dataViewport.origin()) + QPointF(0.5, 0.5);
    if (chart.chart.view3D.get()
        && !fen::onSheet(QPointF(place.point) + QPointF(0.5, 0.5), place.viewport, place.modelView,
                         place.projection, at))
        return property;
    std::size_t point = picture.data.count;
    for (fen::Bar const& bar : picture.shape.bars)
        if (at.x() >= double(bar.left) && at.x() < double(bar.right)) point = bar.index;
    if (point == picture.data.count) point = fen::nearestPoint(picture.data, picture.style.shape, at);
    if (point == picture.data.count) return property;
    return FenVisHitProperty(property.property, fen::dataPoint(one.cache, point));
}

bool FenVisChart2D::HitDetectEventHandler::OnMouseLeave(FenVisHitRecord const&, FenStringBuilder const&,
                                                        QString&)
{
    bool const any = hovered().defined();
    forget();
    return any;
}

bool FenVisChart2D::HitDetectEventHandler::OnMouseSelect(FenVisHitRecord const& hit)
{
    FenVisHitProperty const property = lookUp(hit);
    if (!property.defined()) return false;
    setHovered(property);
    return true;
}
