#include "services/properties/ChildList.h"

#include "services/properties/Properties.h"

#include <bit>

namespace fen {

namespace {

unsigned const shortList = 16; ///< up to here names are compared one by one
unsigned const movedList = 64; ///< up to here followers move up when a child goes

unsigned lowestBit(unsigned p) { return p & (0U - p); }

} // namespace

FenProperties* ChildList::at(unsigned index) const
{
    if (index >= _count) return nullptr;
    if (_counts.empty()) return _slots[index];
    // Descends to the last position before which `index` children lie.
    unsigned position = 0;
    unsigned const end = unsigned(_counts.size());
    for (unsigned step = std::bit_floor(end - 1); step > 0; step /= 2) {
        unsigned const next = position + step;
        if (next >= end || _counts[next] > index) continue;
        index -= _counts[next];
        position = next;
    }
    return _slots[position];
}

FenProperties* ChildList::find(QString const& name) const
{
    if (!_names.isEmpty()) return _names.value(name);
    for (FenProperties* child : _slots)
        if (child && child->_name == name) return child;
    return nullptr;
}

void ChildList::append(FenProperties& child)
{
    child._slot = unsigned(_slots.size());
    _slots.push_back(&child);
    ++_count;
    if (!_counts.empty()) _counts.push_back(partialCount(unsigned(_slots.size())));
    if (!_names.isEmpty()) {
        _names.insert(child._name, &child);
    } else if (_count > shortList) {
        for (FenProperties* each : _slots)
            if (each) _names.insert(each->_name, each);
    }
}

void ChildList::remove(FenProperties& child)
{
    if (!_names.isEmpty()) _names.remove(child._name);
    unsigned const slot = child._slot;
    --_count;
    if (slot + 1 == _slots.size() && _counts.empty()) {
        _slots.pop_back();
    } else if (_slots.size() <= movedList || _count < _slots.size() / 2) {
        _slots[slot] = nullptr;
        closeUp();
    } else {
        openHole(slot);
    }
}

void ChildList::renamed(FenProperties& child, QString const& oldName)
{
    if (_names.isEmpty()) return;
    _names.remove(oldName);
    _names.insert(child._name, &child);
}

void ChildList::closeUp()
{
    std::erase(_slots, nullptr);
    for (unsigned i = 0; i < _slots.size(); ++i) _slots[i]->_slot = i;
    _counts.clear();
}

void ChildList::openHole(unsigned slot)
{
    if (_counts.empty()) {
        _counts.assign(1, 0U);
        for (unsigned p = 1; p <= _slots.size(); ++p) _counts.push_back(partialCount(p));
    }
    _slots[slot] = nullptr;
    for (unsigned p = slot + 1; p < _counts.size(); p += lowestBit(p)) --_counts[p];
}

unsigned ChildList::partialCount(unsigned p) const
{
    unsigned sum = _slots[p - 1] ? 1 : 0;
    for (unsigned q = p - 1; q > p - lowestBit(p); q -= lowestBit(q)) sum += _counts[q];
    return sum;
}

} // namespace fen
