#include "services/properties/PropertyAdaptor.h"

FenPropertyAdaptorBase::FenPropertyAdaptorBase(FenProperties& owner, QString const& key)
    : _owner(&owner)
    , _key(key)
    , _slot(owner.string().place(key))
{
}

FenPropertyAdaptorBase::~FenPropertyAdaptorBase() = default;

QString FenPropertyAdaptorBase::getString() const
{
    return _owner ? _owner->getString(_key, QString()) : QString();
}

QString FenPropertyAdaptorBase::getUnit() const
{
    return _owner ? _owner->string().getUnit(_key, QString()) : QString();
}

void FenPropertyAdaptorBase::setUnit(QString const& unit)
{
    if (_owner) _owner->string().setUnit(_key, unit);
}
