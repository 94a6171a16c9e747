#pragma once

#include "../../services/logging/Export.h"

#include <QPoint>
#include <QRect>

#include <memory>

class FenVisScene;

/// Zooming, panning and fitting of charts that have axes to do it with, as writes of the axes' "autoRange",
/// "min" and "max" through the scene's undo editor.
///
/// Everything happens in the numbers the axis shows, in double; logarithmic
/// axes are moved in their exponents. Points are [px] in the window, origin at
/// the bottom left. Starts from the ranges that were chosen last, drawn
/// already or not; when a new layout moves what the pointer holds (wider labels
/// take room from the data), the scene's update puts it back under the pointer.
/// The scene must outlive it.
class FENVIS_EXPORT FenChartNavigation {
public:
    explicit FenChartNavigation(FenVisScene& scene);
    ~FenChartNavigation();
    FenChartNavigation(FenChartNavigation const&) = delete;
    FenChartNavigation& operator=(FenChartNavigation const&) = delete;

    /// Zooms the chart under a point so that the value there stays. Beside the data
    /// rectangle only the axes of that side are zoomed.
    /// @param factor  extent of the new ranges over the old ones: below 1 magnifies
    /// @return true when something changed
    bool zoom(QPoint point, double factor);
    /// Shows the part of a chart's data rectangle inside `rectangle` [px].
    /// @param from  [px] where the rectangle was begun: chooses chart and axes as in `zoom`
    bool zoomTo(QRect const& rectangle, QPoint from);
    /// Automatic ranges again for the chart under the point.
    bool fit(QPoint point);
    /// The same for every chart of the scene.
    bool fitAll();

    /// Begins moving the chart under the point (beside its data: the axes of that side).
    /// @return false when there is nothing to move
    bool beginDrag(QPoint point);
    bool drag(QPoint point);
    /// One undo step for all of it.
    void endDrag();
    /// Everything as before the drag.
    void cancelDrag();
    bool dragging() const;
    /// True when a chart whose ranges can be chosen lies under the point.
    bool canZoom(QPoint point) const;

private:
    struct State;
    std::unique_ptr<State> _state;
};
