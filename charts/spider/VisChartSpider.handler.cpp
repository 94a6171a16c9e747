#include "charts/spider/VisChartSpider.handler.h"

#include "charts/multiaxis/ItemAxis.h"
#include "charts/multiaxis/ItemPass.h"

FenVisChartSpider::HitDetectEventHandler::HitDetectEventHandler(FenVisChartSpider& chart)
    : fen::ItemHoverHandler(chart)
{
}

bool FenVisChartSpider::HitDetectEventHandler::describe(FenVisHitProperty const& hit, FenStringBuilder const&,
                                                        QString& tooltip)
{
    auto const& spider = *nodeAs<FenVisChartSpider>();
    if (!spider._axes) return false;
    qint64 const item = fen::hitItem(hit, spider.chart);
    if (item >= 0) {
        tooltip = fen::itemText(spider.chart, spider._validVariables, *spider._axes, std::size_t(item),
                                spider._numberFormat);
        return true;
    }
    auto const* const variable = dynamic_cast<FenChartVariable const*>(hit.property);
    int const index = variable ? spider._validVariables.findIndexByName(variable->name()) : -1;
    if (index < 0) return false;
    fen::ItemAxis const& axis = (*spider._axes)[std::size_t(index)];
    tooltip = QStringLiteral("%1 { %2, %3 } ")
                  .arg(fen::itemAxisLabel(*variable), axis.text(axis.range.min, spider._numberFormat),
                       axis.text(axis.range.max, spider._numberFormat));
    return true;
}
