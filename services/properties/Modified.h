#pragma once

#include "../logging/Export.h"
#include "ViewPtr.h"

#include <QtGlobal>

#include <memory>
#include <unordered_set>

class FenModifiedGroup;

/// An object whose changes can be watched.
///
/// Each object carries a stamp, the time of its last change on a clock that all
/// objects share. A change stamps the object, everything above it in its tree
/// and everything that depends on any of these, and stops where it meets the
/// present time: whatever carries it has told its observers already. So between
/// two looks of a watcher a second change costs one comparison, cycles end by
/// themselves, and asking a watcher is comparing two numbers.
///
/// The clock ticks only when a watcher has seen the present time, or when an
/// object changed at the present time gets a new dependant.
class FENVIS_EXPORT FenModified {
public:
    /// The objects that depend on one object: they change when it does.
    class FENVIS_EXPORT Depend {
    public:
        Depend(Depend const&) = delete;
        Depend& operator=(Depend const&) = delete;

        /// From now on a change of this object is a change of `dependant` too.
        /// Registering does not change it. A second insert does nothing.
        void insert(FenModified const& dependant);
        /// Ends what `insert` began; does nothing for an object that does not depend.
        void erase(FenModified const& dependant);

    private:
        friend class FenModified;
        explicit Depend(FenModified const& source)
            : _source(source)
        {
        }

        FenModified const& _source;
        std::unordered_set<FenModified const*> _dependants;
    };

    explicit FenModified(FenModifiedGroup& group);
    /// A copy belongs to the same group and starts unobserved: no dependants, nothing above it.
    FenModified(FenModified const& other);
    /// Keeps group, observers and stamp: what is assigned and whether that is a
    /// change is the derived class's business.
    FenModified& operator=(FenModified const&) { return *this; } // NOLINT(bugprone-unhandled-self-assignment)
    /// Tells the dependants of the object that it changed, and ends all links to and from it.
    virtual ~FenModified();

    /// Records a change of this object and tells all that observe it.
    void modify()
    {
        if (_stamp != now()) spread();
    }
    /// The objects that change with this one. They unregister when they are destroyed.
    Depend& depend() const;
    FenModifiedGroup& group() const { return *_group; }

    /// Time of the last change here, below, or in what this object depends on; never 0.
    quint64 stamp() const { return _stamp; }
    /// Lets pointers know when this object is gone; for `fen::view_ptr` and watchers.
    fen::LifeHandle const& life() const
    {
        _life.begin();
        return _life;
    }

protected:
    /// Names the object that changes whenever this one does: the tree's parent, or null.
    void setAbove(FenModified const* above) { _above = above; }
    FenModified const* above() const { return _above; }

private:
    friend class FenModifiedWatcher;
    static quint64 now();
    /// Called when somebody takes note of a stamp: later changes get a later one.
    static void seen(quint64 stamp);
    void spread() const;

    FenModifiedGroup* _group;
    FenModified const* _above = nullptr;
    mutable quint64 _stamp;
    mutable fen::LifeHandle _life;
    mutable std::unique_ptr<Depend> _depend;
    mutable std::unique_ptr<std::unordered_set<FenModified const*>> _sources;
};
