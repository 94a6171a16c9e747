#pragma once

#include "charts/chart3d/PickVolume.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace fen {

/// Many things in space, found by where they are: blocks of things, blocks of blocks and so on, each with
/// its box. Made once, only read by picks.
class BoxTree {
    static constexpr std::size_t blockSize = 16;

public:
    /// Nothing.
    BoxTree() = default;
    /// Things whose neighbours in space are neighbours in their order, or nearly so.
    /// @param boxOf   [scene] of thing i < count
    /// @param bundle  things that share a box; 1 for things that cost much to look at
    BoxTree(std::size_t count, std::function<Kes::Math::BoundingBox(std::size_t i)> const& boxOf,
            std::size_t bundle = blockSize);
    /// Points in any order.
    explicit BoxTree(std::vector<Kes::Math::Vector3> const& points);

    /// Calls visit(i) for the things whose block may meet the volume: all that meet it, and neighbours.
    template <class Visit>
    void visit(PickVolume const& volume, Visit const& visit) const
    {
        if (!_levels.empty()) visitLevel(volume, _levels.size() - 1, 0, _levels.back().size(), visit);
    }

private:
    void build(std::vector<Kes::Math::BoundingBox> boxes);
    template <class Visit>
    void visitLevel(PickVolume const& volume, std::size_t level, std::size_t first, std::size_t last,
                    Visit const& visit) const
    {
        std::size_t const below = level == 0 ? _count : _levels[level - 1].size();
        for (std::size_t block = first; block < last; ++block) {
            if (!volume.mayMeet(_levels[level][block])) continue;
            std::size_t const size = level == 0 ? _bundle : blockSize;
            std::size_t const begin = block * size, end = std::min(begin + size, below);
            if (level > 0) {
                visitLevel(volume, level - 1, begin, end, visit);
                continue;
            }
            for (std::size_t i = begin; i < end; ++i) visit(_order.empty() ? i : _order[i]);
        }
    }

    std::size_t _count = 0;
    std::size_t _bundle = blockSize;
    std::vector<std::uint32_t> _order; // empty: as given
    std::vector<std::vector<Kes::Math::BoundingBox>> _levels; // of blocks; the last has few
};

} // namespace fen
