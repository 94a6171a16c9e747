#include "host/edit/TreeSnapshot.h"

#include "host/edit/UndoPropertyEdit.h"
#include "services/chartdata/ChartVariableList.h"
#include "services/properties/Properties.h"

#include <QStringList>

namespace {

int const greatestDepth = 64;

} // namespace

fen::TreeSnapshot::TreeSnapshot(FenProperties& node) { add(node, 0); }

void fen::TreeSnapshot::add(FenProperties& item, int depth)
{
    if (depth > greatestDepth || dynamic_cast<FenChartVariableList*>(&item)) return;
    Item texts{&item, {}};
    QStringList const keys = item.string().keys();
    for (QString const& key : keys) texts.texts.emplace_back(key, item.getString(key, QString()));
    _items.push_back(std::move(texts));
    for (unsigned i = 0; i < item.size(); ++i) add(*item.at(i), depth + 1);
}

std::vector<QString> fen::TreeSnapshot::noteChanges(FenUndoPropertyEdit& edit) const
{
    std::vector<QString> changed;
    for (Item const& entry : _items) {
        FenProperties* const item = entry.item.get();
        if (!item) continue;
        for (auto const& [key, before] : entry.texts) {
            if (item->getString(key, QString()) == before) continue;
            edit.noteChange(*item, key, before);
            changed.push_back(key);
        }
    }
    return changed;
}
