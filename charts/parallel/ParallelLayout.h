#pragma once

#include "services/opengl/OglViewport.h"

#include <QSize>

#include <cstddef>
#include <vector>

namespace fen {

/// Widths [px] of the texts of one axis.
struct ParallelTexts {
    int name = 0;
    int low = 0; ///< at the lower end
    int high = 0; ///< at the upper end
};

/// Where the axes of parallel coordinates and their texts lie [px], relative to the node.
struct ParallelLayout {
    static constexpr int handleReach = 12; ///< [px] how far from its end a slider is picked

    FenOglViewport plot; ///< its bottom and top are the ends of the axes; invalid when there is no room
    int spacing = 0; ///< from axis to axis
    bool horizontalLabels = true; ///< false: the labels below the axes are turned by a quarter
    bool horizontalNames = true; ///< false: the names above the axes are turned by a quarter
    bool names = true; ///< there is room for names
    int lineHeight = 0;
    int labelRoom = 0; ///< length of a label below an axis
    int nameRoom = 0; ///< length of a name

    int axisX(std::size_t position) const { return plot.x() + int(position) * spacing; }
    /// Height [px] of a fraction of the axis.
    double pixelY(double fraction) const { return plot.y() + fraction * plot.height(); }
    int lowAnchorY() const; ///< of the text below an axis
    int highAnchorY() const; ///< of the text above an axis
    int nameAnchorY() const;
    /// Half the width of a slider.
    int handleHalfWidth() const;
};

/// Lays out n axes, n at least 2, in the rectangle that title and rim leave.
/// @param texts       one per axis, from the left
/// @param lineHeight  [px] of labels and names
ParallelLayout layoutParallel(FenOglViewport const& area, std::vector<ParallelTexts> const& texts,
                              int lineHeight);

/// Of texts in a row, those that have room: none touches the one that was kept before it.
/// @param centers  [px] ascending
/// @param widths   [px] 0: there is no text
std::vector<bool> textsWithRoom(std::vector<int> const& centers, std::vector<int> const& widths);

} // namespace fen
