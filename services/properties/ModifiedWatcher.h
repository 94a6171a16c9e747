#pragma once

#include "../logging/Export.h"
#include "Modified.h"

/// Tells whether an object changed since the watcher was last reset.
///
/// "Changed" covers the object, everything below it in its tree and everything
/// it depends on. A fresh watcher reports a change until its first reset; one
/// whose object is gone, or that never had one, reports none. Resetting and
/// touching are const: they note what was seen and change nothing watched.
class FENVIS_EXPORT FenModifiedWatcher {
public:
    explicit FenModifiedWatcher(FenModified const* object);
    /// Watches the same object in the same state.
    FenModifiedWatcher(FenModifiedWatcher const&) = default;
    /// Keeps its own object and touches: the values that were computed from it
    /// are as old as those of the other watcher's owner.
    FenModifiedWatcher& operator=(FenModifiedWatcher const& other);

    bool modified() const { return _life.alive() && _object->stamp() != _seen; }
    /// Takes the present state as seen.
    void reset() const;
    /// Reports a change at the next query, whether there was one or not.
    void touch() const { _seen = 0; }

private:
    fen::LifeHandle _life;
    FenModified const* _object;
    mutable quint64 _seen = 0;
};
