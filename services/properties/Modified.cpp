#include "services/properties/Modified.h"

#include <vector>

namespace {

quint64 presentTime = 1;

} // namespace

FenModified::FenModified(FenModifiedGroup& group)
    : _group(&group)
    , _stamp(presentTime)
{
}

FenModified::FenModified(FenModified const& other)
    : _group(other._group)
    , _stamp(presentTime)
{
}

FenModified::~FenModified()
{
    _life.end();
    if (_sources)
        for (FenModified const* source : *_sources) source->_depend->_dependants.erase(this);
    if (!_depend) return;
    // The links go first: what depends in a circle would come back to this object.
    std::unordered_set<FenModified const*> const dependants = std::move(_depend->_dependants);
    for (FenModified const* dependant : dependants) dependant->_sources->erase(this);
    for (FenModified const* dependant : dependants) dependant->spread();
}

FenModified::Depend& FenModified::depend() const
{
    if (!_depend) _depend.reset(new Depend(*this));
    return *_depend;
}

quint64 FenModified::now() { return presentTime; }

void FenModified::seen(quint64 stamp)
{
    if (stamp == presentTime) ++presentTime;
}

void FenModified::spread() const
{
    std::vector<FenModified const*> waiting;
    FenModified const* object = this;
    for (;;) {
        for (; object && object->_stamp != presentTime; object = object->_above) {
            object->_stamp = presentTime;
            if (!object->_depend) continue;
            auto const& dependants = object->_depend->_dependants;
            waiting.insert(waiting.end(), dependants.begin(), dependants.end());
        }
        if (waiting.empty()) return;
        object = waiting.back();
        waiting.pop_back();
    }
}

void FenModified::Depend::insert(FenModified const& dependant)
{
    if (&dependant == &_source || !_dependants.insert(&dependant).second) return;
    if (!dependant._sources) dependant._sources.reset(new std::unordered_set<FenModified const*>);
    dependant._sources->insert(&_source);
    // A source that carries the present time would not tell anybody again.
    if (dependant._stamp != presentTime) seen(_source._stamp);
}

void FenModified::Depend::erase(FenModified const& dependant)
{
    if (_dependants.erase(&dependant) > 0) dependant._sources->erase(&_source);
}
