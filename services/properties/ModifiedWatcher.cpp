#include "services/properties/ModifiedWatcher.h"

FenModifiedWatcher::FenModifiedWatcher(FenModified const* object)
    : _object(object)
{
    if (object) _life = object->life();
}

FenModifiedWatcher& FenModifiedWatcher::operator=(FenModifiedWatcher const&)
{
    touch();
    return *this;
}

void FenModifiedWatcher::reset() const
{
    if (!_life.alive()) return;
    _seen = _object->stamp();
    FenModified::seen(_seen);
}
