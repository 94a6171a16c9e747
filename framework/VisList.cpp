#include "framework/VisList.h"

#include "axes/VisColorMap.h"
#include "framework/Placeholder.h"
#include "framework/VisPassiveNode.h"
#include "scene/VisPlane.h"
#include "services/logging/Checks.h"
#include "services/math/BoundingBox.h"

#include <utility>
#include <vector>

namespace {

constexpr int mostLevels = 64; // of lists in lists

// Fixed line marks of the traces, and a logged text that is kept as it is.
constexpr char const* constructorMark = " @line 179";
constexpr char const* destructorMark = " @line 185";
constexpr char const* wrongTypeText = "c && \"Type is incorrect\"";
constexpr char const* tooDeepText = "fits && \"lists are nested more than 64 deep\"";
constexpr char const* tooDeepMark = "@line 141";

/// Levels of lists at and above one.
int levelsAbove(FenProperties const* list)
{
    int levels = 0;
    for (; dynamic_cast<FenVisList const*>(list); list = list->parent()) ++levels;
    return levels;
}

/// Levels of lists from a node downwards; no more than `enough` of them are looked for.
int levelsBelow(FenProperties const* node, int enough)
{
    std::vector<FenProperties const*> level{node};
    for (int levels = 0;; ++levels) {
        std::erase_if(level, [](auto const* each) { return !dynamic_cast<FenVisList const*>(each); });
        if (level.empty() || levels == enough) return levels;
        std::vector<FenProperties const*> next;
        for (FenProperties const* const list : level)
            for (unsigned int i = 0; i < list->size(); ++i) next.push_back(list->at(i));
        level = std::move(next);
    }
}

FenVisualization* asNode(FenProperties* child) { return dynamic_cast<FenVisualization*>(child); }

FenVisualization const* asNode(FenProperties const* child)
{
    return dynamic_cast<FenVisualization const*>(child);
}

bool isColorMap(FenVisualization const* node) { return dynamic_cast<FenVisColorMap const*>(node); }

bool isPlane(FenVisualization const* node) { return dynamic_cast<FenVisPlane const*>(node); }

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
    if (!node || node == &fen::placeholder<FenVisPassiveNode>()) return false;
    if (node->name().isEmpty()) node->rename(_defaultChildName);
    return insert(static_cast<FenProperties*>(node), nested);
}

bool FenVisList::insert(FenProperties* child, bool nested)
{
    int const room = mostLevels - levelsAbove(this);
    bool const fits = levelsBelow(child, room + 1) <= room;
    return FENVIS_WARN_UNLESS(fits, tooDeepText, tooDeepMark) && FenVisualization::insert(child, nested);
}

bool FenVisList::insert(std::nullptr_t, bool) { return false; }

FenVisualization& FenVisList::child(QString const& name, QString const& type)
{
    FenVisualization* const c = asNode(FenVisualization::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : fen::freshPlaceholder<FenVisPassiveNode>();
}

FenVisualization const& FenVisList::child(QString const& name, QString const& type) const
{
    FenVisualization const* const c = asNode(FenVisualization::child(name, type));
    return FENVIS_ENSURE(c, wrongTypeText) ? *c : fen::freshPlaceholder<FenVisPassiveNode>();
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
        auto const* const plane = dynamic_cast<FenVisPlane const*>(at(i));
        if (!plane || !plane->enabled.get()) continue;
        FenVisualization const* const map = at(plane->colorMap.get());
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
