#include "preview/ScenePointer.h"

#include "preview/GLGraphicsLight.h"
#include "preview/ToolCursor.h"

#include <QBitmap>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

namespace {
constexpr double toolCursorZ = 1100.0; // above the light

// Made once: a pointer with a picture of its own is equal to its copies only.
const QCursor &blankPointer()
{
    static const QCursor pointer = [] {
        QBitmap blank(1, 1);
        blank.clear();
        return QCursor(blank, blank);
    }();
    return pointer;
}
} // namespace

ScenePointer::ScenePointer(QGraphicsScene &scene, GLGraphicsLight &light)
    : m_scene(scene)
    , m_light(light)
{
}

ScenePointer::~ScenePointer() = default;

void ScenePointer::makeExact(QGraphicsSceneMouseEvent &event)
{
    event.setScenePos(event.scenePos() + m_offset);
    const bool isPress = event.type() == QEvent::GraphicsSceneMousePress ||
                         event.type() == QEvent::GraphicsSceneMouseDoubleClick;
    if (isPress)
        m_pressPlaces.insert(event.button(), event.scenePos());
    for (auto it = m_pressPlaces.cbegin(); it != m_pressPlaces.cend(); ++it)
        event.setButtonDownScenePos(it.key(), it.value());
}

void ScenePointer::moveTo(const QPointF &position)
{
    m_position = position;
    m_isInside = true;
    if (m_item)
        m_item->setPos(position);
}

bool ScenePointer::isOverLight() const
{
    const auto here = position();
    return here && m_light.isVisible() && m_light.contains(m_light.mapFromScene(*here));
}

void ScenePointer::setToolCursor(const ScalableToolCursor &cursor)
{
    const bool isDrawn = !cursor.shapes().isEmpty();
    m_toolPointer = isDrawn ? blankPointer() : cursor.pointer();
    setItem(isDrawn ? std::make_unique<ToolCursor>(cursor) : nullptr);
}

void ScenePointer::setItem(std::unique_ptr<ToolCursor> item)
{
    m_item = std::move(item);
    if (!m_item)
        return;
    m_item->setZValue(toolCursorZ);
    m_item->setPos(m_position.value_or(QPointF()));
    m_scene.addItem(m_item.get());
}

void ScenePointer::showToolCursor(bool isInUse)
{
    if (m_item)
        m_item->setVisible(isInUse && position() && !isOverLight());
}
