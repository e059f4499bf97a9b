#pragma once

#include <QCursor>
#include <QHash>
#include <QPointF>

#include <memory>
#include <optional>

class GLGraphicsLight;
class QGraphicsScene;
class QGraphicsSceneMouseEvent;
class ScalableToolCursor;
class ToolCursor;

/// Where the pointer is over a scene and what the active tool shows there. Scene and light are
/// borrowed.
class ScenePointer
{
public:
    ScenePointer(QGraphicsScene &scene, GLGraphicsLight &light);
    ~ScenePointer();

    /// From where the toolkit sees the pointer, in whole logical pixels, to where it is.
    void setOffset(const QPointF &offset) { m_offset = offset; }
    /// Puts a mouse event, and where it says that buttons came down, where the pointer is and was.
    void makeExact(QGraphicsSceneMouseEvent &event);
    void moveTo(const QPointF &position);
    void leave() { m_isInside = false; }
    void enter() { m_isInside = true; }
    /// Nothing while the pointer is elsewhere.
    std::optional<QPointF> position() const { return m_isInside ? m_position : std::nullopt; }
    /// Where it was last; nothing before it came.
    std::optional<QPointF> lastPosition() const { return m_position; }
    /// Over a light that shows.
    bool isOverLight() const;

    /// Outlines are drawn by an item, beside a blank mouse pointer.
    void setToolCursor(const ScalableToolCursor &cursor);
    const QCursor &toolPointer() const { return m_toolPointer; }
    /// Shows the outlines if the tool @p isInUse, unless the pointer is over the light or
    /// elsewhere.
    void showToolCursor(bool isInUse);

private:
    void setItem(std::unique_ptr<ToolCursor> item);

    QGraphicsScene &m_scene;
    GLGraphicsLight &m_light;
    std::unique_ptr<ToolCursor> m_item;
    QCursor m_toolPointer;
    QPointF m_offset;
    QHash<Qt::MouseButton, QPointF> m_pressPlaces; // where each came down last
    std::optional<QPointF> m_position;
    bool m_isInside = false;
};
