#pragma once

#include "PropertyAdaptor.h"

#include <QStringList>

/// Properties that name other nodes follow when those are renamed. A node with such a property calls
/// `fen::followRename` for each of them in its `onDependentRename`; an empty name refers to nothing.
namespace fen {

/// @return whether the property named the node
FENVIS_EXPORT bool followRename(FenPropertyAdaptor<QString>& reference, QString const& oldName,
                                QString const& newName);
/// The same for each entry of a list of names.
FENVIS_EXPORT bool followRename(FenPropertyAdaptor<QStringList>& references, QString const& oldName,
                                QString const& newName);

} // namespace fen
