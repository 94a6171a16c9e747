#include "framework/VisList.h"

#include "axes/VisColorMap.h"
#include "framework/VisPassiveNode.h"
#include "services/logging/Checks.h"
#include "services/math/BoundingBox.h"

namespace {

// Fixed line marks of the traces, and a logged text that is kept as it is.
constexpr char const* constructorMark = " @line 179";
constexpr char const* destructorMark = " @line 185";
constexpr char const* wrongTypeText = "c && \"Type is incorrect\"";

// Type of the nodes above this layer that a list looks up among its children.
constexpr char const* planeType = "visualization.plane";
constexpr char const* colorMapKey = "colorMap";

/// What a failed look-up refers to: a node that does nothing and belongs to no tree.
FenVisualization& placeholder()
{
    // Never destroyed, so that it can be referred to until the very end.
    static FenVisualization& node = *new FenVisPassiveNode(*new FenModifiedGroup);
    return node;
}

FenVisualization* asNode(FenProperties* child) { return dynamic_cast<FenVisualization*>(child); }

FenVisualization const* asNode(FenProperties const* child)
{
    return dynamic_cast<FenVisualization const*>(child);
}

bool isColorMap(FenVisualization const* node) { return dynamic_cast<FenVisColorMap const*>(node); }

bool isPlane(FenVisualization const* node) { return node && node->type() == QLatin1String(planeType); }

} // namespace

QString const FenVisList::typeString = QStringLiteral("visualization");

FenVisList::FenVisList(FenModifiedGroup& group, QString const& defaultChildName)
    : FenVisualization(group)
    , _colorMapNames{FenModifiedWatcher(this), QStringList()}
    , _planeNames{FenModifiedWatcher(this), QStringList()}
    , _defaultChildName(defaultChildName)
{
    FENVIS_TRACE(constructorMark);
    setType(typeString);
}

FenVisList::FenVisList(FenVisList const& other)
    : FenVisualization(other)
    , _colorMapNames{FenModifiedWatcher(this), other._colorMapNames.names}
    , _planeNames{FenModifiedWatcher(this), other._planeNames.names}
    , _defaultChildName(other._defaultChildName)
    , _order(other._order)
{
    _colorMapNames.watcher.touch();
    _planeNames.watcher.touch();
}

FenVisList::~FenVisList() { FENVIS_TRACE(destructorMark); }

bool FenVisList::insert(FenVisualization* node, bool nested)
{
    if (!node || node == &placeholder()) return false;
    if (node->name().isEmpty()) node->rename(_defaultChildName);
    return insert(static_cast<FenProperties*>(node), nested);
}

bool FenVisList::insert(std::nullptr_t, bool) { return false; }

FenVisualization& FenVisList::child(QString const& name, QString const& type)
{
    FenVisualization* const c = asNode(FenVisualization::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : placeholder();
}

FenVisualization const& FenVisList::child(QString const& name, QString const& type) const
{
    FenVisualization const* const c = asNode(FenVisualization::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : placeholder();
}

FenVisualization* FenVisList::at(unsigned int i) { return asNode(FenVisualization::at(i)); }
FenVisualization const* FenVisList::at(unsigned int i) const { return asNode(FenVisualization::at(i)); }
FenVisualization* FenVisList::at(QString const& name) { return asNode(FenVisualization::at(name)); }
FenVisualization const* FenVisList::at(QString const& name) const
{
    return asNode(FenVisualization::at(name));
}
FenVisualization* FenVisList::front() { return asNode(FenVisualization::front()); }
FenVisualization const* FenVisList::front() const { return asNode(FenVisualization::front()); }
FenVisualization* FenVisList::back() { return asNode(FenVisualization::back()); }
FenVisualization const* FenVisList::back() const { return asNode(FenVisualization::back()); }

void FenVisList::colorMapList(QStringList& first, QStringList& second) const
{
    for (unsigned int i = 0; i < size(); ++i) {
        if (!isColorMap(at(i))) continue;
        second.append(at(i)->name());
        first.append(at(i)->name());
    }
}

QStringList const& FenVisList::listColorMap() const { return namesOf(_colorMapNames, isColorMap); }

QStringList const& FenVisList::listPlane() const { return namesOf(_planeNames, isPlane); }

QStringList const& FenVisList::namesOf(NameCache& cache, bool (*listed)(FenVisualization const*)) const
{
    if (!cache.watcher.modified()) return cache.names;
    cache.names.clear();
    for (unsigned int i = 0; i < size(); ++i) {
        if (listed(at(i))) cache.names.append(at(i)->name());
    }
    cache.watcher.reset();
    return cache.names;
}

bool FenVisList::colorMapping() const
{
    for (unsigned int i = 0; i < size(); ++i) {
        FenVisualization const* const plane = at(i);
        if (!isPlane(plane) || !plane->enabled.get()) continue;
        FenVisualization const* const map = at(plane->getString(colorMapKey, QString()));
        if (isColorMap(map) && map->enabled.get()) return true;
    }
    return false;
}

Kes::Math::BoundingBox FenVisList::boundingBox() const
{
    Kes::Math::BoundingBox box;
    for (unsigned int i = 0; i < size(); ++i) {
        if (FenVisualization const* const node = at(i)) box += node->boundingBox();
    }
    return box;
}
