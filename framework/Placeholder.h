#pragma once

#include "services/properties/ModifiedGroup.h"
#include "services/properties/Properties.h"

namespace fen {

/// What a failed look-up of a `Node` refers to: it belongs to no tree and nobody may use it.
///
/// Never destroyed, so that it can be referred to until the very end.
template <class Node>
Node& placeholder()
{
    static Node& node = *new Node(*new FenModifiedGroup);
    return node;
}

/// The placeholder as it was at first, whatever was done to it since the last failure.
template <class Node>
Node& freshPlaceholder()
{
    Node& node = placeholder<Node>();
    if (node.parent()) node.parent()->remove(&node);
    while (node.size() > 0) node.erase(node.back());
    node.rename(QString());
    node = Node(node.group());
    return node;
}

} // namespace fen
