#pragma once

#include "../../services/logging/Export.h"
#include "../input/MouseTracker.h"

#include <QOpenGLWidget>

#include <memory>

class FenVisScene;
class QRubberBand;

/// Widget that shows a scene and lets the user work with it.
///
/// Owns its scene. Hovering, tooltips, wheel zoom at the pointer, dragging,
/// rubber band (right button or shift) and double click to fit are on by
/// default; each can be switched off at the tracker. Escape cancels a drag.
/// Works with any device pixel ratio, and again after it was moved to another
/// window. After properties were changed by the program call `update()`.
class FENVIS_EXPORT FenVisWidget : public QOpenGLWidget {
    Q_OBJECT

public:
    explicit FenVisWidget(QWidget* parent = nullptr);
    ~FenVisWidget() override;

    FenVisScene& scene();
    FenMouseTracker& tracker();
    /// The tooltip that is shown next to the pointer; empty for none.
    QString tooltip() const;
    /// The picture in device pixels; also of a widget that was never shown.
    QImage picture();

    QSize sizeHint() const override;

protected:
    void initializeGL() override;
    void paintGL() override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPoint fromWidget(QPointF const& position) const;
    QPoint toWidget(QPoint const& point) const;
    void showTooltip(QString const& text, QPoint const& at);
    void showRubberBand(QRect const& rectangle);
    /// A press of the right button may begin a rubber band: its menu comes with the release, and
    /// none after a drag.
    bool delaysMenu(QContextMenuEvent const& event);

    std::unique_ptr<FenVisScene> _scene;
    std::unique_ptr<FenMouseTracker> _tracker;
    QRubberBand* _rubberBand = nullptr; // made when first needed; child of this
    bool _menuWaits = false; // for the release of the right button
};
