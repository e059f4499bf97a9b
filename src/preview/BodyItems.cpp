#include "preview/BodyItems.h"

#include "imaging/FloatImage.h"
#include "model/Body.h"
#include "model/Sprite.h"
#include "preview/SpriteItem.h"
#include "preview/SpriteLayout.h"

#include <QGraphicsScene>
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
        m_places[it->first].position = item.pos();
        m_order.removeOne(&item);
        m_newItems.removeOne(&item);
        Q_EMIT itemAboutToGo(&item);
        it = m_items.erase(it);
    }
}

void BodyItems::add(const PropertyList::Entries &bodies)
{
    const int placedBefore = m_newItems.size();
    for (const auto &entry : bodies) {
        Body &body = bodyOf(entry);
        auto &item = m_items[&body];
        if (item)
            continue;
        item = std::make_unique<SpriteItem>(body);
        const Place known = m_places.value(&body);
        m_places.insert(&body, {entry, known.position});
        // Another body may have got the address of one that is gone.
        if (known.body.lock() == entry)
            item->setPos(known.position);
        else
            m_newItems.append(item.get());
        m_scene.addItem(item.get());
        Q_EMIT itemAdded(item.get());
    }
    if (m_newItems.size() > placedBefore)
        placeNewItems();
}

void BodyItems::placeNewItems()
{
    QVector<QRect> others;
    for (const auto &[body, item] : m_items) {
        if (!m_newItems.contains(item.get()) && !item->boundingRect().isEmpty())
            others.append(sceneRect(*item).toAlignedRect());
    }
    QVector<QSize> sizes;
    for (const SpriteItem *item : std::as_const(m_newItems))
        sizes.append(item->boundingRect().size().toSize());
    const QVector<QPoint> places = layoutSprites(sizes, others);
    for (int i = 0; i < m_newItems.size(); ++i)
        m_newItems[i]->setPos(places[i]);
    const auto close = [this] { m_newItems.clear(); };
    QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
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
