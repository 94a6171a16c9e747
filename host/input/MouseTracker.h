#pragma once

#include "../../picking/hits/VisHitProperty.h"
#include "../../services/logging/Export.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>

class FenCamera;
class FenChartNavigation;
class FenVisHitRecord;
class FenVisScene;
class FenVisualization;

/// Turns raw mouse events into calls of the nodes' event handlers.
///
/// Knows no window: points are [px], origin at the bottom left. Hovering picks
/// once the pointer has rested for a moment, while it moves every 50 ms, and
/// after the scene was updated; at most once per turn of the event loop. While a button is down nothing is
/// picked: the drag and the release carry the hit of the press. What a node
/// does not take goes to the navigation. The scene must outlive it.
///
/// Each function answers whether the picture has to be drawn again; picks that
/// run later say it through `Output::redraw`.
class FENVIS_EXPORT FenMouseTracker {
public:
    /// What the user may do.
    enum Interaction : unsigned {
        Hover = 1, ///< highlights and tooltips
        Select = 2, ///< clicks
        NodeDrag = 4, ///< sliders, legends, annotations
        Pan = 8, ///< drag on a chart, and what moves the camera
        WheelZoom = 16,
        RubberBand = 32, ///< right button, or left with shift; over a 3D part they move the picture
        DoubleClickFit = 64,
        AllInteractions = 127
    };

    /// What the owner is told; each may be empty.
    struct Output {
        std::function<void()> makeCurrent; ///< before a pick: make the context current
        std::function<void()> redraw; ///< the picture has to be drawn again
        std::function<void(QString const& text, QPoint at)> tooltip; ///< empty text: none any more
        std::function<void(Qt::CursorShape shape)> cursor; ///< what a drag from here would do
        std::function<void(QRect const& rectangle)> rubberBand; ///< [px], empty: none any more
    };

    explicit FenMouseTracker(FenVisScene& scene);
    ~FenMouseTracker();
    FenMouseTracker(FenMouseTracker const&) = delete;
    FenMouseTracker& operator=(FenMouseTracker const&) = delete;

    void setOutput(Output output);
    /// Told of each click on something known.
    void setOnSelect(std::function<void(FenVisHitProperty const& what)> selected);
    void setInteraction(Interaction interaction, bool enabled);
    bool interaction(Interaction interaction) const;
    /// [ms] rest before a hover picks (30); above 50 also the longest wait while it moves; 0 picks in the
    /// next turn of the event loop.
    void setHoverDelay(int milliseconds);
    /// [px] way that makes a press a drag (4).
    void setDragThreshold(int pixels);
    /// [px] extent of the pick region (6 x 6).
    void setPickSize(QSize size);

    // === Events

    bool press(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    bool move(QPoint point);
    bool release(QPoint point, Qt::MouseButton button);
    /// The button is up although nobody has said so: ends what it did without finishing it.
    bool releaseLost(QPoint point);
    /// Fits the chart there, unless something lies upon it or shift is held: then it is a press.
    bool doubleClick(QPoint point, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {});
    /// @param steps  notches of the wheel, away from the user counts positive
    bool wheel(QPoint point, double steps);
    /// True when a turn of the wheel there is meant for the scene, even when it changes nothing (the
    /// limit of the zoom, a drag going on).
    bool takesWheel(QPoint point) const;
    /// The pointer has left the window; during a drag it may come back.
    bool leave();
    /// A key (Qt::Key). Arrows move the annotation that was clicked last by 1 px, with shift by 10. Of the
    /// camera: 1 to 7 look from front, back, left, right, top, bottom and the
    /// isometric direction, P switches perspective. False for any other, and without a 3D part.
    bool key(int key, Qt::KeyboardModifiers modifiers = {});
    /// Ends a drag and puts back what it changed (escape, loss of the window).
    bool cancel();

    /// Runs a waiting hover pick now.
    bool flush();
    /// True between a press and its release.
    bool pressed() const;
    /// True while a node, a chart or a rubber band is being dragged.
    bool dragging() const;
    /// What is hovered; undefined when nothing is.
    FenVisHitProperty hovered() const;
    /// Text of the tooltip that is shown; empty for none.
    QString tooltip() const;
    FenChartNavigation& navigation();
    FenCamera& camera();

private:
    struct State;
    std::unique_ptr<State> _state;
};
