#include "charts/style/PointText.h"

#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/chartdata/ChartVariableCache.h"
#include "services/chartdata/DateTicks.h"
#include "services/properties/StringBuilder.h"

#include <boost/make_shared.hpp>

#include <cmath>
#include <limits>

namespace fen {

namespace {

QString categoryText(FenChartAxisScale const& scale, double value)
{
    auto const* const axis = dynamic_cast<FenChartAxisDiscrete const*>(scale.axis());
    double const category = std::round(value);
    if (!axis || !(category >= 0) || category >= double(axis->labels.get().size())) return QString();
    return axis->labels.get().at(qsizetype(category));
}

void fillIn(FenStringBuilder::Formatter& text, FenChartAxisScale const* scale, double value)
{
    QString known;
    if (scale && scale->discrete()) known = categoryText(*scale, value);
    if (scale && scale->date()) known = dateText(value);
    if (known.isEmpty())
        text(value);
    else
        text(known);
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
        fillIn(text, xScale, pair->x);
        fillIn(text, yScale, pair->y);
        return text();
    }
    if (auto const* single = dynamic_cast<FenVisHitVector1Qualifier const*>(values)) {
        FenStringBuilder::Formatter text = builder.formatter(QStringLiteral("%1 { %2 } "));
        text(variable.name());
        fillIn(text, yScale, single->value);
        return text();
    }
    return variable.name();
}

} // namespace fen
