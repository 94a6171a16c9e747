#include "charts/chart3d/BoxTree.h"

#include <algorithm>
#include <cmath>

using Kes::Math::BoundingBox;
using Kes::Math::Vector3;

namespace fen {

namespace {

constexpr unsigned mortonBits = 10; // per axis

/// The bits of a number below 2^10 with two places between them.
std::uint32_t spread(std::uint32_t bits)
{
    bits = (bits | bits << 16) & 0x030000FFu;
    bits = (bits | bits << 8) & 0x0300F00Fu;
    bits = (bits | bits << 4) & 0x030C30C3u;
    return (bits | bits << 2) & 0x09249249u;
}

/// Places along a curve that fills a box, so that points close on it are close in space (Morton 1966).
std::vector<std::uint32_t> mortonOrder(std::vector<Vector3> const& points)
{
    BoundingBox box;
    for (Vector3 const& point : points) box.insert(point);
    constexpr float most = float((1u << mortonBits) - 1);
    auto const cell = [&](Vector3 const& point, int axis) {
        float const size = box.max()[axis] - box.min()[axis];
        float const share = size > 0 ? (point[axis] - box.min()[axis]) / size : 0.0f;
        return std::uint32_t(share >= 0 ? std::min(share, 1.0f) * most : 0.0f); // NaN counts as 0
    };
    std::vector<std::uint64_t> keys(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        std::uint64_t const key =
            spread(cell(points[i], 0)) | spread(cell(points[i], 1)) << 1 | spread(cell(points[i], 2)) << 2;
        keys[i] = key << 32 | i;
    }
    std::sort(keys.begin(), keys.end());
    std::vector<std::uint32_t> order(keys.size());
    std::transform(keys.begin(), keys.end(), order.begin(),
                   [](std::uint64_t key) { return std::uint32_t(key); });
    return order;
}

} // namespace

BoxTree::BoxTree(std::size_t count, std::function<BoundingBox(std::size_t)> const& boxOf, std::size_t bundle)
    : _count(count)
    , _bundle(bundle)
{
    std::vector<BoundingBox> blocks((count + bundle - 1) / bundle);
    for (std::size_t i = 0; i < count; ++i) blocks[i / bundle].insert(boxOf(i));
    build(std::move(blocks));
}

BoxTree::BoxTree(std::vector<Vector3> const& points)
    : _count(points.size())
    , _order(mortonOrder(points))
{
    std::vector<BoundingBox> blocks((points.size() + blockSize - 1) / blockSize);
    for (std::size_t i = 0; i < points.size(); ++i) blocks[i / blockSize].insert(points[_order[i]]);
    build(std::move(blocks));
}

void BoxTree::build(std::vector<BoundingBox> boxes)
{
    while (!boxes.empty()) {
        _levels.push_back(std::move(boxes));
        std::vector<BoundingBox> const& last = _levels.back();
        if (last.size() <= blockSize) return;
        boxes.assign((last.size() + blockSize - 1) / blockSize, BoundingBox());
        for (std::size_t i = 0; i < last.size(); ++i) boxes[i / blockSize].insert(last[i]);
    }
}

} // namespace fen
