#include "tools/LassoPreview.h"

#include "framework/ThemeColors.h"

#include <QGraphicsItemGroup>
#include <QGraphicsPathItem>
#include <QPainterPath>
#include <QPalette>
#include <QPen>
#include <QPolygon>

namespace {
constexpr int fillAlpha = 64;
constexpr double dash = 4.0;
constexpr double markSide = 7.0; // of the screen
constexpr double closingMarkSide = 11.0;

// Of the dark theme: it is brighter, and what is around sprites is dark in both.
QColor accent()
{
    return themeColors(QPalette(Qt::black)).accent;
}

QPen screenPen(const QColor &color)
{
    QPen pen(color, 1.0);
    pen.setCosmetic(true);
    return pen;
}

QPainterPath square(double side)
{
    QPainterPath path;
    path.addRect(-side / 2.0, -side / 2.0, side, side);
    return path;
}

QGraphicsPathItem *addTo(QGraphicsItemGroup &group, const QPen &pen)
{
    auto *item = new QGraphicsPathItem(&group);
    item->setPen(pen);
    item->setAcceptedMouseButtons(Qt::NoButton);
    return item;
}
} // namespace

LassoPreview::LassoPreview()
    : m_group(std::make_unique<QGraphicsItemGroup>())
{
    m_group->setAcceptedMouseButtons(Qt::NoButton);
}

LassoPreview::~LassoPreview() = default;

QGraphicsItem *LassoPreview::item() const
{
    return m_group.get();
}

void LassoPreview::begin(bool isSubtracting)
{
    clear();
    QColor tint = accent();
    tint.setAlpha(isSubtracting ? 0 : fillAlpha);
    m_fill = addTo(*m_group, Qt::NoPen);
    m_fill->setBrush(tint);
    // Light dashes over a dark line are seen on every sprite.
    m_outline = addTo(*m_group, screenPen(Qt::black));
    QPen dashes = screenPen(Qt::white);
    dashes.setDashPattern({dash, dash});
    dashes.setCapStyle(Qt::FlatCap);
    m_dashes = addTo(*m_group, dashes);
    m_mark = addTo(*m_group, screenPen(Qt::black));
    m_mark->setFlag(QGraphicsItem::ItemIgnoresTransformations);
}

void LassoPreview::show(const QPolygon &polygon, const QPoint &pointer, bool isClosing)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(polygon));
    path.lineTo(pointer);
    for (QGraphicsPathItem *item : {m_fill, m_outline, m_dashes})
        item->setPath(path);
    m_mark->setPos(polygon.first());
    m_mark->setPath(square(isClosing ? closingMarkSide : markSide));
    m_mark->setBrush(isClosing ? accent() : QColor(Qt::white));
}

void LassoPreview::clear()
{
    qDeleteAll(m_group->childItems());
    m_fill = nullptr;
    m_outline = nullptr;
    m_dashes = nullptr;
    m_mark = nullptr;
}
