#include "model/Body.h"

#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {
// Far from every place, and equal to itself, which no infinity is for the toolkit.
constexpr QPointF neverMoved(std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::max());

const PropertyDescriptionList &bodyDescriptions()
{
    static PropertyDescriptionList list;
    if (!list.isEmpty())
        return list;
    list.add<PropertyDescriptionString>(
        QStringLiteral("name"), Body::tr("Name"), Body::tr("Name in the list of sprites"));
    list.add<PropertyDescriptionPointF>(QStringLiteral("position"), neverMoved).leaveOutAtDefault();
    return list;
}

bool isInReach(double coordinate)
{
    return std::abs(coordinate) <= Body::farthestPlace; // and is a number
}
} // namespace

Body::Body(UndoStackOwner &document)
    : PropertyStruct(document, tag(), &bodyDescriptions())
    , m_name(&addField<PropertyString>(QStringLiteral("name")))
    , m_sprite(&addField<Sprite>(Sprite::tag()))
    , m_paintedNormalMap(&addField<PropertyAngleImage>(QStringLiteral("painted_normal_map")))
    , m_position(&addField<PropertyPointF>(QStringLiteral("position")))
{
}

QString Body::tag()
{
    return QStringLiteral("body");
}

std::shared_ptr<Property> Body::newInstance() const
{
    return makeAlike<Body>();
}

std::optional<QPoint> Body::place() const
{
    const QPointF position = m_position->value();
    if (!isInReach(position.x()) || !isInReach(position.y()))
        return std::nullopt;
    return position.toPoint();
}

void Body::moveTo(const QPoint &place, const QString &undoText)
{
    const QPointF position(std::clamp(place.x(), -farthestPlace, farthestPlace),
                           std::clamp(place.y(), -farthestPlace, farthestPlace));
    m_position->setValue(position, undoText, false);
}

AngleImage Body::surface() const
{
    const AngleImage painted = m_paintedNormalMap->angleImage();
    const QSize size = m_sprite->image().size();
    return painted.isNull() ? AngleImage(size.width(), size.height()) : painted;
}

void Body::loadSprite() const
{
    const QSize size = paintedSize();
    m_sprite->load(size, !size.isEmpty());
}

QSize Body::paintedSize() const
{
    const AngleImage painted = m_paintedNormalMap->angleImage();
    return painted.isNull() ? QSize() : painted.size();
}
