#pragma once

#include "services/opengl/OglViewport.h"

#include <QPoint>
#include <QSize>

namespace fen {

/// [px] extents of the texts that a correlation matrix is laid out for.
struct CorrelationTextSizes {
    int lineHeight = 13;
    int labelWidth = 0; ///< of the widest name
    int numberWidth = 0; ///< of "-0.00"
};

/// Rectangles of a correlation matrix inside the data rectangle of its chart.
///
/// Rows count from the top, columns from the left. Computed by `resize`, read by drawing, picking and
/// legend; holds no reference to the chart.
struct CorrelationLayout {
    FenOglViewport matrix; ///< [px] outer rectangle of all cells; invalid when they do not fit
    QSize cell; ///< [px] one cell
    int count = 0; ///< of rows and of columns
    bool numbersFit = false; ///< there is room for "-0.00" in a cell

    /// @param data  [px] the rectangle that the matrix and its names may take
    CorrelationLayout() = default;
    CorrelationLayout(FenOglViewport const& data, int variables, CorrelationTextSizes const& texts);

    /// Cell under a point, clamped to the matrix.
    /// @param point  [px] in the coordinates of `matrix`
    /// @return column (x) and row (y)
    QPoint cellAt(QPoint const& point) const;
    /// [px] rectangle of a cell.
    FenOglViewport cellRectangle(int row, int column) const;
};

/// [px] room that names take: that of the widest, but never more than a third of the data rectangle.
int correlationLabelWidth(int widestName, FenOglViewport const& data);

/// Names that would overlap are left out: every n-th is shown.
/// @param extent  [px] of a cell across the names
int nameStride(int extent, int lineHeight);

} // namespace fen
