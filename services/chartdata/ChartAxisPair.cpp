#include "services/chartdata/ChartAxisPair.h"

#include "services/chartdata/ChartAxis.h"
#include "services/logging/DebugLogger.h"

#include <memory>
#include <typeinfo>

namespace {

FenChartAxis* makeAxis(FenModifiedGroup& group, QString const& type)
{
    if (type == FenChartAxisContinuous::typeString) return new FenChartAxisContinuous(group);
    if (type == FenChartAxisDiscrete::typeString) return new FenChartAxisDiscrete(group);
    return nullptr;
}

void reportFailure(QString const& name, QString const& type)
{
    fen::debug_logger::debuglogger().derr << "Failed to create chart axis " << name.toStdString()
                                          << " of type " << type.toStdString() << '\n';
}

} // namespace

QString const FenChartAxisPair::typeString("chart.axisPair");

FenChartAxisPair::FenChartAxisPair(FenModifiedGroup& group, Comp comp)
    : FenProperties(group)
    , _comp(comp)
{
    setType(typeString);
}

FenChartAxisPair::FenChartAxisPair(FenChartAxisPair const& other)
    : FenProperties(other)
    , _comp(other._comp)
{
    for (unsigned slot = 0; slot < 2; ++slot)
        if (other._slots[slot]) place(slot, other._slots[slot]->clone());
}

FenChartAxisPair& FenChartAxisPair::operator=(FenChartAxisPair const& other)
{
    if (this == &other) return *this;
    FenProperties::operator=(other);
    auto const matches = [&](unsigned slot) {
        FenChartAxis const *a = _slots[slot], *b = other._slots[slot];
        return a && b ? a->name() == b->name() && typeid(*a) == typeid(*b) : a == b;
    };
    if (!matches(0) || !matches(1)) {
        for (FenChartAxis* const axis : {_slots[0], _slots[1]})
            if (axis) erase(axis);
        for (unsigned slot = 0; slot < 2; ++slot)
            if (other._slots[slot]) place(slot, other._slots[slot]->clone());
        return *this;
    }
    for (unsigned slot = 0; slot < 2; ++slot) {
        FenChartAxis* const axis = _slots[slot];
        if (auto* const continuous = dynamic_cast<FenChartAxisContinuous*>(axis))
            *continuous = static_cast<FenChartAxisContinuous const&>(*other._slots[slot]);
        else if (auto* const discrete = dynamic_cast<FenChartAxisDiscrete*>(axis))
            *discrete = static_cast<FenChartAxisDiscrete const&>(*other._slots[slot]);
    }
    return *this;
}

FenChartAxisPair::~FenChartAxisPair() = default;

FenChartAxis* FenChartAxisPair::find(QString const& name) const
{
    for (FenChartAxis* const axis : _slots)
        if (axis && axis->name() == name) return axis;
    return nullptr;
}

FenChartAxis* FenChartAxisPair::resolve(QString const& name) const
{
    if (!name.isEmpty()) return find(name);
    return _slots[0] ? _slots[0] : _slots[1];
}

QStringList FenChartAxisPair::names() const
{
    QStringList names;
    for (FenChartAxis const* const axis : _slots)
        if (axis) names += axis->name();
    return names;
}

FenChartAxis* FenChartAxisPair::setFirst(QString const& name, QString const& type)
{
    return set(0, name.isEmpty() ? QString("first") : name, type);
}

FenChartAxis* FenChartAxisPair::setSecond(QString const& name, QString const& type)
{
    return set(1, name.isEmpty() ? QString("second") : name, type);
}

FenChartAxis* FenChartAxisPair::set(unsigned slot, QString const& name, QString const& type)
{
    FenChartAxis const* const other = _slots[1 - slot];
    std::unique_ptr<FenChartAxis> axis(makeAxis(group(), type));
    if (!type.isEmpty() && (!axis || (other && other->name() == name))) {
        reportFailure(name, type);
        return nullptr;
    }
    if (_slots[slot]) erase(_slots[slot]);
    if (!axis) return nullptr;
    axis->rename(name);
    place(slot, axis.release());
    return _slots[slot];
}

/// The slot is free and the other axis has another name.
void FenChartAxisPair::place(unsigned slot, FenChartAxis* axis)
{
    if (FenProperties::insert(axis, false)) _slots[slot] = axis;
}

bool FenChartAxisPair::insert(FenProperties* child, bool nested)
{
    auto* const axis = dynamic_cast<FenChartAxis*>(child);
    if (!axis || (_slots[0] && _slots[1]) || !FenProperties::insert(child, nested)) return false;
    _slots[_slots[0] ? 1 : 0] = axis;
    return true;
}

bool FenChartAxisPair::remove(FenProperties* child)
{
    if (!FenProperties::remove(child)) return false;
    vacate(child);
    return true;
}

bool FenChartAxisPair::erase(FenProperties* child)
{
    if (!FenProperties::erase(child)) return false;
    vacate(child); // only compared
    return true;
}

void FenChartAxisPair::vacate(FenProperties const* child)
{
    for (FenChartAxis*& axis : _slots)
        if (static_cast<void const*>(axis) == static_cast<void const*>(child)) axis = nullptr;
}

FenProperties* FenChartAxisPair::makeChild(QString const& name, QString const& type)
{
    FenChartAxis* const axis = _slots[0] && _slots[1] ? nullptr : makeAxis(group(), type);
    if (axis)
        axis->rename(name);
    else
        reportFailure(name, type);
    return axis;
}
