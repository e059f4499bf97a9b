#include "preview/ZoomableView.h"

#include "preview/EditorScene.h"

#include <QCursor>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWindow>

namespace {
constexpr double maximumFitZoom = 16.0;
constexpr double fitShare = 0.9;  // of the view's sides
constexpr double edgeShare = 0.1; // where content counts as out of view

QPointF middle(const QSize &size)
{
    return {size.width() / 2.0, size.height() / 2.0};
}
} // namespace

ZoomableView::ZoomableView(QWidget *parent)
    : QGraphicsView(parent)
    , m_grid(devicePixelRatioF())
{
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    // The content has room on all sides: bars would only tell how much of nothing there is.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLayoutDirection(Qt::LeftToRight);
    updateTransform();
}

ZoomableView::~ZoomableView() = default;

void ZoomableView::showScene(EditorScene *scene)
{
    if (m_scene)
        m_scene->disconnect(this);
    m_scene = scene;
    setScene(scene);
    if (!scene)
        return;
    connect(scene, &QGraphicsScene::sceneRectChanged, this, &ZoomableView::updateReach);
    scene->setDisplayScaleFactor(float(m_grid.scale()));
    updateReach();
}

void ZoomableView::setZoom(double zoom)
{
    const QPointF pointer = viewport()->mapFromGlobal(QCursor::pos());
    m_fitted = {};
    zoomAround(viewport()->underMouse() ? pointer : middle(viewport()->size()), zoom);
    keepContentInView();
}

// Not only a sliver at the edge.
void ZoomableView::keepContentInView()
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

void ZoomableView::zoomToFit(const QRectF &rect)
{
    m_fitted = rect;
    if (isVisible())
        fit();
}

void ZoomableView::fit()
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

void ZoomableView::zoomAround(const QPointF &viewPoint, double zoom)
{
    const QPointF scenePoint = sceneAt(viewPoint);
    inOneStep([&] {
        applyZoom(qBound(minimumZoom, zoom, maximumZoom));
        place(scenePoint, viewPoint);
    });
}

// The toolkit tells the scene of the pointer whenever something moves below it. A stroke must not
// hear where that is halfway.
void ZoomableView::inOneStep(const std::function<void()> &steps)
{
    const bool wasInteractive = isInteractive();
    setInteractive(false);
    steps();
    setInteractive(wasInteractive);
    tellPlace();
    if (wasInteractive)
        scrollContentsBy(0, 0);
}

void ZoomableView::applyZoom(double zoom)
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
void ZoomableView::updateTransform()
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
void ZoomableView::followScreen()
{
    if (devicePixelRatioF() != m_grid.ratio())
        zoomAround(middle(viewport()->size()), zoom());
}

QPoint ZoomableView::scroll() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

QPointF ZoomableView::sceneAt(const QPointF &viewPoint) const
{
    if (m_anchor && m_anchor->view == viewPoint && m_anchor->scroll == scroll())
        return m_anchor->scene;
    return viewportTransform().inverted().map(viewPoint);
}

void ZoomableView::place(const QPointF &scenePoint, const QPointF &viewPoint)
{
    panBy((viewPoint - viewportTransform().map(scenePoint)).toPoint());
    m_anchor = Anchor{scenePoint, viewPoint, scroll()};
}

void ZoomableView::panBy(const QPoint &distance)
{
    inOneStep([&] {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - distance.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() - distance.y());
    });
}

// One can go beyond the content until it has just left the view.
void ZoomableView::updateReach()
{
    if (!m_scene)
        return;
    const QSizeF room = QSizeF(viewport()->size()) / m_grid.scale();
    setSceneRect(
        m_scene->sceneRect().adjusted(-room.width(), -room.height(), room.width(), room.height()));
}

void ZoomableView::scrollContentsBy(int dx, int dy)
{
    const bool wasInteractive = isInteractive();
    setInteractive(false);
    updateTransform();
    setInteractive(wasInteractive);
    QGraphicsView::scrollContentsBy(dx, dy);
    // The toolkit leaves this out in a view that does not follow its items by itself.
    viewport()->update();
}

void ZoomableView::resizeEvent(QResizeEvent *event)
{
    const QPointF centre = sceneAt(middle(event->oldSize().expandedTo({0, 0})));
    QGraphicsView::resizeEvent(event);
    updateReach();
    place(centre, middle(viewport()->size()));
    // A window that is to be maximised is shown first and gets its size later.
    if (isVisible())
        fit();
}

void ZoomableView::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    followScreen();
    fit();
}

QPointF ZoomableView::exactlyAt(const QPointF &viewPoint) const
{
    // The window's own ratio is the exact one.
    const QWindow *window = this->window()->windowHandle();
    const PixelGrid exact(window ? window->devicePixelRatio() : m_grid.ratio());
    const QPoint corner = viewport()->mapTo(this->window(), QPoint());
    const QPointF place = (viewPoint - exact.toCorner(corner)) * exact.ratio();
    return m_grid.sceneAt(place - viewportTransform().map(QPointF()) * m_grid.ratio());
}
