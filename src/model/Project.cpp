#include "model/Project.h"

#include "base/Error.h"
#include "model/Sprite.h"
#include "model/properties/PropertyDescriptionList.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "model/properties/PropertyT.h"

#include <QDir>

namespace {
const PropertyDescriptionList &projectDescriptions()
{
    static PropertyDescriptionList list;
    if (!list.isEmpty())
        return list;
    list.add<PropertyDescriptionFilename>(QStringLiteral("publish_directory"),
                                          Project::tr("Output directory"),
                                          Project::tr("Output directory"),
                                          true);
    list.add<PropertyDescriptionString>(QStringLiteral("publish_normalmap_postfix"),
                                        Project::tr("Normal map suffix"),
                                        Project::tr("Normal map suffix"));
    list.add<PropertyDescriptionInt>(QStringLiteral("light_height"),
                                     Project::tr("Z position"),
                                     Project::tr("Light height in pixels"),
                                     0,
                                     1024,
                                     32,
                                     Project::tr("px"));
    list.add<PropertyDescriptionInt>(QStringLiteral("light_brightness"),
                                     Project::tr("Brightness"),
                                     Project::tr("Light brightness"),
                                     10,
                                     400,
                                     100,
                                     QStringLiteral("%"));
    list.add<PropertyDescriptionColor>(QStringLiteral("light_color"),
                                       Project::tr("Light color"),
                                       Project::tr("Light color"),
                                       QColor(0xFF, 0xFF, 0xFF));
    list.add<PropertyDescriptionColor>(QStringLiteral("ambient_light_color"),
                                       Project::tr("Ambient light"),
                                       Project::tr("Ambient light color"),
                                       QColor(0x80, 0x80, 0x80));
    return list;
}

auto bodyFactory(UndoStackOwner &document)
{
    return [&document](const QString &tag) -> std::shared_ptr<Property> {
        if (tag == Body::tag())
            return std::make_shared<Body>(document);
        return tag == Sprite::tag() ? std::make_shared<Sprite>(document) : nullptr;
    };
}
} // namespace

Project::Project()
    : GProject(tag(), &projectDescriptions())
    , m_filename(&addField<PropertyFilename>(QStringLiteral("filename")))
    , m_bodies(&addField<PropertyListT<Body>>(QStringLiteral("bodies"), bodyFactory(*this)))
    , m_publishDirectory(&addField<PropertyFilename>(QStringLiteral("publish_directory")))
    , m_publishNormalmapPostfix(
          &addField<PropertyString>(QStringLiteral("publish_normalmap_postfix")))
    , m_lightHeight(&addField<PropertyInt>(QStringLiteral("light_height")))
    , m_lightBrightness(&addField<PropertyInt>(QStringLiteral("light_brightness")))
    , m_lightColor(&addField<PropertyColor>(QStringLiteral("light_color")))
    , m_ambientLightColor(&addField<PropertyColor>(QStringLiteral("ambient_light_color")))
{
}

QString Project::tag()
{
    return QStringLiteral("vesperine_project");
}

std::shared_ptr<Property> Project::newInstance() const
{
    return std::make_shared<Project>();
}

GFileName Project::fileTyped(const QString &path) const
{
    if (path.isEmpty() || QDir::isAbsolutePath(path))
        return GFileName(path);
    if (m_filename->value().isEmpty())
        throw Error(
            tr("'%1' counts from the folder of the project, which is not saved yet. Save the "
               "project first, or give the whole path.")
                .arg(path));
    return GFileName::fromRelative(path, m_filename->value().canonicalFolder());
}

QStringList Project::settingKeys()
{
    return {QStringLiteral("publish_directory"),
            QStringLiteral("publish_normalmap_postfix"),
            QStringLiteral("light_height"),
            QStringLiteral("light_brightness"),
            QStringLiteral("light_color"),
            QStringLiteral("ambient_light_color")};
}

QString Project::mapSuffix() const
{
    const QString suffix = m_publishNormalmapPostfix->value();
    const bool isSetUp = !suffix.isEmpty() || !m_publishDirectory->value().isEmpty();
    return isSetUp ? suffix : QStringLiteral("_n");
}
