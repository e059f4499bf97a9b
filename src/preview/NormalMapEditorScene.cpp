#include "preview/NormalMapEditorScene.h"

#include "imaging/FloatImage.h"
#include "model/ItemSelectionModel.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/BodyItems.h"
#include "preview/GLGraphicsLight.h"
#include "preview/LightRotation.h"
#include "preview/ProjectLight.h"
#include "preview/ScenePointer.h"
#include "preview/SceneSelection.h"
#include "preview/SpriteItem.h"
#include "preview/StartScreen.h"
#include "preview/ToolRouting.h"

#include <QEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QKeyEvent>

#include <utility>

namespace {
constexpr QRectF emptyContent(-256.0, -256.0, 512.0, 512.0);
} // namespace

NormalMapEditorScene::NormalMapEditorScene(ItemSelectionModel &bodies,
                                           PixelSelectionModel &pixels,
                                           QObject *parent)
    : GLGraphicsScene(parent)
    , m_bodies(bodies)
    , m_pixels(pixels)
    , m_items(std::make_unique<BodyItems>(*this))
    , m_startScreen(std::make_unique<StartScreen>())
    , m_routing(std::make_unique<ToolRouting>(*this, pixels))
    , m_selection(std::make_unique<SceneSelection>(*this, *m_items, bodies))
    , m_projectLight(std::make_unique<ProjectLight>(*this))
    , m_pointer(std::make_unique<ScenePointer>(*this, light()))
    , m_rotation(std::make_unique<LightRotation>(light(), [this] { return spritesRect(); }))
{
    // Which pointer shows over it is told with all others.
    light().unsetCursor();
    QGraphicsScene::addItem(m_startScreen.get());
    connectParts(bodies, pixels);
    setProject(nullptr);
}

NormalMapEditorScene::~NormalMapEditorScene()
{
    setTool(nullptr);
    setProject(nullptr);
}

void NormalMapEditorScene::connectParts(ItemSelectionModel &bodies, PixelSelectionModel &pixels)
{
    using Scene = NormalMapEditorScene;
    connect(&bodies, &ItemSelectionModel::bodySelectionChanged, this, &Scene::updateCurrentBody);
    connect(&pixels, &PixelSelectionModel::selectionChanged, this, &Scene::showPixelSelection);
    connect(m_items.get(), &BodyItems::itemAdded, this, &Scene::addItem);
    connect(m_items.get(), &BodyItems::itemAboutToGo, this, &Scene::dropItem);
    connect(m_items.get(), &BodyItems::itemPlaced, this, &Scene::followPlace);
    connect(m_routing.get(), &ToolRouting::cursorChanged, this, &Scene::setToolCursor);
    connect(m_routing.get(), &ToolRouting::stateChanged, this, &Scene::updateHover);
    connect(this, &QGraphicsScene::changed, this, &Scene::updateViews);
    connect(this, &GLGraphicsScene::spriteScaledDown, this, &Scene::noticeScaledDown);
}

// Called while the scene is drawn: nothing may be told before that ends.
void NormalMapEditorScene::noticeScaledDown(GLGraphicsSprite *sprite, int limit)
{
    const auto *item = dynamic_cast<const SpriteItem *>(sprite);
    if (!item)
        return;
    const QString text =
        tr("\"%1\" is larger than the %2 pixels that this graphics driver can show, "
           "and is shown from a smaller copy. Its normal map keeps the full size.")
            .arg(item->body().name().value())
            .arg(limit);
    const auto tell = [this, text] { Q_EMIT noticed(text); };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

// Views that don't follow the items by themselves are told by the scene.
void NormalMapEditorScene::updateViews()
{
    for (QGraphicsView *view : views())
        view->viewport()->update();
}

void NormalMapEditorScene::setProject(Project *project)
{
    m_selection->cancel();
    m_listObservation = {};
    m_items->clear();
    m_project = project;
    m_projectLight->setProject(project);
    if (project)
        m_listObservation = ChangeManager::instance().observe(project->bodies(), *this);
    updateItems();
    m_projectLight->placeIn(contentRect());
}

void NormalMapEditorScene::observableChanged(Observable & /*observable*/)
{
    updateItems();
}

void NormalMapEditorScene::updateItems()
{
    m_items->show(m_project ? m_project->bodies().entries() : PropertyList::Entries());
    m_startScreen->setVisible(m_items->isEmpty());
    if (m_items->areAllNew())
        m_projectLight->placeIn(contentRect());
    updateCurrentBody();
    updateContent();
    updateAnimating();
}

void NormalMapEditorScene::addItem(SpriteItem *item)
{
    // Whether a press means a sprite is decided here, and a tool may be asked first.
    item->setAcceptedMouseButtons(Qt::NoButton);
    if (m_pixels.body() == &item->body())
        item->setPixelSelection(m_pixels.selection());
    connect(item, &SpriteItem::sizeChanged, this, &NormalMapEditorScene::updateContent);
    connect(item, &SpriteItem::contentChanged, this, [this] {
        update();
        updatePointedPixel();
    });
}

void NormalMapEditorScene::dropItem(SpriteItem *item)
{
    item->disconnect(this);
    m_selection->cancel();
    if (m_routing->target() != item)
        return;
    m_currentBody = nullptr;
    m_routing->setTarget(nullptr);
    m_pixels.setBody(nullptr);
}

// Undo and redo may move what is being dragged.
void NormalMapEditorScene::followPlace()
{
    m_selection->cancel();
    // Many may be placed by one step.
    if (std::exchange(m_isContentDue, true))
        return;
    const auto update = [this] {
        m_isContentDue = false;
        updateContent();
    };
    QMetaObject::invokeMethod(this, update, Qt::QueuedConnection);
}

void NormalMapEditorScene::updateContent()
{
    setSceneRect(contentRect());
    m_selection->updateOutlines();
    m_routing->placeOverlay();
    updatePointedPixel();
    update();
    Q_EMIT contentRectChanged();
}

SpriteItem *NormalMapEditorScene::spriteItem(const Body *body) const
{
    return m_items->item(body);
}

QRectF NormalMapEditorScene::spritesRect() const
{
    return m_items->rect();
}

QRectF NormalMapEditorScene::selectedRect() const
{
    return m_items->rectOf(m_bodies.selection());
}

// Between sprites there may be more ground than a view shows.
QPointF NormalMapEditorScene::contentNear(const QPointF &place) const
{
    return m_items->nearestTo(place).value_or(GLGraphicsScene::contentNear(place));
}

QRectF NormalMapEditorScene::contentRect() const
{
    const QRectF sprites = spritesRect();
    if (!sprites.isEmpty())
        return sprites;
    const QRectF screen(m_startScreen->pos(), m_startScreen->boundingRect().size());
    return screen.isEmpty() ? emptyContent : screen;
}

PaintTool *NormalMapEditorScene::tool() const
{
    return m_routing->tool();
}

void NormalMapEditorScene::setTool(PaintTool *tool)
{
    m_routing->setTool(tool);
}

void NormalMapEditorScene::updateCurrentBody()
{
    const QList<Body *> selected = m_bodies.selection();
    SpriteItem *item = selected.size() == 1 ? m_items->item(selected.first()) : nullptr;
    if (SpriteItem *former = m_items->item(m_currentBody); former && former != item)
        former->processor().setExpectsPieces(false);
    if (item)
        item->processor().setExpectsPieces(true);
    m_currentBody = item ? &item->body() : nullptr;
    m_pixels.setBody(m_currentBody);
    m_routing->setTarget(item);
    m_selection->updateOutlines();
    updateHover();
}

void NormalMapEditorScene::showPixelSelection(Body *body, const FloatImage &mask)
{
    m_items->showSelection(body, mask);
    m_routing->pixelSelectionChanged(body);
    updateAnimating();
}

// Pixel outlines march in every display mode, the light turns where it shows.
void NormalMapEditorScene::updateAnimating()
{
    const bool hasTurn = m_rotation->isOn() && !m_items->isEmpty() && light().isVisible();
    setAnimating(hasTurn || m_items->haveSelection());
}

void NormalMapEditorScene::setDisplayMode(DisplayMode mode)
{
    GLGraphicsScene::setDisplayMode(mode);
    updateAnimating();
    updateHover();
}

void NormalMapEditorScene::setAutoRotateLight(bool isOn)
{
    m_rotation->setOn(isOn);
    updateAnimating();
}

void NormalMapEditorScene::moveLightToPointer()
{
    const auto place = m_pointer->lastPosition();
    if (!place)
        return;
    light().setPos(*place);
    updateHover();
}

void NormalMapEditorScene::setViewOnly(bool isViewOnly)
{
    m_isViewOnly = isViewOnly;
    updateHover();
}

void NormalMapEditorScene::setSelectionLocked(bool isLocked)
{
    finishGesture();
    m_isSelectionLocked = isLocked;
    updateHover();
}

InteractionMode NormalMapEditorScene::interactionMode() const
{
    return m_isViewOnly ? InteractionMode::ViewOnly : m_routing->mode();
}

void NormalMapEditorScene::setPen(const PenTouch &touch)
{
    m_routing->setPen(touch);
    m_pointer->setOffset(touch.offset);
}

bool NormalMapEditorScene::isGestureOpen() const
{
    return m_routing->isPressed() || m_selection->isPressed();
}

void NormalMapEditorScene::finishGesture()
{
    m_routing->finishGesture();
    if (!m_selection->isPressed())
        return;
    m_selection->finish();
    updateContent();
}

bool NormalMapEditorScene::turnWheel(double notches, Qt::KeyboardModifiers modifiers)
{
    return !m_isViewOnly && m_routing->turnWheel(notches, modifiers);
}

void NormalMapEditorScene::setToolCursor(const ScalableToolCursor &cursor)
{
    m_pointer->setToolCursor(cursor);
    updateHover();
}

QCursor NormalMapEditorScene::pointerHere() const
{
    if (mouseGrabberItem() == &light())
        return Qt::ClosedHandCursor;
    if (m_pointer->isOverLight())
        return Qt::OpenHandCursor;
    if (m_routing->takesEvents())
        return m_pointer->toolPointer();
    const auto here = m_pointer->position();
    if (!here || m_isSelectionLocked || !m_items->itemAt(*here))
        return Qt::ArrowCursor;
    const bool isMovable = m_routing->mode() == InteractionMode::MoveSprites;
    return isMovable ? Qt::SizeAllCursor : Qt::PointingHandCursor;
}

void NormalMapEditorScene::updateHover()
{
    m_pointer->showToolCursor(m_routing->takesEvents() && !m_isViewOnly);
    setPointer(pointerHere());
}

// The tool paints on the current sprite, also where another one covers it.
const SpriteItem *NormalMapEditorScene::itemHere() const
{
    const auto here = m_pointer->position();
    if (!here)
        return nullptr;
    const SpriteItem *target = m_routing->takesEvents() ? m_routing->target() : nullptr;
    const bool isOnTarget = target && target->contains(target->mapFromScene(*here));
    return isOnTarget ? target : m_items->itemAt(*here);
}

void NormalMapEditorScene::updatePointedPixel()
{
    const SpriteItem *item = itemHere();
    const PointedPixel pointed =
        item ? pointedPixel(*item, *m_pointer->position()) : PointedPixel();
    if (pointed == m_pointed)
        return;
    m_pointed = pointed;
    Q_EMIT pointedPixelChanged(m_pointed);
}

bool NormalMapEditorScene::event(QEvent *event)
{
    if (event->type() == QEvent::Leave || event->type() == QEvent::Enter) {
        event->type() == QEvent::Enter ? m_pointer->enter() : m_pointer->leave();
        updateHover();
        updatePointedPixel();
    }
    return GLGraphicsScene::event(event);
}

void NormalMapEditorScene::pressed(QGraphicsSceneMouseEvent &event, ToolOperation operation)
{
    if (m_routing->takesEvents() && (!m_isViewOnly || m_routing->isPressed()))
        ((*m_routing).*operation)(event);
    else if (!m_isViewOnly && !m_isSelectionLocked)
        m_selection->press(event, m_routing->mode() == InteractionMode::MoveSprites);
    // What is left for the view begins a rubber band.
    if (!m_selection->isPressed())
        event.accept();
}

void NormalMapEditorScene::mousePressEvent(QGraphicsSceneMouseEvent *event)
{
    m_pointer->makeExact(*event);
    GLGraphicsScene::mousePressEvent(event);
    if (!event->isAccepted())
        pressed(*event, &ToolRouting::press);
    updateHover();
}

void NormalMapEditorScene::mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event)
{
    m_pointer->makeExact(*event);
    GLGraphicsScene::mouseDoubleClickEvent(event);
    if (!event->isAccepted())
        pressed(*event, &ToolRouting::doubleClick);
    updateHover();
}

void NormalMapEditorScene::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    m_pointer->makeExact(*event);
    GLGraphicsScene::mouseMoveEvent(event);
    m_pointer->moveTo(event->scenePos());
    if (m_selection->isPressed())
        m_selection->move(*event);
    else if (!event->isAccepted() && (!m_isViewOnly || m_routing->isPressed()))
        m_routing->move(*event);
    if (event->buttons() == Qt::NoButton)
        updateHover();
    updatePointedPixel();
}

void NormalMapEditorScene::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    m_pointer->makeExact(*event);
    GLGraphicsScene::mouseReleaseEvent(event);
    // The tool hears of one that the light took, too: another button may have come down on it.
    if (!m_selection->isPressed())
        m_routing->release(*event);
    else if (m_selection->release(*event))
        updateContent();
    updateHover();
}

void NormalMapEditorScene::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_selection->isOnBodies()) {
        m_selection->cancel();
        updateHover();
        updatePointedPixel();
        event->accept();
        return;
    }
    GLGraphicsScene::keyPressEvent(event);
    if (!m_isViewOnly)
        m_routing->keyPress(*event);
}

void NormalMapEditorScene::keyReleaseEvent(QKeyEvent *event)
{
    GLGraphicsScene::keyReleaseEvent(event);
    if (!m_isViewOnly)
        m_routing->keyRelease(*event);
}
