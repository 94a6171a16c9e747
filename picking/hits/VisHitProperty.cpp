#include "picking/hits/VisHitProperty.h"

#include "services/properties/Properties.h"

#include <utility>

FenVisHitProperty::FenVisHitProperty() = default;

FenVisHitProperty::FenVisHitProperty(FenProperties const* owner)
    : property(owner)
    , _owner(owner)
{
}

FenVisHitProperty::FenVisHitProperty(FenProperties const* owner, boost::shared_ptr<IQualifier> part)
    : property(owner)
    , qualifier(std::move(part))
    , _owner(owner)
{
}

bool FenVisHitProperty::defined() const { return property && _owner.get() == property; }

bool FenVisHitProperty::isPropertyEqual(FenProperties const* owner) const
{
    return defined() && property == owner;
}

bool FenVisHitProperty::isPropertyEqual(FenVisHitProperty const& other) const
{
    return other.defined() && isPropertyEqual(other.property);
}
