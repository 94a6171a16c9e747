#pragma once

#include "../logging/Export.h"

/// The group that a set of property trees belongs to.
///
/// Every object of a tree holds a pointer to its group, so the group must
/// outlive them. While it is locked, no property trusts its cached value and
/// every read goes to the store.
class FENVIS_EXPORT FenModifiedGroup {
public:
    FenModifiedGroup() = default;
    FenModifiedGroup(FenModifiedGroup const&) = delete;
    FenModifiedGroup& operator=(FenModifiedGroup const&) = delete;

    /// Locks once more; locks nest.
    void lock() { ++_locks; }
    /// Takes back one lock; logs a failed check when there is none.
    void unlock();
    bool locked() const { return _locks > 0; }

private:
    unsigned _locks = 0;
};
