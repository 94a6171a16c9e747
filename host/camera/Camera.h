#pragma once

#include "../../services/logging/Export.h"

#include <QPoint>
#include <QString>

#include <memory>

class FenVisScene;

/// From where the 3D part of a scene is looked at: turns, moves, zooms, fits
/// and looks along named directions, by writing the viewpoint's "modelView" and
/// the scene's "perspective" through the user's editor, so that each is a step
/// that can be undone.
///
/// Holds nothing but a drag that goes on: whoever writes the viewpoint moves the
/// camera. While the viewpoint holds the identity, the picture shows the
/// isometric view of the scene's bounding box. z points up; points are [px] in
/// the window, origin at the bottom left. The scene must outlive it.
class FENVIS_EXPORT FenCamera {
public:
    explicit FenCamera(FenVisScene& scene);
    ~FenCamera();
    FenCamera(FenCamera const&) = delete;
    FenCamera& operator=(FenCamera const&) = delete;

    /// Azimuth [deg]: 0 looks from the front (along +y), 90 from the right.
    double azimuth() const;
    /// Elevation [deg]: 0 is level, 90 looks down.
    double elevation() const;
    /// Size over the fitted one.
    double zoom() const;

    // Each answers whether the picture has changed.

    /// Looks from there; an elevation past a pole stops at the pole.
    bool turn(double azimuth, double elevation);
    /// Looks along "front", "back", "left", "right", "top", "bottom" or "iso", and fits. False for any
    /// other word.
    bool look(QString const& direction);
    /// The whole bounding box, as large as it goes, from where the camera is.
    bool fit();
    /// Makes everything `factor` times as large; what lies under `point` stays there.
    bool zoomBy(double factor, QPoint point);
    bool zoomTo(double zoom);
    /// Moves the picture by a way in half heights of it.
    bool move(double right, double up);
    bool setPerspective(bool perspective);

    /// True where dragging is meant for the camera: there is something in three dimensions, and the
    /// chart at the point, if any, is part of it.
    bool takes(QPoint point) const;
    /// Begins to turn, or to move, by the pointer. False when there is nothing to look at.
    bool beginDrag(QPoint point, bool moves);
    bool drag(QPoint point);
    /// One undo step for all of it.
    void endDrag();
    void cancelDrag();

private:
    struct State;
    std::unique_ptr<State> _state;
};
