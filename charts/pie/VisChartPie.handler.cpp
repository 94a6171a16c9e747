#include "charts/pie/VisChartPie.handler.h"

#include "picking/hits/VisHitProperty.h"
#include "services/chartdata/ChartVariable.h"

FenVisChartPie::HitDetectEventHandler::HitDetectEventHandler(FenVisChartPie& chart)
    : FenVisHoverHandler(chart)
{
}

bool FenVisChartPie::HitDetectEventHandler::OnMouseLeave(FenVisHitRecord const& hit,
                                                         FenStringBuilder const& builder, QString& text)
{
    auto const* const variable = dynamic_cast<FenChartVariable const*>(hovered().property);
    QString const name = variable ? variable->name() : QString();
    if (!FenVisHoverHandler::OnMouseLeave(hit, builder, text)) return false;
    if (variable && text == name) text = QString();
    return true;
}

bool FenVisChartPie::HitDetectEventHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&,
                                                     QString& tooltip)
{
    if (auto const* const variable = dynamic_cast<FenChartVariable const*>(hit.property))
        tooltip = variable->name();
    return true;
}
