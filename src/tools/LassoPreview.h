#pragma once

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QGraphicsItem;
class QGraphicsItemGroup;
class QGraphicsPathItem;
class QPoint;
class QPolygon;
QT_END_NAMESPACE

/// Shows an open polygon above a sprite, in pixels of the sprite and with lines one pixel of the
/// screen wide. A member of the tool; a scene borrows the item.
class LassoPreview
{
public:
    LassoPreview();
    ~LassoPreview();
    LassoPreview(const LassoPreview &) = delete;
    LassoPreview &operator=(const LassoPreview &) = delete;

    /// A group, which holds something between begin() and clear().
    QGraphicsItem *item() const;

    /// The area is tinted unless it is taken away.
    void begin(bool isSubtracting);
    /// @p polygon with a rubber band to @p pointer. With @p isClosing, where a click closes it, the
    /// first corner stands out. Called after begin().
    void show(const QPolygon &polygon, const QPoint &pointer, bool isClosing);
    void clear();

private:
    std::unique_ptr<QGraphicsItemGroup> m_group;
    // Parts of the group, null while there are none:
    QGraphicsPathItem *m_fill = nullptr;
    QGraphicsPathItem *m_outline = nullptr;
    QGraphicsPathItem *m_dashes = nullptr;
    QGraphicsPathItem *m_mark = nullptr;
};
