#include "host/file/SceneTypes.h"

#include "scene/VisAnnotation.h"
#include "scene/VisLightList.h"
#include "services/chartdata/ChartAxis.h"
#include "services/chartdata/ChartAxisPair.h"

#include <memory>
#include <typeinfo>

namespace {

/// Nodes that hosts add themselves, so that the list's factory does not make them.
std::unique_ptr<FenVisualization> makeHostNode(FenModifiedGroup& group, QString const& type)
{
    if (type == FenVisList::typeString) return std::make_unique<FenVisList>(group, QStringLiteral("node"));
    if (type == FenVisLightList::typeString) return std::make_unique<FenVisLightList>(group);
    if (type == FenVisAnnotation::typeString) return std::make_unique<FenVisAnnotation>(group);
    return nullptr;
}

FenProperties* insertNamed(FenProperties& parent, std::unique_ptr<FenProperties> child, QString const& name)
{
    child->rename(name);
    return parent.insert(child.get(), false) ? child.release() : nullptr;
}

FenProperties* makeNode(FenVisList& list, QString const& name, QString const& type)
{
    static QStringList const known = FenVisList::creatableTypes();
    if (known.contains(type)) return static_cast<FenProperties&>(list).child(name, type);
    std::unique_ptr<FenProperties> node = makeHostNode(list.group(), type);
    if (!node) {
        node = std::make_unique<FenProperties>(list.group());
        node->setType(type);
    }
    return insertNamed(list, std::move(node), name);
}

FenProperties* makeAxis(FenChartAxisPair& pair, QString const& name, QString const& type, int place)
{
    bool const known = type == FenChartAxisContinuous::typeString || type == FenChartAxisDiscrete::typeString;
    if (place < 0) place = pair.first() ? 1 : 0;
    bool const taken = place == 0 ? pair.first() != nullptr : pair.second() != nullptr;
    if (!known || taken) return nullptr;
    return place == 0 ? pair.setFirst(name, type) : pair.setSecond(name, type);
}

/// A list of nodes of any type; the list of lights has lights only.
bool isNodeList(FenProperties const& item)
{
    return dynamic_cast<FenVisList const*>(&item) && !dynamic_cast<FenVisLightList const*>(&item);
}

} // namespace

fen::scenetypes::Items fen::scenetypes::itemsOf(FenProperties const& parent)
{
    bool const byType = isNodeList(parent) || typeid(parent) == typeid(FenProperties)
        || dynamic_cast<FenChartAxisPair const*>(&parent);
    return byType ? Items::ByType : Items::OfOneClass;
}

bool fen::scenetypes::isStandIn(FenProperties const& node)
{
    return typeid(node) == typeid(FenProperties) && dynamic_cast<FenVisList const*>(node.parent());
}

FenProperties* fen::scenetypes::makeItem(FenProperties& parent, QString const& name, QString const& type,
                                         int place)
{
    if (parent.at(name)) return nullptr;
    if (isNodeList(parent)) return makeNode(static_cast<FenVisList&>(parent), name, type);
    if (auto* const pair = dynamic_cast<FenChartAxisPair*>(&parent))
        return makeAxis(*pair, name, type, place);
    return parent.child(name, type);
}

int fen::scenetypes::placeOf(FenProperties const& parent, unsigned index)
{
    auto const* const pair = dynamic_cast<FenChartAxisPair const*>(&parent);
    if (!pair) return -1;
    int const place = pair->at(index) == pair->second() ? 1 : 0;
    return place == int(index) ? -1 : place;
}
