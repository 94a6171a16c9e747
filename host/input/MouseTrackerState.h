#pragma once

#include "framework/Visualization.h"
#include "host/camera/Camera.h"
#include "host/edit/TreeSnapshot.h"
#include "host/input/ChartNavigation.h"
#include "host/input/MouseTracker.h"
#include "host/scene/Scene.h"
#include "host/scene/SceneObserver.h"
#include "host/scene/VisPick.h"

#include <QElapsedTimer>
#include <QTimer>

/// What a tracker remembers between events, and the steps that events share.
struct FenMouseTracker::State : IFenSceneObserver {
    /// The winner of one pick, kept until long after it: ask `source` in place of `node`, which may
    /// be gone. What its name stands for is kept, because a node's table is made anew by each pick.
    struct Hit : FenVisPick {
        Hit() = default;
        explicit Hit(FenVisPick const& picked)
            : FenVisPick(picked)
            , source(picked.node)
        {
        }
        fen::view_ptr<FenVisualization const> source;
    };
    static constexpr int longestWait = 50; // [ms]
    enum Phase {
        Idle, ///< no button
        Waiting, ///< pressed, not moved far enough for a drag
        Undecided, ///< moved, but nobody has taken the drag yet
        NodeDrags, ///< the node's handler has taken it
        Navigates, ///< the navigation has taken it
        Looks, ///< the camera has taken it
        RubberBands, ///< a rectangle is being drawn
        Over ///< ended while the button is still down
    };

    explicit State(FenVisScene& theScene)
        : scene(theScene)
        , navigation(theScene)
        , camera(theScene)
    {
        rest.setInterval(30);
        scene.addObserver(*this);
    }
    ~State() { scene.removeObserver(*this); }

    bool may(unsigned any, unsigned other = 0) const { return (interactions & (any | other)) != 0; }
    bool draggingSomething() const
    {
        return phase == NodeDrags || phase == Navigates || phase == Looks || phase == RubberBands;
    }
    /// Tells the owner when a redraw is due, and passes the answer on.
    bool answer(bool redraw) const;

    /// What lies under the pointer may be something else now.
    bool sceneUpdated() override;
    /// Picks when the pointer has rested, or moved for `longestWait`.
    void hoverSoon();
    /// True when the chart under a point is what a click there would hit.
    bool chartIsOnTop(QPoint point) const;

    Hit pick(QPoint point) const;
    /// Picks at the last point and hovers what is there.
    bool hover();
    /// Leaves what was hovered and hovers something else.
    bool enter(Hit next);
    bool unhover();
    bool drag(QPoint point);
    bool finish();
    /// [px] way of an arrow key; null for any other.
    static QPoint arrowWay(int key, Qt::KeyboardModifiers modifiers);
    /// Moves the annotation that was clicked last, as one undo step.
    bool moveBox(QPoint way);
    bool abandon();

    FenVisScene& scene;
    FenChartNavigation navigation;
    FenCamera camera;
    Output output;
    std::function<void(FenVisHitProperty const&)> selected;
    unsigned interactions = AllInteractions;
    int dragThreshold = 4; // [px]
    QSize pickSize = QSize(6, 6); // [px]
    QTimer rest; // fires when the pointer has rested
    QElapsedTimer moving; // since the first move that no pick has followed
    bool inside = false; // the pointer is over the window

    Phase phase = Idle;
    Qt::MouseButton button = Qt::NoButton;
    bool rubberBand = false; // the button draws a rectangle
    QPoint pressPoint; // [px]
    QPoint lastPoint; // [px] of the last event
    Hit hit; // of the press
    Hit hovered;
    Hit box; // the annotation that was clicked last
    Qt::CursorShape cursor = Qt::ArrowCursor;
    QString tooltip;
    fen::TreeSnapshot before; // the dragged node at the start of the drag

private:
    template <class Call>
    static bool tell(Hit& to, Call const& call);
    bool forgetHovered();
    bool startDrag(QPoint point);
    bool startLooking(QPoint point, bool moves);
    bool dragNode(QPoint point);
    bool dragNodeBy(QPoint offset);
    QPoint inPicture(QPoint point) const;
    void showCursor(Hit const& over);
    bool releaseNode();
    bool click();
    void setTooltip(QString const& text);
    QRect rectangle() const;
};
