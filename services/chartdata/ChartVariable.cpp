#include "services/chartdata/ChartVariable.h"

#include "services/chartdata/Chart.h"
#include "services/chartdata/VariableIter.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

using Kes::Math::Vector3;

QString const FenChartVariable::typeString("chart.variable");

FenChartVariable::FenChartVariable(FenModifiedGroup& group)
    : FenProperties(group)
    , label(*this, "label", QString(), QString())
    , visible(*this, "visible", true, QString())
    , legend(*this, "legend", true, QString())
    , labels(*this, "labels", QStringList(), QString())
    , xAxis(*this, "xAxis", QString(), QString())
    , yAxis(*this, "yAxis", QString(), QString())
    , zAxis(*this, "zAxis", QString(), QString())
    , unitX(*this, "unitX", QString(), QString())
    , unitY(*this, "unitY", QString(), QString())
    , unitZ(*this, "unitZ", QString(), QString())
    , style(*this, "style", FenChart::styleLine, QString())
    , lineMode(*this, "lineMode", FenChart::lineSolid, QString())
    , lineStyle(*this, "lineStyle", "solid", QString())
    , lineWidth(*this, "lineWidth", 1.0F, QString())
    , lineSmooth(*this, "lineSmooth", false, QString())
    , lineColor(*this, "lineColor", Qt::black, QString())
    , lineExtension(*this, "lineExtension", false, QString())
    , fillMode(*this, "fillMode", FenChart::fillNone, QString())
    , fillColor(*this, "fillColor", Qt::transparent, QString())
    , backColor(*this, "backColor", Qt::transparent, QString())
    , fillPattern(*this, "fillPattern", "sparse", QString())
    , colors(*this, "colors", QList<QColor>(), QString())
    , symbol(*this, "symbol", FenChart::symbolNone, QString())
    , symbolSize(*this, "symbolSize", 5, QString())
    , symbolColor(*this, "symbolColor", Qt::black, QString())
    , symbolOutlineColor(*this, "symbolOutlineColor", Qt::black, QString())
    , labelColor(*this, "labelColor", Qt::black, QString())
    , barWidth(*this, "barWidth", 1.0, QString())
    , surface(*this, "surface", false, QString())
    , filter(*this, "filter", false, QString())
    , filterRangeMin(*this, "filterRangeMin", 0.0, QString())
    , filterRangeMax(*this, "filterRangeMax", 0.0, QString())
    , displayFactor(*this, "displayFactor", 1.0, QString())
    , ring(*this, "ring", 0, QString())
{
    setType(typeString);
}

FenChartVariable::FenChartVariable(FenChartVariable const& other)
    : FenProperties(other)
    , label(*this, other.label)
    , visible(*this, other.visible)
    , legend(*this, other.legend)
    , labels(*this, other.labels)
    , xAxis(*this, other.xAxis)
    , yAxis(*this, other.yAxis)
    , zAxis(*this, other.zAxis)
    , unitX(*this, other.unitX)
    , unitY(*this, other.unitY)
    , unitZ(*this, other.unitZ)
    , style(*this, other.style)
    , lineMode(*this, other.lineMode)
    , lineStyle(*this, other.lineStyle)
    , lineWidth(*this, other.lineWidth)
    , lineSmooth(*this, other.lineSmooth)
    , lineColor(*this, other.lineColor)
    , lineExtension(*this, other.lineExtension)
    , fillMode(*this, other.fillMode)
    , fillColor(*this, other.fillColor)
    , backColor(*this, other.backColor)
    , fillPattern(*this, other.fillPattern)
    , colors(*this, other.colors)
    , symbol(*this, other.symbol)
    , symbolSize(*this, other.symbolSize)
    , symbolColor(*this, other.symbolColor)
    , symbolOutlineColor(*this, other.symbolOutlineColor)
    , labelColor(*this, other.labelColor)
    , barWidth(*this, other.barWidth)
    , surface(*this, other.surface)
    , filter(*this, other.filter)
    , filterRangeMin(*this, other.filterRangeMin)
    , filterRangeMax(*this, other.filterRangeMax)
    , displayFactor(*this, other.displayFactor)
    , ring(*this, other.ring)
    , _source(other._source)
    , _converted(other._converted)
{
}

FenChartVariable& FenChartVariable::operator=(FenChartVariable const& other)
{
    if (this == &other) return *this;
    FenProperties::operator=(other); // all properties
    if (_source != other._source) modify();
    _source = other._source;
    _converted = other._converted;
    return *this;
}

FenChartVariable::~FenChartVariable() = default;

bool FenChartVariable::rename(QString const& name)
{
    QString const oldName = this->name();
    fen::view_ptr<FenChartVariable const> const self(this); // a sibling that is told may delete it
    if (!FenProperties::rename(name)) return false;
    if (self) FenChart::tellRename(*this, oldName);
    return true;
}

void FenChartVariable::setData(Comp comp, std::vector<double> values)
{
    setColumn(comp, values.empty() ? nullptr : FenChartColumn::make(std::move(values)));
}

void FenChartVariable::setColumn(Comp comp, FenChartColumn::Ptr column)
{
    if (column && column->empty()) column.reset();
    if (_source[comp] == column) return;
    _source[comp] = std::move(column);
    _converted[comp] = Converted();
    modify();
}

void FenChartVariable::appendData(Comp comp, std::vector<double> const& values)
{
    if (!values.empty()) setColumn(comp, FenChartColumn::appended(_source[comp], values));
}

std::vector<double> const& FenChartVariable::data(Comp comp) const
{
    static std::vector<double> const none;
    return _source[comp] ? _source[comp]->values() : none;
}

FenChartColumn::Ptr const& FenChartVariable::column(Comp comp) const
{
    Converted const& converted = _converted[comp];
    bool const current =
        converted.from && converted.from == _source[comp] && converted.sourceUnit == sourceUnit(comp).get();
    return current ? converted.column : _source[comp];
}

std::size_t FenChartVariable::count() const
{
    std::size_t longest = 0;
    for (FenChartColumn::Ptr const& column : _source)
        if (column) longest = std::max(longest, column->size());
    return longest;
}

double FenChartVariable::value(Comp comp, std::size_t i) const
{
    FenChartColumn::Ptr const& values = column(comp);
    if (values) return i < values->size() ? values->value(i) : std::nan("");
    if (comp == Vector3::CompY || i >= count()) return std::nan("");
    return comp == Vector3::CompX ? double(i) : 0.0;
}

boost::shared_ptr<IVariableIter> FenChartVariable::iter() const
{
    auto const walk = boost::make_shared<fen::VariableIter>();
    walk->count = count();
    for (Comp const comp : {Vector3::CompX, Vector3::CompY, Vector3::CompZ}) {
        walk->columns[comp] = column(comp);
        walk->units[comp] = unit(comp);
    }
    return walk;
}

QString FenChartVariable::shownName() const { return label.get().isEmpty() ? name() : label.get(); }

QString FenChartVariable::unit(Comp comp) const
{
    Converted const& converted = _converted[comp];
    QString const& own = sourceUnit(comp).get();
    return converted.from == _source[comp] && converted.sourceUnit == own && !own.isEmpty()
            && !converted.unit.isEmpty()
        ? converted.unit
        : own;
}

FenPropertyAdaptor<QString> const& FenChartVariable::axisName(Comp comp) const
{
    return comp == Vector3::CompX ? xAxis : comp == Vector3::CompY ? yAxis : zAxis;
}

FenPropertyAdaptor<QString> const& FenChartVariable::sourceUnit(Comp comp) const
{
    return comp == Vector3::CompX ? unitX : comp == Vector3::CompY ? unitY : unitZ;
}

void FenChartVariable::convert(Comp comp, QString const& shownUnit, double factor) const
{
    Converted& converted = _converted[comp];
    QString const& own = sourceUnit(comp).get();
    bool const same = converted.from == _source[comp] && converted.factor == factor;
    if (!same) {
        converted.from = _source[comp];
        converted.factor = factor;
        converted.column =
            !_source[comp] || factor == 1.0 ? _source[comp] : FenChartColumn::scaled(*_source[comp], factor);
    }
    converted.sourceUnit = own;
    converted.unit = shownUnit;
}
