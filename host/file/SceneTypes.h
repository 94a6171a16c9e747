#pragma once

#include "host/scene/Scene.h"

#include "scene/VisLightList.h"
#include "scene/VisViewpoint.h"

#include <QString>

#include <array>
#include <type_traits>
#include <utility>

/// What a scene file has to know about the classes of the tree.
namespace fen::scenetypes {

/// The trees of a scene and their members of the file, in the order in which they are written.
template <class Scene>
auto treesOf(Scene& scene)
{
    using Node = std::conditional_t<std::is_const_v<Scene>, FenProperties const, FenProperties>;
    return std::array<std::pair<char const*, Node*>, 3>{
        {{"viewpoint", &scene.viewpoint()}, {"lights", &scene.lights()}, {"scene", &scene.root()}}};
}

/// How a node comes by the children that it owns.
enum class Items {
    ByType, ///< each is made by its type
    OfOneClass ///< the node knows the class
};
Items itemsOf(FenProperties const& parent);

/// True for a child that stands for one of an unknown type.
bool isStandIn(FenProperties const& node);

/// Appends a child that the parent owns.
/// @param place  of an axis within its pair, from 0; -1: the next free one
/// @return null when there is no place for it. A child of an unknown type is a stand-in that is
///     neither drawn nor asked, where the parent takes such; else null
FenProperties* makeItem(FenProperties& parent, QString const& name, QString const& type, int place = -1);

/// Place of an axis within its pair, where it cannot be told from the order of the children; else -1.
int placeOf(FenProperties const& parent, unsigned index);

} // namespace fen::scenetypes
