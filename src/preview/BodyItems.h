#pragma once

#include "model/properties/PropertyList.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QRectF>

#include <memory>
#include <optional>
#include <unordered_map>

class Body;
class FloatImage;
class QGraphicsScene;
class SpriteItem;

/// The sprite items of the bodies of a project, in a borrowed scene. They stand where their bodies
/// were moved to; those never moved are laid out. A body that comes back, as by undo, finds its
/// place again.
class BodyItems : public QObject
{
    Q_OBJECT

public:
    explicit BodyItems(QGraphicsScene &scene, QObject *parent = nullptr);
    ~BodyItems() override;

    /// Makes and removes items until there is one for each of @p bodies, the last one topmost.
    void show(const PropertyList::Entries &bodies);
    /// Forgets the places, too.
    void clear();

    bool isEmpty() const { return m_items.empty(); }
    /// True while those shown have come together just now.
    bool areAllNew() const { return !isEmpty() && m_newItems.size() == m_order.size(); }
    /// Null for a body that is not shown.
    SpriteItem *item(const Body *body) const;
    /// All in the order of the project's list.
    const QVector<SpriteItem *> &items() const { return m_order; }
    /// Where the item of @p body, which is shown, belongs.
    QPointF placeOf(const Body &body) const;
    /// Empty without any.
    QRectF rect() const;
    /// Of those of @p bodies that are shown; empty without any.
    QRectF rectOf(const QList<Body *> &bodies) const;
    /// The point of all rectangles that is nearest to @p place; none without items.
    std::optional<QPointF> nearestTo(const QPointF &place) const;
    /// The topmost item with an opaque pixel at @p position, else the topmost whose rectangle has
    /// it; null for none.
    SpriteItem *itemAt(const QPointF &position) const;

    /// Outlines the selected pixels of @p body by @p mask, and those of no other.
    void showSelection(const Body *body, const FloatImage &mask);
    /// True when pixels of one are outlined.
    bool haveSelection() const;

Q_SIGNALS:
    void itemAdded(SpriteItem *item);
    /// Still alive and in the scene.
    void itemAboutToGo(SpriteItem *item);
    /// The document has put it elsewhere.
    void itemPlaced(SpriteItem *item);

private:
    struct Place
    {
        std::weak_ptr<Property> body;
        QPointF laidOut; ///< the item's place while the body was never moved
    };

    void removeAllBut(const PropertyList::Entries &bodies);
    void add(const PropertyList::Entries &bodies);
    void placeNewItems();
    void layOut(const QVector<SpriteItem *> &items, const QVector<QRect> &others);
    QVector<SpriteItem *> newItemsBelowMoved(QVector<QRect> &others) const;
    void followBody(SpriteItem &item);

    QGraphicsScene &m_scene;
    std::unordered_map<const Body *, std::unique_ptr<SpriteItem>> m_items;
    QVector<SpriteItem *> m_order;
    QHash<const Body *, Place> m_places;
    /// Not shown before: laid out together until the event loop comes around,
    /// since bodies that are added at once may come one by one.
    QVector<SpriteItem *> m_newItems;
};
