#include "framework/Visualization.h"

#include "services/opengl/GlWrappers.h"

namespace {
constexpr int usualNames = 10; // pick names that most nodes get by with
}

FenVisualization::FenVisualization(FenModifiedGroup& group)
    : FenProperties(group)
    , enabled(*this, "enabled", false, QString())
    , lighting(*this, "lighting", true, QString())
    , layer(*this, "layer", 0, QString())
    , thumbnail(*this, "thumnbnail", true, QString()) // kept as it was always written
    , status(*this, "status", QString(), QString())
    , lineColor(*this, "lineColor", Qt::lightGray, QString())
    , fillColor(*this, "fillColor", Qt::transparent, QString())
    , selectable(*this, "selectable", false, QString())
    , _watcher(this)
{
    _hitProperties.reserve(usualNames);
}

FenVisualization::FenVisualization(FenVisualization const& other)
    : FenProperties(other)
    , enabled(*this, other.enabled)
    , lighting(*this, other.lighting)
    , layer(*this, other.layer)
    , thumbnail(*this, other.thumbnail)
    , status(*this, other.status)
    , lineColor(*this, other.lineColor)
    , fillColor(*this, other.fillColor)
    , selectable(*this, other.selectable)
    , _hitProperties(other._hitProperties)
    , _watcher(this)
{
    _watcher.touch();
}

FenVisualization::~FenVisualization() = default;

FenOglViewport FenVisualization::getDataViewport() const { return glGetViewport(); }

FenModifiedWatcher& FenVisualization::watcher() { return _watcher; }

FenVisHitProperty FenVisualization::hitProperty(quint32 name) const
{
    auto const found = _hitProperties.constFind(name);
    if (found == _hitProperties.constEnd() || !found->defined()) return FenVisHitProperty();
    return *found;
}
