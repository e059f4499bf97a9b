#include "preview/EditorGraphicsView.h"

#include "preview/EditorScene.h"
#include "preview/PenInput.h"
#include "preview/ViewKeys.h"

#include <QCoreApplication>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QPinchGesture>
#include <QTabletEvent>
#include <QWheelEvent>

#include <cmath>

namespace {
constexpr double notchesToDouble = 4.0;  // of a mouse wheel
constexpr int angleOfNotch = 120;        // as the toolkit counts
constexpr int scrolledAnglePerPixel = 2; // a notch is 60 pixels

// Some platforms turn the wheel's axis while Alt is held, and Shift does it on others.
double notchesOf(const QWheelEvent &event)
{
    const QPoint angle = event.angleDelta();
    return double(angle.y() ? angle.y() : angle.x()) / angleOfNotch;
}

/// In the widget that hears it; the toolkit rounds that to whole logical pixels.
QPointF exactPlace(const QMouseEvent &event)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return event.pos() + (event.windowPos() - event.windowPos().toPoint());
#else
    return event.position().toPoint() + (event.scenePosition() - event.scenePosition().toPoint());
#endif
}

/// After these the release of a button may go elsewhere.
bool losesGesture(QEvent::Type type)
{
    return type == QEvent::WindowDeactivate || type == QEvent::WindowBlocked ||
           type == QEvent::FocusOut || type == QEvent::Hide || type == QEvent::UngrabMouse;
}
} // namespace

EditorGraphicsView::EditorGraphicsView(QWidget *parent)
    : ZoomableView(parent)
    , m_pen(std::make_unique<PenInput>(*this))
    , m_keys(std::make_unique<ViewKeys>(*this, *m_pen))
{
    connect(m_pen.get(), &PenInput::left, this, &EditorGraphicsView::penLeft);
    connect(m_pen.get(), &PenInput::lost, this, &EditorGraphicsView::loseGesture);
    connect(m_keys.get(), &ViewKeys::spaceHeldChanged, this, &EditorGraphicsView::updateHeld);
    setMouseTracking(true);
    // The right button may be the tool's.
    setContextMenuPolicy(Qt::PreventContextMenu);
}

EditorGraphicsView::~EditorGraphicsView() = default;

void EditorGraphicsView::setEditorScene(EditorScene *scene)
{
    showScene(scene);
    if (!scene)
        return;
    connect(scene, &EditorScene::pointerChanged, this, &EditorGraphicsView::updatePointer);
    updatePointer();
}

void EditorGraphicsView::updatePointer()
{
    if (m_panButton != Qt::NoButton)
        viewport()->setCursor(Qt::ClosedHandCursor);
    else if (m_keys->isSpaceHeld())
        viewport()->setCursor(Qt::OpenHandCursor);
    else if (shownScene())
        viewport()->setCursor(shownScene()->pointer());
}

void EditorGraphicsView::wheelEvent(QWheelEvent *event)
{
    const double notches = notchesOf(*event);
    if (event->modifiers() & Qt::ControlModifier && !m_keys->isSpaceHeld()) {
        // A touchpad also tells when it begins and ends.
        const bool isTaken = shownScene() && notches != 0.0;
        event->setAccepted(isTaken && shownScene()->turnWheel(notches, event->modifiers()));
        return;
    }
    event->accept();
    releaseFit();
    // Many window managers take Alt and wheel for themselves.
    if (event->modifiers() & Qt::AltModifier || m_keys->isSpaceHeld()) {
        zoomAround(event->position(), zoom() * std::exp2(notches / notchesToDouble));
        return;
    }
    const QPoint exact = event->pixelDelta();
    const QPoint distance = exact.isNull() ? event->angleDelta() / scrolledAnglePerPixel : exact;
    panBy(event->modifiers() & Qt::ShiftModifier ? distance.transposed() : distance);
}

bool EditorGraphicsView::startPan(QMouseEvent &event)
{
    const bool isPanButton = event.button() == Qt::MiddleButton ||
                             (m_keys->isSpaceHeld() && event.button() == Qt::LeftButton);
    // Not in the middle of a stroke.
    const bool isStart = isPanButton && event.buttons() == event.button();
    if (m_panButton == Qt::NoButton && isStart) {
        m_panButton = event.button();
        m_panFrom = event.pos();
        updatePointer();
    }
    const bool isTaken = m_keys->isSpaceHeld() || m_panButton != Qt::NoButton;
    event.setAccepted(isTaken);
    return isTaken;
}

void EditorGraphicsView::mousePressEvent(QMouseEvent *event)
{
    if (takeMouse(*event))
        press(*event);
}

void EditorGraphicsView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (takeMouse(*event))
        press(*event);
}

void EditorGraphicsView::mouseMoveEvent(QMouseEvent *event)
{
    if (takeMouse(*event))
        move(*event);
}

void EditorGraphicsView::mouseReleaseEvent(QMouseEvent *event)
{
    if (takeMouse(*event))
        release(*event);
}

void EditorGraphicsView::press(QMouseEvent &event)
{
    releaseFit();
    if (startPan(event))
        return;
    if (event.type() == QEvent::MouseButtonDblClick)
        ZoomableView::mouseDoubleClickEvent(&event);
    else
        ZoomableView::mousePressEvent(&event);
}

void EditorGraphicsView::move(QMouseEvent &event)
{
    if (m_panButton != Qt::NoButton) {
        // The toolkit would tell of the place where the pointer was before.
        setInteractive(false);
        panBy(event.pos() - m_panFrom);
        setInteractive(true);
        m_panFrom = event.pos();
    }
    ZoomableView::mouseMoveEvent(&event);
}

void EditorGraphicsView::release(QMouseEvent &event)
{
    if (m_panButton == Qt::NoButton || event.button() != m_panButton) {
        ZoomableView::mouseReleaseEvent(&event);
        return;
    }
    m_panButton = Qt::NoButton;
    updatePointer();
}

bool EditorGraphicsView::takeMouse(const QMouseEvent &event)
{
    if (m_pen->isEcho(event))
        return false;
    m_pen->leave();
    m_touch = {};
    m_pointerPlace = exactPlace(event);
    tellPlace();
    return true;
}

void EditorGraphicsView::takePen(QTabletEvent &event)
{
    // Or it would come again as a mouse event.
    event.accept();
    QMouseEvent mouse = m_pen->mouseEvent(event);
    m_pointerPlace = event.posF();
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const bool isEraser = event.pointerType() == QTabletEvent::Eraser;
#else
    const bool isEraser = event.pointerType() == QPointingDevice::PointerType::Eraser;
#endif
    m_touch = {{}, event.pressure(), isEraser};
    tellPlace();
    if (mouse.type() == QEvent::MouseMove)
        return move(mouse);
    if (mouse.type() == QEvent::MouseButtonRelease)
        return release(mouse);
    // Of a mouse the toolkit does this.
    setFocus(Qt::MouseFocusReason);
    press(mouse);
}

// The toolkit counts on with the whole logical pixel.
void EditorGraphicsView::tellPlace()
{
    m_touch.offset = exactlyAt(m_pointerPlace) - mapToScene(m_pointerPlace.toPoint());
    if (shownScene())
        shownScene()->setPen(m_touch);
}

void EditorGraphicsView::penLeft()
{
    // The scene itself can't be told: the toolkit expects more of the event than one can set.
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(viewport(), &leave);
}

void EditorGraphicsView::loseGesture()
{
    m_pen->lift();
    m_panButton = Qt::NoButton;
    if (shownScene())
        shownScene()->finishGesture();
    updatePointer();
}

bool EditorGraphicsView::viewportEvent(QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::Paint)
        followScreen();
    if (type == QEvent::TabletPress || type == QEvent::TabletMove ||
        type == QEvent::TabletRelease) {
        takePen(static_cast<QTabletEvent &>(*event));
        return true;
    }
    if (losesGesture(type))
        loseGesture();
    return ZoomableView::viewportEvent(event);
}

bool EditorGraphicsView::event(QEvent *event)
{
    if (event->type() == QEvent::Gesture) {
        pinch(static_cast<const QGestureEvent &>(*event));
        return true;
    }
    if (event->type() == QEvent::WindowDeactivate)
        m_keys->letSpaceGo();
    if (losesGesture(event->type()))
        loseGesture();
    return ZoomableView::event(event);
}

void EditorGraphicsView::pinch(const QGestureEvent &event)
{
    const auto *gesture = static_cast<const QPinchGesture *>(event.gesture(Qt::PinchGesture));
    if (!gesture)
        return;
    releaseFit();
    if (gesture->changeFlags() & QPinchGesture::CenterPointChanged)
        panBy((gesture->centerPoint() - gesture->lastCenterPoint()).toPoint());
    if (gesture->changeFlags() & QPinchGesture::ScaleFactorChanged)
        zoomAround(viewport()->mapFromGlobal(gesture->centerPoint().toPoint()),
                   zoom() * gesture->scaleFactor());
}

void EditorGraphicsView::updateHeld()
{
    if (shownScene())
        shownScene()->setViewOnly(m_keys->isSpaceHeld());
    updatePointer();
}
