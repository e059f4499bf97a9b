#include "model/Body.h"

#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"

namespace {
const PropertyDescriptionList &bodyDescriptions()
{
    static PropertyDescriptionList list;
    if (list.isEmpty())
        list.add<PropertyDescriptionString>(
            QStringLiteral("name"), Body::tr("Name"), Body::tr("Name in the list of sprites"));
    return list;
}
} // namespace

Body::Body(UndoStackOwner &document)
    : PropertyStruct(document, tag(), &bodyDescriptions())
    , m_name(&addField<PropertyString>(QStringLiteral("name")))
    , m_sprite(&addField<Sprite>(Sprite::tag()))
    , m_paintedNormalMap(&addField<PropertyAngleImage>(QStringLiteral("painted_normal_map")))
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
