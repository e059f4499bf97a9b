#include "preview/BodyItems.h"

#include "imaging/FloatImage.h"
#include "model/Body.h"
#include "model/Sprite.h"
#include "preview/SpriteItem.h"
#include "preview/SpriteLayout.h"

#include <QGraphicsScene>
#include <QLineF>
#include <QSet>
#include <QtMath>

#include <algorithm>

namespace {
Body &bodyOf(const std::shared_ptr<Property> &entry)
{
    return static_cast<Body &>(*entry);
}

QRectF sceneRect(const SpriteItem &item)
{
    return {item.pos(), item.boundingRect().size()};
}

bool isOpaqueAt(const SpriteItem &item, const QPointF &position)
{
    const QPointF local = position - item.pos();
    const QPoint pixel(qFloor(local.x()), qFloor(local.y()));
    const QImage &image = item.body().sprite().image();
    return image.valid(pixel) && qAlpha(image.pixel(pixel)) > 0;
}
} // namespace

BodyItems::BodyItems(QGraphicsScene &scene, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
{
}

BodyItems::~BodyItems() = default;

void BodyItems::show(const PropertyList::Entries &bodies)
{
    removeAllBut(bodies);
    add(bodies);
    m_order.clear();
    for (const auto &entry : bodies) {
        m_order.append(item(&bodyOf(entry)));
        // Below 1, where overlays begin.
        m_order.last()->setZValue(double(m_order.size()) / (bodies.size() + 1));
    }
}

void BodyItems::clear()
{
    show({});
    m_places.clear();
}

void BodyItems::removeAllBut(const PropertyList::Entries &bodies)
{
    QSet<const Body *> kept;
    for (const auto &entry : bodies)
        kept.insert(&bodyOf(entry));
    for (auto it = m_items.begin(); it != m_items.end();) {
        SpriteItem &item = *it->second;
        if (kept.contains(it->first)) {
            ++it;
            continue;
        }
        m_order.removeOne(&item);
        m_newItems.removeOne(&item);
        Q_EMIT itemAboutToGo(&item);
        it = m_items.erase(it);
    }
}

void BodyItems::add(const PropertyList::Entries &bodies)
{
    const int knownBefore = m_newItems.size();
    for (const auto &entry : bodies) {
        Body &body = bodyOf(entry);
        auto &item = m_items[&body];
        if (item)
            continue;
        item = std::make_unique<SpriteItem>(body);
        // Another body may have got the address of one that is gone.
        if (m_places.value(&body).body.lock() != entry) {
            m_places.insert(&body, {entry, {}});
            m_newItems.append(item.get());
        }
        item->setPos(placeOf(body));
        const auto follow = [this, added = item.get()] { followBody(*added); };
        connect(item.get(), &SpriteItem::placeChanged, this, follow);
        m_scene.addItem(item.get());
        Q_EMIT itemAdded(item.get());
    }
    if (m_newItems.size() > knownBefore)
        placeNewItems();
}

void BodyItems::placeNewItems()
{
    QVector<QRect> others;
    for (const auto &[body, item] : m_items) {
        if (!m_newItems.contains(item.get()) && !item->boundingRect().isEmpty())
            others.append(sceneRect(*item).toAlignedRect());
    }
    layOut(m_newItems, others);
    const auto covered = newItemsBelowMoved(others);
    if (!covered.isEmpty())
        layOut(covered, others);
    for (SpriteItem *item : std::as_const(m_newItems))
        item->setPos(placeOf(item->body()));
    const auto close = [this] { m_newItems.clear(); };
    QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
}

void BodyItems::layOut(const QVector<SpriteItem *> &items, const QVector<QRect> &others)
{
    QVector<QSize> sizes;
    for (const SpriteItem *item : items)
        sizes.append(item->boundingRect().size().toSize());
    const QVector<QPoint> places = layoutSprites(sizes, others);
    for (int i = 0; i < items.size(); ++i)
        m_places[&items[i]->body()].laidOut = places[i];
}

// A project's sprites are laid out as if none had been moved, so that those beside a moved one
// stand where they stood when it was moved. Only what would be covered goes elsewhere. The
// rectangles of all that stays are appended to @p others.
QVector<SpriteItem *> BodyItems::newItemsBelowMoved(QVector<QRect> &others) const
{
    QVector<QRect> moved;
    QVector<QRect> laidOut;
    QVector<SpriteItem *> covered;
    const auto rectOf = [this](const SpriteItem &item) {
        return QRectF(placeOf(item.body()), item.boundingRect().size()).toAlignedRect();
    };
    for (const SpriteItem *item : m_newItems) {
        if (item->body().place() && !item->boundingRect().isEmpty())
            moved.append(rectOf(*item));
    }
    for (SpriteItem *item : m_newItems) {
        if (item->body().place())
            continue;
        const QRect rect = rectOf(*item);
        const bool isCovered = std::any_of(moved.begin(), moved.end(), [&rect](const QRect &each) {
            return each.intersects(rect);
        });
        if (isCovered)
            covered.append(item);
        else if (!rect.isEmpty())
            laidOut.append(rect);
    }
    others += moved + laidOut;
    return covered;
}

void BodyItems::followBody(SpriteItem &item)
{
    const QPointF place = placeOf(item.body());
    if (item.pos() == place)
        return;
    item.setPos(place);
    Q_EMIT itemPlaced(&item);
}

QPointF BodyItems::placeOf(const Body &body) const
{
    const auto moved = body.place();
    return moved ? QPointF(*moved) : m_places.value(&body).laidOut;
}

SpriteItem *BodyItems::item(const Body *body) const
{
    const auto found = m_items.find(body);
    return found == m_items.end() ? nullptr : found->second.get();
}

QRectF BodyItems::rect() const
{
    QRectF result;
    for (const auto &[body, item] : m_items)
        result |= sceneRect(*item);
    return result;
}

QRectF BodyItems::rectOf(const QList<Body *> &bodies) const
{
    QRectF result;
    for (const Body *body : bodies) {
        if (const SpriteItem *shown = item(body))
            result |= sceneRect(*shown);
    }
    return result;
}

std::optional<QPointF> BodyItems::nearestTo(const QPointF &place) const
{
    std::optional<QPointF> nearest;
    for (const SpriteItem *item : m_order) {
        const QRectF rect = sceneRect(*item);
        const QPointF point(qBound(rect.left(), place.x(), rect.right()),
                            qBound(rect.top(), place.y(), rect.bottom()));
        if (!nearest || QLineF(place, point).length() < QLineF(place, *nearest).length())
            nearest = point;
    }
    return nearest;
}

SpriteItem *BodyItems::itemAt(const QPointF &position) const
{
    SpriteItem *topmost = nullptr;
    for (int i = m_order.size() - 1; i >= 0; --i) {
        SpriteItem *item = m_order[i];
        if (!sceneRect(*item).contains(position))
            continue;
        if (isOpaqueAt(*item, position))
            return item;
        topmost = topmost ? topmost : item;
    }
    return topmost;
}

void BodyItems::showSelection(const Body *body, const FloatImage &mask)
{
    for (SpriteItem *item : std::as_const(m_order)) {
        if (&item->body() == body)
            item->setPixelSelection(mask);
        else if (item->hasSelection())
            item->setPixelSelection({});
    }
}

bool BodyItems::haveSelection() const
{
    return std::any_of(m_order.begin(), m_order.end(), [](const SpriteItem *item) {
        return item->hasSelection();
    });
}
