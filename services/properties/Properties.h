#pragma once

#include "Modified.h"
#include "ModifiedGroup.h"
#include "PropertiesString.h"

#include <QString>

#include <memory>

namespace fen {
class ChildList;
}

/// A node of the property tree: a name, a type, a string store and ordered children.
///
/// A child is either owned by its parent or nested, that is a by-value member of
/// the class that inserts it. Names are unique among siblings. A change of a
/// node is a change of all nodes above it. Finding a child by name, appending
/// and removing take the same time whatever their number, and a tree of any
/// depth is destroyed without recursion.
class FENVIS_EXPORT FenProperties : public FenModified {
public:
    explicit FenProperties(FenModifiedGroup& group);
    /// Copies name, type and string store; has neither parent nor children.
    /// There is no moving: moved nodes are copied, as others point at them.
    FenProperties(FenProperties const& other);
    /// Takes type and string store; a change when they differ.
    FenProperties& operator=(FenProperties const& other);
    /// Detaches the node and deletes the children it owns.
    ~FenProperties() override;

    QString const& name() const { return _name; }
    QString const& type() const { return _type; }
    void setType(QString const& type);

    unsigned size() const;
    /// A child, or null when there is none.
    FenProperties* at(unsigned index);
    FenProperties const* at(unsigned index) const;
    FenProperties* at(QString const& name);
    FenProperties const* at(QString const& name) const;
    FenProperties* operator[](unsigned index) { return at(index); }
    FenProperties const* operator[](unsigned index) const { return at(index); }
    FenProperties* operator[](QString const& name) { return at(name); }
    FenProperties const* operator[](QString const& name) const { return at(name); }
    FenProperties* front() { return at(0U); }
    FenProperties const* front() const { return at(0U); }
    FenProperties* back() { return size() > 0 ? at(size() - 1) : nullptr; }
    FenProperties const* back() const { return size() > 0 ? at(size() - 1) : nullptr; }

    /// The child of that name, made by `makeChild` and owned where it is absent.
    /// @return null when none can be made
    FenProperties* child(QString const& name, QString const& type);
    /// The child of that name, or null; makes none.
    FenProperties const* child(QString const& name, QString const& type) const;

    FenProperties* parent() const { return _parent; }
    /// True for a by-value member of its parent's class, which the tree never deletes.
    bool nested() const { return _nested; }

    FenPropertiesString& string() { return _string; }
    FenPropertiesString const& string() const { return _string; }
    /// The text of a property, or `def` where it is undefined.
    QString getString(QString const& key, QString const& def) const;

    /// Appends a child.
    /// @param nested  false: the tree takes it over and deletes it
    /// @return false, and nothing is done, for null, a child that has a parent, a name that is
    ///     taken, and a node below which this one lies
    virtual bool insert(FenProperties* child, bool nested);
    /// Detaches a child; an owned one then belongs to the caller. False for a non-child.
    virtual bool remove(FenProperties* child);
    /// Detaches a child and deletes it unless it is nested. False for a non-child.
    virtual bool erase(FenProperties* child);
    /// Gives the node another name and tells its siblings; false when one of them has it.
    virtual bool rename(QString const& name);
    /// Called when a sibling was renamed: nodes that refer to it by name follow.
    virtual void onDependentRename(QString const& oldName, QString const& newName);
    /// Text access by key. @return the stored text
    virtual QString getValue(QString const& key, QString& value, QString const& def) const;
    virtual QString setValue(QString const& key, QString const& value);

protected:
    /// Makes, without inserting it, a child for `child`; here a plain node. May return null.
    virtual FenProperties* makeChild(QString const& name, QString const& type);

private:
    friend class fen::ChildList;
    bool detach(FenProperties& child);
    bool hasBelow(FenProperties const& node) const;
    void deleteOwned();

    QString _name;
    QString _type;
    FenPropertiesString _string;
    std::unique_ptr<fen::ChildList> _children; ///< null as long as there was none
    FenProperties* _parent = nullptr;
    unsigned _slot = 0; ///< where the parent keeps it
    bool _nested = false;
};
