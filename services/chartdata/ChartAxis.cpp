#include "services/chartdata/ChartAxis.h"

#include "services/chartdata/Chart.h"

#include <cmath>

FenChartAxis::FenChartAxis(FenModifiedGroup& group)
    : FenProperties(group)
    , title(*this, "title", QString(), QString())
    , titleColor(*this, "titleColor", Qt::black, QString())
    , titleBoxColor(*this, "titleBoxColor", Qt::transparent, QString())
    , color(*this, "color", Qt::black, QString())
    , gridColor(*this, "gridColor", Qt::lightGray, QString())
    , labelColor(*this, "labelColor", Qt::black, QString())
    , shown(*this, "shown", true, QString())
    , autoRange(*this, "autoRange", true, QString())
    , min(*this, "min", 0.0, QString())
    , max(*this, "max", 1.0, QString())
{
}

FenChartAxis::FenChartAxis(FenChartAxis const& other)
    : FenProperties(other)
    , title(*this, other.title)
    , titleColor(*this, other.titleColor)
    , titleBoxColor(*this, other.titleBoxColor)
    , color(*this, other.color)
    , gridColor(*this, other.gridColor)
    , labelColor(*this, other.labelColor)
    , shown(*this, other.shown)
    , autoRange(*this, other.autoRange)
    , min(*this, other.min)
    , max(*this, other.max)
{
}

FenChartAxis::~FenChartAxis() = default;

bool FenChartAxis::rename(QString const& name)
{
    QString const oldName = this->name();
    fen::view_ptr<FenChartAxis const> const self(this); // a sibling that is told may delete it
    if (!FenProperties::rename(name)) return false;
    if (self) FenChart::tellRename(*this, oldName);
    return true;
}

QString const FenChartAxisContinuous::typeString("chart.axis.continuous");

FenChartAxisContinuous::FenChartAxisContinuous(FenModifiedGroup& group)
    : FenChartAxis(group)
    , unit(*this, "unit", QString(), QString())
    , logarithmic(*this, "logarithmic", false, QString())
    , factor(*this, "factor", 1.0, QString())
    , fixed(*this, "fixed", false, QString())
    , format(*this, "format", QString(), QString())
{
    setType(typeString);
}

FenChartAxisContinuous::FenChartAxisContinuous(FenChartAxisContinuous const& other)
    : FenChartAxis(other)
    , unit(*this, other.unit)
    , logarithmic(*this, other.logarithmic)
    , factor(*this, other.factor)
    , fixed(*this, other.fixed)
    , format(*this, other.format)
    , _shown(other._shown)
{
}

FenChartAxisContinuous& FenChartAxisContinuous::operator=(FenChartAxisContinuous const& other)
{
    FenChartAxis::operator=(other); // all properties
    _shown = other._shown;
    return *this;
}

FenChartAxisContinuous::~FenChartAxisContinuous() = default;

FenChartAxis* FenChartAxisContinuous::clone() const { return new FenChartAxisContinuous(*this); }

bool FenChartAxisContinuous::date() const { return format.get() == QLatin1String("date"); }

QString FenChartAxisContinuous::shownUnit() const
{
    if (date()) return QString();
    QString const& own = unit.get();
    return _shown.unit == own && !_shown.converted.isEmpty() ? _shown.converted : own;
}

double FenChartAxisContinuous::shownFactor() const
{
    double const own = factor.get();
    return date() || own == 0.0 || !std::isfinite(own) ? 1.0 : own;
}

QString const FenChartAxisDiscrete::typeString("chart.axis.discrete");

FenChartAxisDiscrete::FenChartAxisDiscrete(FenModifiedGroup& group)
    : FenChartAxis(group)
    , labels(*this, "labels", QStringList(), QString())
{
    setType(typeString);
}

FenChartAxisDiscrete::FenChartAxisDiscrete(FenChartAxisDiscrete const& other)
    : FenChartAxis(other)
    , labels(*this, other.labels)
{
}

FenChartAxisDiscrete::~FenChartAxisDiscrete() = default;

FenChartAxis* FenChartAxisDiscrete::clone() const { return new FenChartAxisDiscrete(*this); }
