#include "charts/style/PointText.h"

#include "picking/hits/VisHitQualifiers.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisScale.h"
#include "services/chartdata/ChartVariableCache.h"
#include "services/properties/StringBuilder.h"

#include <QDateTime>
#include <QTimeZone>

#include <boost/make_shared.hpp>

#include <cmath>
#include <limits>

namespace fen {

namespace {

/// [s] Beyond these years (about -270000 to 270000) a number is no date.
constexpr double lastSecond = 8.5e12;

QString dateText(double seconds)
{
    QDateTime const time = QDateTime::fromMSecsSinceEpoch(qint64(std::llround(seconds * 1000)), Qt::UTC);
    if (time.time().msec() != 0) return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
    if (time.time() != QTime(0, 0)) return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    return time.toString(QStringLiteral("yyyy-MM-dd"));
}

QString categoryText(FenChartAxisScale const& scale, double value)
{
    auto const* const axis = dynamic_cast<FenChartAxisDiscrete const*>(scale.axis());
    double const category = std::round(value);
    if (!axis || !(category >= 0) || category >= double(axis->labels.get().size())) return QString();
    return axis->labels.get().at(qsizetype(category));
}

void fillIn(FenStringBuilder::Formatter& text, FenChartAxisScale const* scale, double value)
{
    QString const category = scale && scale->discrete() ? categoryText(*scale, value) : QString();
    if (!category.isEmpty())
        text(category);
    else if (scale && scale->date() && std::abs(value) <= lastSecond)
        text(dateText(value));
    else
        text(value);
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
