#pragma once

#include <type_traits>
#include <utility>

namespace fen {

/// Shared knowledge of whether an object still lives.
///
/// The object owns one handle and calls `end()` when it is destroyed; everybody
/// who points at it holds a copy. Counts plainly: all owners live on one thread.
class LifeHandle {
public:
    LifeHandle() = default;
    LifeHandle(LifeHandle const& other)
        : _state(other._state)
    {
        if (_state) ++_state->owners;
    }
    LifeHandle(LifeHandle&& other) noexcept
        : _state(std::exchange(other._state, nullptr))
    {
    }
    LifeHandle& operator=(LifeHandle other) noexcept
    {
        std::swap(_state, other._state);
        return *this;
    }
    ~LifeHandle()
    {
        if (_state && --_state->owners == 0) delete _state;
    }

    /// Starts a life; does nothing when one was started before.
    void begin()
    {
        if (!_state) _state = new State;
    }
    /// Tells every copy that the object is gone.
    void end()
    {
        if (_state) _state->alive = false;
    }
    /// False also for a handle that was never started.
    bool alive() const { return _state && _state->alive; }

private:
    struct State {
        unsigned owners = 1;
        bool alive = true;
    };
    State* _state = nullptr;
};

/// Points at an object of the change-tracked tree without owning it.
///
/// Null once the object is destroyed. `T` is a `FenModified`, const or not.
template <class T>
class view_ptr {
public:
    view_ptr(T* object = nullptr)
        : _object(object)
    {
        if (object) _life = object->life();
    }
    template <class Other>
    requires(!std::is_same_v<Other, T> && std::is_convertible_v<Other*, T*>)
        view_ptr(view_ptr<Other> const& other)
        : view_ptr(static_cast<T*>(other.get()))
    {
    }

    /// The object, or null when there is none or it is gone.
    T* get() const { return _life.alive() ? _object : nullptr; }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return _life.alive(); }

    friend bool operator==(view_ptr const& a, view_ptr const& b) { return a.get() == b.get(); }

private:
    LifeHandle _life;
    T* _object;
};

} // namespace fen
