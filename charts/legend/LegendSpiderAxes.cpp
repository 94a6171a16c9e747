#include "charts/legend/LegendSpiderAxes.h"

#include "charts/multiaxis/ItemAxis.h"
#include "services/chartdata/ChartMultiAxis.h"

QString fen::spiderAxisText(FenChartMultiAxis const& chart, FenChartVariable const& variable,
                            Kes::Math::NumberFormat const& format)
{
    ItemAxis const axis(chart, FenChartVariableCache(variable));
    QString const name = itemAxisLabel(variable);
    if (!axis.range.defined()) return name;
    return QStringLiteral("%1: %2 to %3")
        .arg(name, axis.text(axis.range.min, format), axis.text(axis.range.max, format));
}
