#pragma once

#include "../logging/Export.h"
#include "Gl.h"

#include <memory>
#include <vector>

namespace fen {

/// The OpenGL names (textures, lists) of one context.
///
/// A name may only be deleted while its context is current and lives. Names
/// released at another time wait here until their context's next scope; once
/// the context is gone or replaced (`forget`) they are dropped, never deleted.
class FENVIS_EXPORT GlNames {
public:
    enum Kind { Texture, List };

    GlNames() = default;
    GlNames(GlNames const&) = delete;
    GlNames& operator=(GlNames const&) = delete;

    /// Changes when the context is gone: names made before mean nothing any more.
    unsigned generation() const { return _generation; }
    /// The context is gone or replaced.
    void forget();
    /// Deletes what waits; the context must be current.
    void deleteReleased();

    /// The names of the context that calls go to: those of the innermost
    /// GlNamesScope, else `outside()`.
    static std::shared_ptr<GlNames> const& current();
    /// Names made outside of any scope; they are deleted as soon as they are released.
    static std::shared_ptr<GlNames> const& outside();

private:
    friend class GlName;
    friend class GlNamesScope;
    struct Name {
        Kind kind;
        GLuint name;
    };
    void release(Name const& name, unsigned generation);
    static std::shared_ptr<GlNames>& mutableCurrent();

    unsigned _generation = 0;
    std::vector<Name> _released;
};

/// Says that the context of these names is current until the scope ends.
class FENVIS_EXPORT GlNamesScope {
public:
    explicit GlNamesScope(std::shared_ptr<GlNames> names);
    ~GlNamesScope();
    GlNamesScope(GlNamesScope const&) = delete;
    GlNamesScope& operator=(GlNamesScope const&) = delete;

private:
    std::shared_ptr<GlNames> _previous;
};

/// One name, released with its last holder.
class FENVIS_EXPORT GlName {
public:
    /// Takes a name of the context that is current now.
    GlName(GlNames::Kind kind, GLuint name);
    ~GlName();
    GlName(GlName const&) = delete;
    GlName& operator=(GlName const&) = delete;

    /// 0 when there is none or its context is gone.
    GLuint get() const { return _names->generation() == _generation ? _name.name : 0; }

private:
    GlNames::Name _name;
    std::shared_ptr<GlNames> _names;
    unsigned _generation;
};

} // namespace fen
