#include "services/properties/Quantity.h"

#include "services/logging/Checks.h"
#include "services/math/Vector3.h"
#include "services/properties/PropertyAdaptor.h"

#include <cmath>

namespace {

QString text(float value) { return QString::number(double(value), 'g', 6); }

} // namespace

FenQuantityTriple::FenQuantityTriple(FenPropertyAdaptorBase const& property)
    : _unit(property.getUnit())
{
}

FenQuantityTriple::FenQuantityTriple(QString const& unit)
    : _unit(unit)
{
}

QString FenQuantityTriple::ToStringWithUnit(FenQuantityTriple const& quantity,
                                            Kes::Math::Vector3 const& value)
{
    bool const equal = value.x() == value.y() && value.y() == value.z();
    QString result = text(value.x());
    if (!equal) result += u' ' + text(value.y()) + u' ' + text(value.z());
    if (!quantity._unit.isEmpty()) result += u' ' + quantity._unit;
    return result;
}

void FenUnitSystem::setUnit(QString const& from, QString const& to, double factor)
{
    if (FENVIS_ENSURE(std::isfinite(factor) && factor != 0.0, "isfinite(factor) && factor != 0"))
        _units.insert(from, {to, factor});
}

QString FenUnitSystem::unit(QString const& from) const
{
    auto const found = _units.constFind(from);
    return found == _units.cend() ? from : found->first;
}

double FenUnitSystem::convert(double value, QString const& from) const
{
    auto const found = _units.constFind(from);
    return found == _units.cend() ? value : value * found->second;
}
