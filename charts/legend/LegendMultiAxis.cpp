#include "charts/legend/LegendMultiAxis.h"

#include "charts/multiaxis/ItemAxis.h"
#include "services/chartdata/ChartMultiAxis.h"

#include <QSet>

#include <utility>

fen::LegendItems fen::legendItems(FenChartMultiAxis const& chart, std::vector<bool> const& valid)
{
    constexpr std::size_t most = 256; // no legend has room for more
    LegendItems items;
    QSet<std::pair<QString, QRgb>> seen;
    for (std::size_t i = 0; i < valid.size(); ++i) {
        if (!valid[i]) continue;
        LegendItem const item{itemLabel(chart.itemLabels.get(), i), itemColor(chart.itemColors.get(), i)};
        qsizetype const before = seen.size();
        seen.insert({item.label, item.color.rgba()});
        if (seen.size() == before) continue;
        if (items.listed.size() < most)
            items.listed.push_back(item);
        else
            ++items.others;
    }
    return items;
}
