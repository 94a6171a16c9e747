#pragma once

#include <QHash>
#include <QString>

#include <vector>

class FenProperties;

namespace fen {

/// The children of a tree node, in order.
///
/// Each child knows its slot. A child taken out of a long list leaves a hole;
/// while there are holes a tree of partial counts (Fenwick) finds the i-th child
/// in logarithmic time, and the list closes up when half of it is holes. Long
/// lists find names by a hash.
class ChildList {
public:
    unsigned size() const { return _count; }
    /// The i-th child, or null.
    FenProperties* at(unsigned index) const;
    FenProperties* find(QString const& name) const;
    /// All children in order, with null for holes.
    std::vector<FenProperties*> const& slots() const { return _slots; }

    void append(FenProperties& child);
    void remove(FenProperties& child);
    /// To be called after a child took another name.
    void renamed(FenProperties& child, QString const& oldName);

private:
    void closeUp();
    void openHole(unsigned slot);
    /// Number of children in the slots that position `p` of the tree of counts stands for.
    unsigned partialCount(unsigned p) const;

    std::vector<FenProperties*> _slots;
    std::vector<unsigned> _counts; ///< one more than slots, [0] unused; empty while there are no holes
    QHash<QString, FenProperties*> _names; ///< empty while the list is short
    unsigned _count = 0;
};

} // namespace fen
