#include "charts/correlation/CorrelationLayout.h"

#include <algorithm>

namespace fen {

namespace {

constexpr int rim = 6; // [px] of the matrix, in addition to the padding
constexpr int nameDistance = 5; // [px] between names and matrix

} // namespace

CorrelationLayout::CorrelationLayout(FenOglViewport const& data, int variables,
                                     CorrelationTextSizes const& texts)
{
    int const padding = (texts.lineHeight + 3) / 4;
    int const margin = 2 * padding + rim;
    int const width = data.width() - margin - texts.labelWidth;
    int const height = data.height() - texts.labelWidth - margin;
    if (variables <= 0 || width < variables || height < variables) return;

    int cellHeight = std::max(2 * texts.numberWidth, texts.lineHeight + 1 + padding);
    cellHeight = std::min(cellHeight, height / variables);
    int const cellWidth = std::min(2 * cellHeight, width / variables);
    cellHeight = std::min(cellHeight, cellWidth);

    count = variables;
    cell = QSize(cellWidth, cellHeight);
    numbersFit = texts.numberWidth <= cellWidth;
    QSize const size = cell * count;
    matrix = FenOglViewport(data.x() + nameDistance + texts.labelWidth
                                + ((width - size.width()) / 2 + 2 * padding),
                            data.y() + 1 + (height - size.height()) / 2, size.width(), size.height());
}

QPoint CorrelationLayout::cellAt(QPoint const& point) const
{
    if (!matrix.valid()) return QPoint();
    QPoint const inside = point - matrix.origin();
    int const column = std::clamp(inside.x() / cell.width(), 0, count - 1);
    int const row = std::clamp(inside.y() / cell.height(), 0, count - 1);
    return QPoint(column, count - row - 1);
}

FenOglViewport CorrelationLayout::cellRectangle(int row, int column) const
{
    return FenOglViewport(matrix.x() + column * cell.width(), matrix.y() + (count - row - 1) * cell.height(),
                          cell.width(), cell.height());
}

int correlationLabelWidth(int widestName, FenOglViewport const& data)
{
    return std::min(widestName, std::min(data.width(), data.height()) / 3);
}

int nameStride(int extent, int lineHeight)
{
    return std::max(1, (lineHeight + extent - 1) / std::max(1, extent));
}

} // namespace fen
