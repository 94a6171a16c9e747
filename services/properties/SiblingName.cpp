#include "services/properties/SiblingName.h"

namespace fen {

bool followRename(FenPropertyAdaptor<QString>& reference, QString const& oldName, QString const& newName)
{
    if (oldName.isEmpty() || reference.get() != oldName) return false;
    reference.set(newName);
    return true;
}

bool followRename(FenPropertyAdaptor<QStringList>& references, QString const& oldName, QString const& newName)
{
    QStringList names = references.get();
    if (oldName.isEmpty() || !names.contains(oldName)) return false;
    for (QString& name : names)
        if (name == oldName) name = newName;
    references.set(names);
    return true;
}

} // namespace fen
