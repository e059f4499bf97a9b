#include "ui/properties/PropertyValues.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/properties/GenericPropertyVisitor.h"
#include "model/properties/PropertyDescriptionTypes.h"

#include <QCoreApplication>

#include <algorithm>
#include <type_traits>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PropertyValues)
};

using Preset = std::shared_ptr<PropertyPreset>;

template <class T>
QVariant toVariant(const T &value)
{
    if constexpr (std::is_same_v<T, PropertyEnumElement>)
        return value.name;
    else if constexpr (std::is_same_v<T, Preset>)
        return value ? value->name().value() : QString();
    else if constexpr (QMetaTypeId2<T>::Defined)
        return QVariant::fromValue(value);
    else
        return {};
}

template <class T>
T fromVariant(const QVariant &value, const PropertyT<T> &property)
{
    if constexpr (std::is_same_v<T, PropertyEnumElement>) {
        return static_cast<const PropertyEnum &>(property).element(value.toString());
    } else if constexpr (std::is_same_v<T, Preset>) {
        const auto &reference = static_cast<const PropertyReference &>(property);
        const auto &project = dynamic_cast<const GProject &>(property.document());
        return project.presetCollection(reference.presetType()).preset(value.toString());
    } else if constexpr (QMetaTypeId2<T>::Defined) {
        return value.value<T>();
    } else {
        return property.value();
    }
}

// As the user names it.
GFileName fileTyped(const QString &path, const PropertyFilename &property)
{
    const auto *description =
        dynamic_cast<const PropertyDescriptionFilename *>(property.description());
    if (path.isEmpty() && description && !description->namesFolder())
        throw Error(Words::tr("A file is needed here"));
    const auto *project = dynamic_cast<const Project *>(&property.document());
    return project ? project->fileTyped(path) : GFileName(path);
}

class Reader final : public GenericPropertyVisitor<Reader>
{
public:
    explicit Reader(const QVector<Property *> &properties)
        : m_properties(properties)
    {
    }

    CommonValue result;

    void each(Property &) {}

    template <class T>
    void each(PropertyT<T> &first)
    {
        result.value = toVariant(first.value());
        result.isMixed =
            std::any_of(m_properties.begin(), m_properties.end(), [&first](Property *property) {
                return !(static_cast<PropertyT<T> *>(property)->value() == first.value());
            });
    }

private:
    const QVector<Property *> &m_properties;
};

class Writer final : public GenericPropertyVisitor<Writer>
{
public:
    Writer(const QVariant &value, const QString &undoText)
        : m_value(value)
        , m_undoText(undoText)
    {
    }

    void each(Property &) {}

    template <class T>
    void each(PropertyT<T> &property)
    {
        property.setValue(fromVariant(m_value, property), m_undoText, false);
    }

    void each(PropertyFilename &property)
    {
        property.setValue(fileTyped(m_value.toString(), property), m_undoText, false);
    }

private:
    QVariant m_value;
    QString m_undoText;
};

class ChoiceReader final : public GenericPropertyVisitor<ChoiceReader>
{
public:
    QStringList names;

    void each(Property &) {}

    void each(PropertyEnum &property)
    {
        const auto *description =
            dynamic_cast<const PropertyDescriptionEnum *>(property.description());
        if (!description)
            return;
        for (const auto &element : description->elements())
            names.append(element.name);
    }

    void each(PropertyReference &property)
    {
        const auto &project = dynamic_cast<const GProject &>(property.document());
        for (const auto *preset : project.presetCollection(property.presetType()).all())
            names.append(preset->name().value());
    }
};
} // namespace

CommonValue commonValue(const QVector<Property *> &properties)
{
    Reader reader(properties);
    properties.first()->accept(reader);
    return reader.result;
}

void setCommonValue(const QVector<Property *> &properties,
                    const QVariant &value,
                    const QString &undoText)
{
    Writer writer(value, undoText);
    for (auto *property : properties)
        property->accept(writer);
}

QStringList choicesOf(Property &property)
{
    ChoiceReader reader;
    property.accept(reader);
    return reader.names;
}
