#include "preview/EditorGraphicsView.h"

#include "preview/EditorScene.h"
#include "preview/PenInput.h"
#include "preview/ViewKeys.h"

#include <QCoreApplication>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QPinchGesture>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTabletEvent>
#include <QWheelEvent>
#include <QWindow>

#include <cmath>

namespace {
constexpr double maximumFitZoom = 16.0;
constexpr double fitShare = 0.9;         // of the view's sides
constexpr double edgeShare = 0.1;        // where content counts as out of view
constexpr double notchesToDouble = 4.0;  // of a mouse wheel
constexpr int angleOfNotch = 120;        // as the toolkit counts
constexpr int scrolledAnglePerPixel = 2; // a notch is 60 pixels

QPointF middle(const QSize &size)
{
    return {size.width() / 2.0, size.height() / 2.0};
}

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
    return event.position();
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
    : QGraphicsView(parent)
    , m_grid(devicePixelRatioF())
    , m_pen(std::make_unique<PenInput>(*this))
    , m_keys(std::make_unique<ViewKeys>(*this, *m_pen))
{
    connect(m_pen.get(), &PenInput::left, this, &EditorGraphicsView::penLeft);
    connect(m_pen.get(), &PenInput::lost, this, &EditorGraphicsView::loseGesture);
    connect(m_keys.get(), &ViewKeys::spaceHeldChanged, this, &EditorGraphicsView::updateHeld);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    // The content has room on all sides: bars would only tell how much of nothing there is.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLayoutDirection(Qt::LeftToRight);
    setMouseTracking(true);
    // The right button may be the tool's.
    setContextMenuPolicy(Qt::PreventContextMenu);
    updateTransform();
}

EditorGraphicsView::~EditorGraphicsView() = default;

void EditorGraphicsView::setEditorScene(EditorScene *scene)
{
    if (m_scene)
        m_scene->disconnect(this);
    m_scene = scene;
    setScene(scene);
    if (!scene)
        return;
    connect(scene, &QGraphicsScene::sceneRectChanged, this, &EditorGraphicsView::updateReach);
    connect(scene, &EditorScene::pointerChanged, this, &EditorGraphicsView::updatePointer);
    scene->setDisplayScaleFactor(float(m_grid.scale()));
    updateReach();
    updatePointer();
}

void EditorGraphicsView::setZoom(double zoom)
{
    const QPointF pointer = viewport()->mapFromGlobal(QCursor::pos());
    m_fitted = {};
    zoomAround(viewport()->underMouse() ? pointer : middle(viewport()->size()), zoom);
    keepContentInView();
}

// Not only a sliver at the edge.
void EditorGraphicsView::keepContentInView()
{
    if (!m_scene)
        return;
    const QSizeF edge = QSizeF(viewport()->size()) / m_grid.scale() * edgeShare;
    const QRectF seen = mapToScene(viewport()->rect())
                            .boundingRect()
                            .adjusted(edge.width(), edge.height(), -edge.width(), -edge.height());
    const QPointF nearest = m_scene->contentNear(seen.center());
    if (!seen.contains(nearest))
        place(nearest, middle(viewport()->size()));
}

void EditorGraphicsView::zoomToFit(const QRectF &rect)
{
    m_fitted = rect;
    if (isVisible())
        fit();
}

void EditorGraphicsView::fit()
{
    if (m_fitted.isEmpty())
        return;
    const double across = viewport()->width() * fitShare / m_fitted.width();
    const double down = viewport()->height() * fitShare / m_fitted.height();
    inOneStep([&] {
        const double zoom = m_grid.zoomOf(qMin(across, down));
        applyZoom(qBound(minimumZoom, zoom, maximumFitZoom));
        place(m_fitted.center(), middle(viewport()->size()));
    });
}

void EditorGraphicsView::zoomAround(const QPointF &viewPoint, double zoom)
{
    const QPointF scenePoint = sceneAt(viewPoint);
    inOneStep([&] {
        applyZoom(qBound(minimumZoom, zoom, maximumZoom));
        place(scenePoint, viewPoint);
    });
}

// The toolkit tells the scene of the pointer whenever something moves below it. A stroke must not
// hear where that is halfway.
void EditorGraphicsView::inOneStep(const std::function<void()> &steps)
{
    const bool wasInteractive = isInteractive();
    setInteractive(false);
    steps();
    setInteractive(wasInteractive);
    tellPlace();
    if (wasInteractive)
        scrollContentsBy(0, 0);
}

void EditorGraphicsView::applyZoom(double zoom)
{
    const bool isNew = zoom != this->zoom();
    m_grid = PixelGrid(devicePixelRatioF(), zoom);
    updateTransform();
    updateReach();
    if (m_scene)
        m_scene->setDisplayScaleFactor(float(m_grid.scale()));
    if (isNew)
        Q_EMIT zoomChanged(zoom);
}

// Scroll bars count logical pixels. What is missing to whole device pixels is added here, so that
// the borders of sprite pixels always fall between those.
void EditorGraphicsView::updateTransform()
{
    if (m_isTransforming)
        return;
    const QScopedValueRollback transforming(m_isTransforming, true);
    // Another transformation may leave another room to scroll in, and so on without end where the
    // scene just fits into the view: once more is enough anywhere else.
    for (int attempt = 0; attempt < 2; ++attempt) {
        const QPointF shift = m_grid.toCorner(-scroll());
        setTransform({m_grid.scale(), 0.0, 0.0, m_grid.scale(), shift.x(), shift.y()});
    }
}

// To one of another ratio the window can come at any time.
void EditorGraphicsView::followScreen()
{
    if (devicePixelRatioF() != m_grid.ratio())
        zoomAround(middle(viewport()->size()), zoom());
}

QPoint EditorGraphicsView::scroll() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

QPointF EditorGraphicsView::sceneAt(const QPointF &viewPoint) const
{
    if (m_anchor && m_anchor->view == viewPoint && m_anchor->scroll == scroll())
        return m_anchor->scene;
    return viewportTransform().inverted().map(viewPoint);
}

void EditorGraphicsView::place(const QPointF &scenePoint, const QPointF &viewPoint)
{
    panBy((viewPoint - viewportTransform().map(scenePoint)).toPoint());
    m_anchor = Anchor{scenePoint, viewPoint, scroll()};
}

void EditorGraphicsView::panBy(const QPoint &distance)
{
    inOneStep([&] {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - distance.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - distance.y());
    });
}

// One can go beyond the content until it has just left the view.
void EditorGraphicsView::updateReach()
{
    if (!m_scene)
        return;
    const QSizeF room = QSizeF(viewport()->size()) / m_grid.scale();
    setSceneRect(
        m_scene->sceneRect().adjusted(-room.width(), -room.height(), room.width(), room.height()));
}

void EditorGraphicsView::updatePointer()
{
    if (m_panButton != Qt::NoButton)
        viewport()->setCursor(Qt::ClosedHandCursor);
    else if (m_keys->isSpaceHeld())
        viewport()->setCursor(Qt::OpenHandCursor);
    else if (m_scene)
        viewport()->setCursor(m_scene->pointer());
}

void EditorGraphicsView::scrollContentsBy(int dx, int dy)
{
    const bool wasInteractive = isInteractive();
    setInteractive(false);
    updateTransform();
    setInteractive(wasInteractive);
    QGraphicsView::scrollContentsBy(dx, dy);
    // The toolkit leaves this out in a view that does not follow its items by itself.
    viewport()->update();
}

void EditorGraphicsView::resizeEvent(QResizeEvent *event)
{
    const QPointF centre = sceneAt(middle(event->oldSize().expandedTo({0, 0})));
    QGraphicsView::resizeEvent(event);
    updateReach();
    place(centre, middle(viewport()->size()));
    // A window that is to be maximised is shown first and gets its size later.
    if (isVisible())
        fit();
}

void EditorGraphicsView::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    followScreen();
    fit();
}

void EditorGraphicsView::wheelEvent(QWheelEvent *event)
{
    const double notches = notchesOf(*event);
    if (event->modifiers() & Qt::ControlModifier && !m_keys->isSpaceHeld()) {
        // A touchpad also tells when it begins and ends.
        const bool isTaken = m_scene && notches != 0.0;
        event->setAccepted(isTaken && m_scene->turnWheel(notches, event->modifiers()));
        return;
    }
    event->accept();
    m_fitted = {};
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
    m_fitted = {};
    if (startPan(event))
        return;
    if (event.type() == QEvent::MouseButtonDblClick)
        QGraphicsView::mouseDoubleClickEvent(&event);
    else
        QGraphicsView::mousePressEvent(&event);
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
    QGraphicsView::mouseMoveEvent(&event);
}

void EditorGraphicsView::release(QMouseEvent &event)
{
    if (m_panButton == Qt::NoButton || event.button() != m_panButton) {
        QGraphicsView::mouseReleaseEvent(&event);
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
    if (m_scene)
        m_scene->setPen(m_touch);
}

QPointF EditorGraphicsView::exactlyAt(const QPointF &viewPoint) const
{
    // The window's own ratio is the exact one.
    const QWindow *window = this->window()->windowHandle();
    const PixelGrid exact(window ? window->devicePixelRatio() : m_grid.ratio());
    const QPoint corner = viewport()->mapTo(this->window(), QPoint());
    const QPointF place = (viewPoint - exact.toCorner(corner)) * exact.ratio();
    return m_grid.sceneAt(place - viewportTransform().map(QPointF()) * m_grid.ratio());
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
    if (m_scene)
        m_scene->finishGesture();
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
    return QGraphicsView::viewportEvent(event);
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
    return QGraphicsView::event(event);
}

void EditorGraphicsView::pinch(const QGestureEvent &event)
{
    const auto *gesture = static_cast<const QPinchGesture *>(event.gesture(Qt::PinchGesture));
    if (!gesture)
        return;
    m_fitted = {};
    if (gesture->changeFlags() & QPinchGesture::CenterPointChanged)
        panBy((gesture->centerPoint() - gesture->lastCenterPoint()).toPoint());
    if (gesture->changeFlags() & QPinchGesture::ScaleFactorChanged)
        zoomAround(viewport()->mapFromGlobal(gesture->centerPoint().toPoint()),
                   zoom() * gesture->scaleFactor());
}

void EditorGraphicsView::updateHeld()
{
    if (m_scene)
        m_scene->setViewOnly(m_keys->isSpaceHeld());
    updatePointer();
}
