#pragma once

#include "services/properties/ViewPtr.h"

#include <QString>

#include <utility>
#include <vector>

class FenProperties;
class FenUndoPropertyEdit;

namespace fen {

/// The texts of a node's settings at one moment, to find out what somebody changed directly.
///
/// Lists of variables are left out: what handlers change of them goes through the editor, and
/// there may be thousands.
class TreeSnapshot {
public:
    TreeSnapshot() = default;
    explicit TreeSnapshot(FenProperties& node);

    /// Takes what differs now into the open step of `edit`.
    /// @return the keys that differ
    std::vector<QString> noteChanges(FenUndoPropertyEdit& edit) const;

private:
    struct Item {
        view_ptr<FenProperties> item;
        std::vector<std::pair<QString, QString>> texts; // key, text
    };
    void add(FenProperties& item, int depth);

    std::vector<Item> _items;
};

} // namespace fen
