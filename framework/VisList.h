#pragma once

#include "../services/logging/Export.h"
#include "../services/properties/ViewPtr.h"
#include "Visualization.h"

#include <QStringList>

#include <cstddef>
#include <vector>

/// Container node: owns other nodes, makes them from their type strings, and
/// drives all passes over them in layer order.
///
/// The property tree owns the children. The visiting order is rebuilt by each
/// update pass and only points at them: insertions, removals, enabling and
/// layer changes show in the other passes after the next update. A child that
/// is destroyed in between is skipped.
class FENVIS_EXPORT FenVisList : public FenVisualization {
public:
    static QString const typeString;

    /// @param defaultChildName  given to children that are inserted without a name
    FenVisList(FenModifiedGroup& group, QString const& defaultChildName);
    /// Copies no children; the visiting order keeps pointing at those of `other`
    /// until the next update.
    FenVisList(FenVisList const& other);
    FenVisList& operator=(FenVisList const& other) = default;
    ~FenVisList() override;

    /// As the tree does; but lists lie in each other 64 deep at most, since passes recurse: false, and
    /// logged, below that.
    bool insert(FenProperties* child, bool nested) override;
    /// Names an unnamed node, then inserts it.
    /// @return false for null and where the tree refuses
    bool insert(FenVisualization* node, bool nested);
    bool insert(std::nullptr_t, bool nested);

    /// The child of that name, made when absent. When there is none and none can
    /// be made, the failure is logged and a placeholder returned that belongs to
    /// no tree: nobody may use it, and what is set on it is gone at the next failure.
    FenVisualization& child(QString const& name, QString const& type);
    /// The same without making one.
    FenVisualization const& child(QString const& name, QString const& type) const;

    /// Children by index or name; null when absent or not a node.
    FenVisualization* at(unsigned int i);
    FenVisualization const* at(unsigned int i) const;
    FenVisualization* at(QString const& name);
    FenVisualization const* at(QString const& name) const;
    FenVisualization* operator[](unsigned int i) { return at(i); }
    FenVisualization const* operator[](unsigned int i) const { return at(i); }
    FenVisualization* operator[](QString const& name) { return at(name); }
    FenVisualization const* operator[](QString const& name) const { return at(name); }
    FenVisualization* front();
    FenVisualization const* front() const;
    FenVisualization* back();
    FenVisualization const* back() const;

    /// Appends the names of all colour-map children to both lists.
    void colorMapList(QStringList& first, QStringList& second) const;
    /// Names of all colour-map children, enabled or not.
    QStringList const& listColorMap() const;
    /// Names of all plane children, enabled or not.
    QStringList const& listPlane() const;
    /// True when an enabled plane names an enabled colour map of this list.
    bool colorMapping() const;
    /// Types that `child` can make.
    static QStringList creatableTypes();

    bool getViewport(FenOglViewport const& parent, FenOglViewport& own) const override;
    void update(DrawContext const& context) override;
    void resize(DrawContext const& context) override;
    void draw3d(DrawContext const& context) const override;
    void draw2d(DrawContext const& context) const override;
    FenVisHitRecordList select3d(SelectContext const& context) const override;
    FenVisHitRecordList select2d(SelectContext const& context) const override;
    /// Union over all children, disabled ones too [scene].
    Kes::Math::BoundingBox boundingBox() const override;

protected:
    /// How the 3D passes reach each child; hosts may put something around it.
    virtual void drawChild3d(FenVisualization const& child, DrawContext const& context) const;
    virtual FenVisHitRecordList selectChild3d(FenVisualization const& child,
                                              SelectContext const& context) const;

    FenProperties* makeChild(QString const& name, QString const& type) override;

private:
    enum Space { Flat, Solid }; // of a pass: 2D or 3D

    /// Names that are collected again only after a change below the list.
    struct NameCache {
        FenModifiedWatcher watcher;
        QStringList names;
    };

    QStringList const& namesOf(NameCache& cache, bool (*listed)(FenVisualization const*)) const;
    typedef fen::view_ptr<FenVisualization> Child;
    template <class Context, class Visit>
    void forEachVisited(Context const& context, Space space, Visit const& visit) const;

    mutable NameCache _colorMapNames;
    mutable NameCache _planeNames;
    QString _defaultChildName;
    std::vector<Child> _order; // enabled, ascending layer
};
