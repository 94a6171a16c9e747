#include "charts/parallel/ParallelLayout.h"

#include <algorithm>

namespace fen {

namespace {

constexpr int textGap = 4; ///< [px] least distance of two texts in a row
constexpr int nameGap = 3; ///< [px] between names and upper labels
constexpr int leastLines = 3; ///< height of the axes that names must leave, in lines
constexpr int largestShare = 4; ///< turned texts take at most this part of the height
constexpr int widestRim = 6; ///< the outer texts take at most this part of the width on either side

int widest(std::vector<ParallelTexts> const& texts, int ParallelTexts::*which)
{
    int most = 0;
    for (ParallelTexts const& one : texts) most = std::max(most, one.*which);
    return most;
}

/// Distances from the ends of an axis to the anchors of its labels.
int horizontalDistance(int h) { return (h + 3) / 4 + (h + 1) / 2 + h + 1; }
int turnedDistance(int h) { return 2 * ((h + 3) / 4) + (h + 1) / 2 + 2; }

/// Room beside an outer axis for the half of its texts that sticks out.
int rim(ParallelTexts const& texts, ParallelLayout const& layout, int width)
{
    int needed = std::max(layout.lineHeight, texts.high);
    if (layout.horizontalLabels) needed = std::max(needed, texts.low);
    if (layout.horizontalNames) needed = std::max(needed, texts.name);
    return std::clamp((needed + 1) / 2, 0, width / widestRim);
}

void placeColumns(ParallelLayout& layout, FenOglViewport const& area, std::vector<ParallelTexts> const& texts,
                  int& x, int& width)
{
    int const left = rim(texts.front(), layout, area.width());
    int const right = rim(texts.back(), layout, area.width());
    x = area.x() + left;
    width = area.width() - left - right;
    layout.spacing = std::max(0, width) / int(texts.size() - 1);
}

} // namespace

int ParallelLayout::lowAnchorY() const
{
    return plot.y() - (horizontalLabels ? horizontalDistance(lineHeight) : turnedDistance(lineHeight));
}

int ParallelLayout::highAnchorY() const { return plot.y() + plot.height() + horizontalDistance(lineHeight); }

int ParallelLayout::nameAnchorY() const { return highAnchorY() + nameGap; }

int ParallelLayout::handleHalfWidth() const { return std::clamp(spacing / 2, 1, handleReach / 2); }

ParallelLayout layoutParallel(FenOglViewport const& area, std::vector<ParallelTexts> const& texts,
                              int lineHeight)
{
    ParallelLayout layout;
    layout.lineHeight = lineHeight;
    if (texts.size() < 2) return layout;
    int const longestTurned = std::max(0, area.height() / largestShare);
    int x = 0, width = 0;
    placeColumns(layout, area, texts, x, width);
    int const low = widest(texts, &ParallelTexts::low), name = widest(texts, &ParallelTexts::name);
    layout.horizontalLabels = low <= layout.spacing;
    layout.horizontalNames = name + textGap <= layout.spacing;
    placeColumns(layout, area, texts, x, width);

    layout.labelRoom = layout.horizontalLabels ? lineHeight : std::min(low, longestTurned);
    layout.nameRoom = layout.horizontalNames ? lineHeight : std::min(name, longestTurned);
    int const below = layout.horizontalLabels ? horizontalDistance(lineHeight)
                                              : turnedDistance(lineHeight) + layout.labelRoom;
    int const above = horizontalDistance(lineHeight);
    int height = area.height() - below - above - layout.nameRoom - nameGap;
    if (height < leastLines * lineHeight) {
        layout.names = false;
        height = area.height() - below - above;
    }
    if (layout.spacing < 1 || height < 1) return layout;
    layout.plot = FenOglViewport(x, area.y() + below, layout.spacing * int(texts.size() - 1), height);
    return layout;
}

std::vector<bool> textsWithRoom(std::vector<int> const& centers, std::vector<int> const& widths)
{
    std::vector<bool> kept(centers.size(), false);
    bool any = false;
    double end = 0;
    for (std::size_t i = 0; i < centers.size(); ++i) {
        if (widths[i] <= 0) continue;
        double const begin = centers[i] - widths[i] / 2.0;
        if (any && begin < end + textGap) continue;
        kept[i] = any = true;
        end = begin + widths[i];
    }
    return kept;
}

} // namespace fen
