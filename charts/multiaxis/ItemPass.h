#pragma once

#include "charts/multiaxis/ItemPicture.h"
#include "framework/Visualization.h"
#include "picking/select/VisOglSelect.h"

#include <QRectF>

class FenChartMultiAxis;
class FenOglGeometry;
class FenOglText;

namespace fen {

/// [px] the pick region, relative to the node.
QRectF pickArea(FenVisualization::SelectContext const& context);

/// The item that a hit stands for, or -1.
qint64 hitItem(FenVisHitProperty const& hit, FenChartMultiAxis const& chart);

/// Names the items near the pick region, the topmost last, so that they win.
/// @param room  hits that the buffer has room for
void nameItems(ItemPicture const& picture, FenChartMultiAxis const& chart, QRectF const& area,
               std::size_t room, FenVisOglSelectWeakPtr select, FenVisHitTable& table);

/// Draws one item above all others, with a glow.
void drawHighlightedItem(ItemPicture const& picture, std::size_t item, FenOglGeometry const& geometry);

/// Ground on which a text can be read over lines, where it is drawn with its present alignment, left or right
/// of the anchor and vertically centred.
void drawTextGround(QPoint const& anchor, FenOglText const& text, QString const& label);

} // namespace fen
