#pragma once

#include "../hits/VisHitProperty.h"
#include "../hits/VisHitRecord.h"
#include "VisOglSelect.h"

/// Brackets one pickable thing: takes a name, remembers what it stands for, and
/// withdraws the name at scope end. With an empty handle it does nothing.
///
///     FenVisPickScope const name(select, hitProperties(), [&] {
///         return FenVisHitProperty(this, boost::make_shared<FenVisHitLabelQualifier>(label)); });
///     ... draw the thing ...
///
/// Draw from arrays or display lists inside it, never with glBegin.
class FenVisPickScope {
public:
    /// @param what  called only when picking; returns the `FenVisHitProperty` of the thing
    template <class MakeProperty>
    FenVisPickScope(FenVisOglSelectWeakPtr select, FenVisHitTable& table, MakeProperty const& what)
        : _select(select)
    {
        if (!_select) return;
        quint32 const name = _select.next();
        if (name != FenVisHitRecord::INVALID_NAME) table.insert(name, what());
    }
    ~FenVisPickScope() { _select.reset(); }
    FenVisPickScope(FenVisPickScope const&) = delete;
    FenVisPickScope& operator=(FenVisPickScope const&) = delete;

private:
    FenVisOglSelectWeakPtr _select;
};
