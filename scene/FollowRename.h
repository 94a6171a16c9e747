#pragma once

#include "services/properties/PropertyAdaptor.h"

#include <QStringList>

#include <algorithm>

namespace fen {

/// A list of sibling names keeps meaning the same siblings when one of them is renamed.
inline void followRename(FenPropertyAdaptor<QStringList>& names, QString const& oldName,
                         QString const& newName)
{
    if (oldName.isEmpty() || !names.get().contains(oldName)) return;
    QStringList renamed = names.get();
    std::replace(renamed.begin(), renamed.end(), oldName, newName);
    names.set(renamed);
}

/// The same for one name.
inline void followRename(FenPropertyAdaptor<QString>& name, QString const& oldName, QString const& newName)
{
    if (!oldName.isEmpty() && name.get() == oldName) name.set(newName);
}

} // namespace fen
