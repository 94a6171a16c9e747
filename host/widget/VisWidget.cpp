#include "host/widget/VisWidget.h"

#include "host/scene/Scene.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QRubberBand>
#include <QSurfaceFormat>
#include <QToolTip>
#include <QUndoStack>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace {

int const samples = 4; // per pixel, for the edges of what is drawn in three dimensions
double const degreesPerNotch = 15;
double const eighthsPerDegree = 8;

/// Tooltips take what looks like HTML for rich text and load what it names: names and titles come
/// from files, so they are escaped.
QString plainTooltip(QString const& text)
{
    return QStringLiteral("<qt style='white-space:pre'>") + text.toHtmlEscaped() + QStringLiteral("</qt>");
}

} // namespace

FenVisWidget::FenVisWidget(QWidget* parent)
    : QOpenGLWidget(parent)
    , _scene(std::make_unique<FenVisScene>())
    , _tracker(std::make_unique<FenMouseTracker>(*_scene))
{
    QSurfaceFormat glFormat;
    glFormat.setRenderableType(QSurfaceFormat::OpenGL);
    glFormat.setVersion(2, 1);
    glFormat.setProfile(QSurfaceFormat::CompatibilityProfile);
    glFormat.setDepthBufferSize(24);
    glFormat.setStencilBufferSize(8);
    glFormat.setSamples(samples);
    setFormat(glFormat);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);

    FenMouseTracker::Output output;
    output.makeCurrent = [this] { makeCurrent(); };
    output.redraw = [this] { update(); };
    output.tooltip = [this](QString const& text, QPoint at) { showTooltip(text, at); };
    output.cursor = [this](Qt::CursorShape shape) { setCursor(shape); };
    output.rubberBand = [this](QRect const& rectangle) { showRubberBand(rectangle); };
    _tracker->setOutput(std::move(output));
    connect(&_scene->undoStack(), &QUndoStack::indexChanged, this, [this] { update(); });
}

FenVisWidget::~FenVisWidget()
{
    // Textures and lists are deleted while their context is current.
    makeCurrent();
    if (context()) disconnect(context(), nullptr, this, nullptr);
    _tracker.reset();
    _scene.reset();
    doneCurrent();
}

FenVisScene& FenVisWidget::scene() { return *_scene; }
FenMouseTracker& FenVisWidget::tracker() { return *_tracker; }
QString FenVisWidget::tooltip() const { return _tracker->tooltip(); }
QImage FenVisWidget::picture() { return grabFramebuffer(); }
QSize FenVisWidget::sizeHint() const { return QSize(800, 500); }

void FenVisWidget::initializeGL()
{
    // A new context, for example after the widget was moved to another window.
    _scene->contextChanged();
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, [this] { _scene->contextChanged(); });
}

void FenVisWidget::paintGL()
{
    _scene->resize(size(), devicePixelRatioF());
    _scene->update();
    _scene->draw();
}

QPoint FenVisWidget::fromWidget(QPointF const& position) const
{
    return QPoint(int(std::floor(position.x())), height() - 1 - int(std::floor(position.y())));
}

QPoint FenVisWidget::toWidget(QPoint const& point) const
{
    return QPoint(point.x(), height() - 1 - point.y());
}

void FenVisWidget::showTooltip(QString const& text, QPoint const& at)
{
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(mapToGlobal(toWidget(at)), plainTooltip(text),
                           this); // moved inside the screen by Qt
}

void FenVisWidget::showRubberBand(QRect const& rectangle)
{
    if (rectangle.isEmpty()) {
        if (_rubberBand) _rubberBand->hide();
        return;
    }
    if (!_rubberBand) _rubberBand = new QRubberBand(QRubberBand::Rectangle, this);
    _rubberBand->setGeometry(
        QRect(toWidget(rectangle.bottomLeft()), toWidget(rectangle.topRight())).normalized());
    _rubberBand->show();
}

bool FenVisWidget::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::FocusOut:
        _tracker->cancel(); // the release may go to somebody else
        break;
    case QEvent::Show:
        update(); // what changed while it was hidden
        break;
    case QEvent::ContextMenu:
        if (delaysMenu(*static_cast<QContextMenuEvent*>(event))) return true;
        break;
    case QEvent::ToolTip:
        return true; // ours follow the hovered thing, not Qt's timer
    default:
        break;
    }
    return QOpenGLWidget::event(event);
}

void FenVisWidget::mousePressEvent(QMouseEvent* event)
{
    _tracker->press(fromWidget(event->position()), event->button(), event->modifiers());
}

void FenVisWidget::mouseMoveEvent(QMouseEvent* event)
{
    QPoint const point = fromWidget(event->position());
    if (_tracker->pressed() && event->buttons() == Qt::NoButton)
        _tracker->releaseLost(point); // it went to a window that came between
    _tracker->move(point);
}

void FenVisWidget::mouseReleaseEvent(QMouseEvent* event)
{
    bool const click = !_tracker->dragging();
    _tracker->release(fromWidget(event->position()), event->button());
    if (event->button() != Qt::RightButton || !std::exchange(_menuWaits, false) || !click) return;
    QContextMenuEvent menu(QContextMenuEvent::Mouse, event->position().toPoint(),
                           event->globalPosition().toPoint(), event->modifiers());
    QCoreApplication::sendEvent(this, &menu);
}

bool FenVisWidget::delaysMenu(QContextMenuEvent const& event)
{
    bool const ofPress = event.reason() == QContextMenuEvent::Mouse && _tracker->pressed();
    _menuWaits = ofPress && _tracker->interaction(FenMouseTracker::RubberBand);
    return _menuWaits;
}

void FenVisWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    _tracker->doubleClick(fromWidget(event->position()), event->button(), event->modifiers());
}

void FenVisWidget::wheelEvent(QWheelEvent* event)
{
    double const steps = event->angleDelta().y() / (degreesPerNotch * eighthsPerDegree);
    QPoint const point = fromWidget(event->position());
    _tracker->wheel(point, steps);
    event->setAccepted(_tracker->takesWheel(point)); // any other is for a scroll area around
}

void FenVisWidget::leaveEvent(QEvent* event)
{
    _tracker->leave();
    QOpenGLWidget::leaveEvent(event);
}

void FenVisWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && _tracker->pressed()) {
        _tracker->cancel();
        return;
    }
    if (_tracker->key(event->key(), event->modifiers())) return;
    QOpenGLWidget::keyPressEvent(event);
}
