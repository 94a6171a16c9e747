#pragma once

#include "host/table/ChartKinds.h"

#include "services/opengl/OglViewport.h"

#include <QPoint>

#include <functional>

class FenVisChart;
class FenVisList;
class FenVisScene;

namespace fen {

/// A chart whose ranges can be chosen, and where it was laid out.
struct ChartPlace {
    FenVisChart* chart = nullptr; ///< null: none
    ChartSides sides;
    FenOglViewport own; ///< [px, window]
    FenOglViewport data; ///< [px, window] rectangle of the data

    explicit operator bool() const { return chart != nullptr; }
    FenChart& content() const;
    /// Where a point lies along an axis; 0 to 1 inside the data rectangle.
    double fraction(QPoint point, bool horizontal) const;
};

/// The topmost chart of any kind under a point [px]; null when there is none.
FenVisChart* chartAt(FenVisScene& scene, QPoint point);
/// Empty for a null chart, one that has no axes to move and one that has no room for data.
ChartPlace placeOf(FenVisScene& scene, FenVisChart* chart);
/// The axes that can be chosen, as `ChartSides`; none for a chart without.
ChartSides sidesOf(FenVisualization& chart);
/// Every chart, in lists inside lists too.
void forEachChart(FenVisList& nodes, std::function<void(FenVisChart&)> const& operation);

} // namespace fen
