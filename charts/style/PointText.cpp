#include "charts/style/PointText.h"

#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/chartdata/ChartVariableCache.h"
#include "services/properties/StringBuilder.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <limits>

namespace fen {

namespace {

QString valueText(FenStringBuilder const& builder, FenChartAxisScale const* scale, double value)
{
    if (scale) return scale->valueText(value, builder.numberFormat());
    return QString::fromStdString(builder.numberFormat().format(value));
}

} // namespace

boost::shared_ptr<FenVisHitProperty::IQualifier> dataPoint(FenChartVariableCache const& cache,
                                                           std::size_t point)
{
    return boost::make_shared<FenVisHitDataPointQualifier>(
        quint32(std::min<std::size_t>(point, std::numeric_limits<quint32>::max())),
        boost::make_shared<FenVisHitVector2Qualifier>(cache.x(point), cache.y(point)));
}

QString pointText(FenStringBuilder const& builder, FenChartVariable const& variable,
                  FenVisHitProperty::IQualifier const* values, FenChartAxisScale const* xScale,
                  FenChartAxisScale const* yScale)
{
    if (auto const* pair = dynamic_cast<FenVisHitVector2Qualifier const*>(values)) {
        FenStringBuilder::Formatter text = builder.formatter(QStringLiteral("%1 { %2, %3 } "));
        text(variable.name());
        text(valueText(builder, xScale, pair->x));
        text(valueText(builder, yScale, pair->y));
        return text();
    }
    if (auto const* single = dynamic_cast<FenVisHitVector1Qualifier const*>(values)) {
        FenStringBuilder::Formatter text = builder.formatter(QStringLiteral("%1 { %2 } "));
        text(variable.name());
        text(valueText(builder, yScale, single->value));
        return text();
    }
    return variable.name();
}

} // namespace fen
