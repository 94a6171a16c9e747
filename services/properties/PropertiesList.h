#pragma once

#include "../logging/Checks.h"
#include "Properties.h"

#include <QHash>

#include <memory>

/// A tree node whose children are all of one class T and owned by it.
///
/// T is constructible from a group and copyable. Copies and assignments copy
/// the items. Nodes of other classes cannot be inserted.
template <class T>
class FenPropertiesList : public FenProperties {
public:
    explicit FenPropertiesList(FenModifiedGroup& group)
        : FenProperties(group)
    {
    }
    FenPropertiesList(FenPropertiesList const& other)
        : FenProperties(other)
    {
        copyItems(other);
    }
    /// Items of the same names in the same order are assigned one by one, so
    /// that whoever watches them goes on; any others are replaced.
    FenPropertiesList& operator=(FenPropertiesList const& other)
    {
        if (this == &other) return *this;
        FenProperties::operator=(other);
        if (sameNames(other)) {
            for (unsigned i = 0; i < other.size(); ++i) (*this)[i] = other[i];
            return *this;
        }
        while (size() > 0) removeAt(size() - 1);
        copyItems(other);
        return *this;
    }

    using FenProperties::operator[];
    /// An item; a place behind the last logs a failed check and gives an item that is in no tree.
    T& operator[](unsigned index)
    {
        FenProperties* const item = at(index);
        return FENVIS_ENSURE(item, "index < size()") ? static_cast<T&>(*item) : nowhere();
    }
    T const& operator[](unsigned index) const { return const_cast<FenPropertiesList&>(*this)[index]; }
    unsigned size() const { return FenProperties::size(); }

    /// Appends an item; a name that is taken gets the suffix ".2", ".3" and so on.
    T& append(QString const& name)
    {
        T* const item = new T(group());
        item->rename(freeName(name));
        FenProperties::insert(item, false);
        return *item;
    }
    /// Deletes an item; false when there is none at that place.
    bool removeAt(unsigned index) { return erase(at(index)); }

    bool insert(FenProperties* child, bool nested) override
    {
        return dynamic_cast<T*>(child) && FenProperties::insert(child, nested);
    }
    bool remove(FenProperties* child) override
    {
        _lastSuffix.clear();
        return FenProperties::remove(child);
    }
    bool erase(FenProperties* child) override
    {
        _lastSuffix.clear();
        return FenProperties::erase(child);
    }

protected:
    FenProperties* makeChild(QString const& name, QString const&) override
    {
        T* const item = new T(group());
        item->rename(name);
        return item;
    }

private:
    static T& nowhere()
    {
        static FenModifiedGroup& group = *new FenModifiedGroup;
        static T& item = *new T(group);
        return item;
    }

    bool sameNames(FenPropertiesList const& other) const
    {
        if (size() != other.size()) return false;
        for (unsigned i = 0; i < size(); ++i)
            if (at(i)->name() != other.at(i)->name()) return false;
        return true;
    }

    void copyItems(FenPropertiesList const& other)
    {
        for (unsigned i = 0; i < other.size(); ++i) FenProperties::insert(new T(other[i]), false);
    }

    QString freeName(QString const& name)
    {
        if (!at(name)) return name;
        unsigned& last = _lastSuffix[name];
        if (last == 0) last = 1;
        QString free;
        do free = name + QLatin1Char('.') + QString::number(++last);
        while (at(free));
        return free;
    }

    QHash<QString, unsigned> _lastSuffix; ///< all suffixes of a name up to this one are taken
};
