#pragma once

#include "../logging/Export.h"
#include "Properties.h"
#include "ValueText.h"
#include "ViewPtr.h"

#include <QString>

/// What the properties of a node have in common whatever their type: owner and key.
class FENVIS_EXPORT FenPropertyAdaptorBase {
public:
    FenPropertyAdaptorBase(FenProperties& owner, QString const& key);
    FenPropertyAdaptorBase(FenPropertyAdaptorBase const&) = default;
    FenPropertyAdaptorBase& operator=(FenPropertyAdaptorBase const&) = delete;
    ~FenPropertyAdaptorBase();

    /// The key of the property.
    QString const& name() const { return _key; }
    /// The value as text; empty once the owner is gone.
    QString getString() const;
    /// The unit; empty without one and once the owner is gone.
    QString getUnit() const;
    void setUnit(QString const& unit);

protected:
    /// Whether the stored value changed since the last `reset`; the owner must live.
    bool modified() const { return _owner->string().revision(_slot) != _seen; }
    /// Whether a cached value may stand for the stored one: not for an undefined key.
    bool cachable() const { return _owner->string().defined(_slot); }
    /// From now on the cached value counts as the stored one.
    void reset() const { _seen = _owner->string().revision(_slot); }

    fen::view_ptr<FenProperties> _owner;
    QString _key;
    unsigned _slot = 0; ///< of the key in the owner's store

private:
    mutable quint64 _seen = ~quint64(0);
};

/// A typed property of a node: a member that stands for one key of the node's store.
///
/// Holds the last value read or written. Reading costs a few nanoseconds unless
/// the stored value changed or the group is locked. Once the owner is gone it
/// keeps its last value and takes no other.
template <class T>
class FenPropertyAdaptor : public FenPropertyAdaptorBase {
public:
    /// Declares a property: a value and a unit that the store has already are kept.
    FenPropertyAdaptor(FenProperties& owner, QString const& key, T const& def, QString const& unit)
        : FenPropertyAdaptorBase(owner, key)
        , _cache()
    {
        declare(def, unit);
    }

    /// Declares the same property for another node, with the value and unit of `source`
    /// where that node has none.
    FenPropertyAdaptor(FenProperties& newOwner, FenPropertyAdaptor const& source)
        : FenPropertyAdaptorBase(newOwner, source._key)
        , _cache()
    {
        declare(source.get(), source.getUnit());
    }

    FenPropertyAdaptor(FenPropertyAdaptor const&) = delete;

    /// Takes the value of `other`, and its unit when it has one.
    FenPropertyAdaptor& operator=(FenPropertyAdaptor const& other)
    {
        if (this == &other) return *this;
        set(other.get());
        QString const unit = other.getUnit();
        if (!unit.isEmpty()) setUnit(unit);
        return *this;
    }

    /// The value; the zero value of its type when the key is undefined.
    T const& get() const
    {
        FenProperties const* const owner = _owner.get();
        if (!owner || (!modified() && cachable() && !owner->group().locked())) return _cache;
        owner->string().read(_slot, _cache, T());
        reset();
        return _cache;
    }

    /// Writes the value; no change when the store has it already.
    void set(T const& value)
    {
        FenProperties* const owner = _owner.get();
        if (!owner) return;
        _cache = fen::asReadBack(value);
        owner->string().write(_slot, value);
        reset();
    }

private:
    void declare(T const& def, QString const& unit)
    {
        FenPropertiesString& store = _owner->string();
        store.template declare<T>(_slot);
        if (!store.defined(_slot)) set(def);
        if (!unit.isEmpty() && getUnit().isEmpty()) setUnit(unit);
    }

    mutable T _cache;
};
