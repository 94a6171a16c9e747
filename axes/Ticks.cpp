#include "axes/Ticks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace fen {

namespace {

/// Smallest stride for which ticks lie `space` apart on average; closer ones are not even looked at.
std::size_t leastStride(std::size_t count, int first, int last, int space)
{
    if (count < 2) return 1;
    double const spacing = std::abs(double(last) - first) / double(count - 1);
    return spacing >= space ? 1 : std::size_t(std::ceil(space / std::max(spacing, 1e-6)));
}

std::size_t labelStride(std::vector<int> const& pixels, LabelRow const& row)
{
    if (pixels.size() < 2) return 1;
    std::size_t stride = leastStride(pixels.size(), pixels.front(), pixels.back(), row.least);
    if (!row.extent) return stride;
    std::vector<int> extents(pixels.size(), -1);
    auto const extent = [&](std::size_t i) {
        if (extents[i] < 0) extents[i] = row.extent(row.label(unsigned(i)));
        return extents[i];
    };
    auto const fits = [&] {
        for (std::size_t i = stride; i < pixels.size(); i += stride) {
            int const halves = (extent(i) + extent(i - stride) + 1) / 2;
            if (std::abs(pixels[i] - pixels[i - stride]) - halves < row.space) return false;
        }
        return true;
    };
    while (stride < pixels.size() && !fits()) ++stride;
    return stride;
}

} // namespace

std::vector<Tick> thinnedTicks(std::vector<int> const& pixels, LabelRow const& row)
{
    std::vector<Tick> ticks(pixels.size());
    std::size_t const stride = labelStride(pixels, row);
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        ticks[i].pixel = pixels[i];
        ticks[i].shown = i % stride == 0;
        if (ticks[i].shown) ticks[i].label = row.label(unsigned(i));
    }
    return ticks;
}

std::vector<int> markedPixels(std::vector<Tick> const& ticks, int least)
{
    std::vector<int> pixels;
    if (ticks.empty()) return pixels;
    bool const all = leastStride(ticks.size(), ticks.front().pixel, ticks.back().pixel, least) == 1;
    for (Tick const& tick : ticks)
        if (all || tick.shown) pixels.push_back(tick.pixel);
    return pixels;
}

} // namespace fen
