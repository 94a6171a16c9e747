#include "services/opengl/GlNames.h"

namespace fen {

namespace {

void deleteName(GlNames::Kind kind, GLuint name)
{
    if (kind == GlNames::Texture)
        glDeleteTextures(1, &name);
    else
        glDeleteLists(name, 1);
}

} // namespace

void GlNames::release(Name const& name, unsigned generation)
{
    if (generation != _generation || name.name == 0) return;
    if (this == current().get() || this == outside().get())
        deleteName(name.kind, name.name);
    else
        _released.push_back(name);
}

void GlNames::deleteReleased()
{
    for (Name const& each : _released) deleteName(each.kind, each.name);
    _released.clear();
}

void GlNames::forget()
{
    ++_generation;
    _released.clear();
}

std::shared_ptr<GlNames> const& GlNames::outside()
{
    static std::shared_ptr<GlNames> const names = std::make_shared<GlNames>();
    return names;
}

std::shared_ptr<GlNames>& GlNames::mutableCurrent()
{
    static std::shared_ptr<GlNames> names = outside();
    return names;
}

std::shared_ptr<GlNames> const& GlNames::current() { return mutableCurrent(); }

GlNamesScope::GlNamesScope(std::shared_ptr<GlNames> names)
    : _previous(GlNames::current())
{
    names->deleteReleased();
    GlNames::mutableCurrent() = std::move(names);
}

GlNamesScope::~GlNamesScope() { GlNames::mutableCurrent() = std::move(_previous); }

GlName::GlName(GlNames::Kind kind, GLuint name)
    : _name{kind, name}
    , _names(GlNames::current())
    , _generation(_names->generation())
{
}

GlName::~GlName() { _names->release(_name, _generation); }

} // namespace fen
