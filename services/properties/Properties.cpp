#include "services/properties/Properties.h"

#include "services/properties/ChildList.h"
#include "services/properties/ViewPtr.h"

#include <vector>

FenProperties::FenProperties(FenModifiedGroup& group)
    : FenModified(group)
    , _string(this)
{
}

FenProperties::FenProperties(FenProperties const& other)
    : FenModified(other)
    , _name(other._name)
    , _type(other._type)
    , _string(other._string)
{
    _string._owner = this;
}

FenProperties& FenProperties::operator=(FenProperties const& other)
{
    setType(other._type);
    _string = other._string;
    return *this;
}

FenProperties::~FenProperties()
{
    if (_parent) _parent->detach(*this);
    deleteOwned();
}

void FenProperties::setType(QString const& type)
{
    if (_type == type) return;
    _type = type;
    modify();
}

unsigned FenProperties::size() const { return _children ? _children->size() : 0; }

FenProperties* FenProperties::at(unsigned index) { return _children ? _children->at(index) : nullptr; }

FenProperties const* FenProperties::at(unsigned index) const
{
    return _children ? _children->at(index) : nullptr;
}

FenProperties* FenProperties::at(QString const& name) { return _children ? _children->find(name) : nullptr; }

FenProperties const* FenProperties::at(QString const& name) const
{
    return _children ? _children->find(name) : nullptr;
}

FenProperties* FenProperties::child(QString const& name, QString const& type)
{
    if (FenProperties* const found = at(name)) return found;
    std::unique_ptr<FenProperties> made(makeChild(name, type));
    if (!made || !insert(made.get(), false)) return nullptr;
    return made.release();
}

FenProperties const* FenProperties::child(QString const& name, QString const&) const { return at(name); }

QString FenProperties::getString(QString const& key, QString const& def) const
{
    QString value;
    getValue(key, value, def);
    return value;
}

bool FenProperties::insert(FenProperties* child, bool nested)
{
    if (!child || child->_parent || at(child->_name) || child->hasBelow(*this)) return false;
    if (!_children) _children = std::make_unique<fen::ChildList>();
    _children->append(*child);
    child->_parent = this;
    child->_nested = nested;
    child->setAbove(this);
    modify();
    return true;
}

bool FenProperties::remove(FenProperties* child) { return child && detach(*child); }

bool FenProperties::erase(FenProperties* child)
{
    if (!child) return false;
    bool const nested = child->_nested;
    if (!detach(*child)) return false;
    if (!nested) delete child;
    return true;
}

bool FenProperties::rename(QString const& name)
{
    if (name == _name) return true;
    if (_parent && _parent->at(name)) return false;
    QString const oldName = _name;
    QString const newName = name; // the argument may be a text that the calls below change
    _name = newName;
    if (_parent) _parent->_children->renamed(*this, oldName);
    modify();
    if (!_parent) return true;
    // A sibling may edit the tree when it is told, so that nothing is kept from step to step.
    fen::view_ptr<FenProperties> const parent(_parent);
    for (std::size_t i = 0; parent && i < parent->_children->slots().size(); ++i) {
        FenProperties* const sibling = parent->_children->slots()[i];
        if (sibling && sibling != this) sibling->onDependentRename(oldName, newName);
    }
    return true;
}

void FenProperties::onDependentRename(QString const&, QString const&) { }

QString FenProperties::getValue(QString const& key, QString& value, QString const& def) const
{
    return _string.getValue(key, value, def);
}

QString FenProperties::setValue(QString const& key, QString const& value)
{
    return _string.setValue(key, value);
}

FenProperties* FenProperties::makeChild(QString const& name, QString const& type)
{
    FenProperties* const made = new FenProperties(group());
    made->_name = name;
    made->_type = type;
    return made;
}

bool FenProperties::detach(FenProperties& child)
{
    if (child._parent != this) return false;
    _children->remove(child);
    child._parent = nullptr;
    child._nested = false;
    child.setAbove(nullptr);
    modify();
    return true;
}

bool FenProperties::hasBelow(FenProperties const& node) const
{
    // A small subtree is searched itself, so that long chains are built in linear
    // time from the top down and from the bottom up.
    std::size_t const small = 64;
    std::vector<FenProperties const*> open{this};
    for (std::size_t i = 0; i < open.size() && open.size() <= small; ++i) {
        if (open[i] == &node) return true;
        if (!open[i]->_children) continue;
        for (FenProperties const* child : open[i]->_children->slots())
            if (child && open.size() <= small) open.push_back(child);
    }
    if (open.size() <= small) return false;
    for (FenProperties const* each = &node; each; each = each->_parent)
        if (each == this) return true;
    return false;
}

void FenProperties::deleteOwned()
{
    // Takes the whole tree below apart first, so that no destructor finds children to delete.
    std::vector<fen::view_ptr<FenProperties>> owned; // a destructor may delete others of them
    std::vector<FenProperties*> open{this};
    while (!open.empty()) {
        FenProperties* const node = open.back();
        open.pop_back();
        std::unique_ptr<fen::ChildList> const children = std::move(node->_children);
        if (!children) continue;
        for (FenProperties* child : children->slots()) {
            if (!child) continue;
            if (!child->_nested || node != this) open.push_back(child);
            if (child->_nested && node != this) {
                if (!node->_children) node->_children = std::make_unique<fen::ChildList>();
                node->_children->append(*child);
                continue;
            }
            if (!child->_nested) owned.emplace_back(child);
            child->_parent = nullptr;
            child->setAbove(nullptr);
        }
    }
    for (fen::view_ptr<FenProperties> const& child : owned) delete child.get();
}
