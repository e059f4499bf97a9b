#include "cli/SettingText.h"

#include "base/Error.h"
#include "base/PlainText.h"
#include "model/properties/GenericPropertyVisitor.h"
#include "model/properties/PropertyDescriptionTypes.h"

namespace {
class TextOf final : public GenericPropertyVisitor<TextOf>
{
public:
    QString text;

    void each(Property &) {}
    void each(PropertyInt &property) { text = QString::number(property.value()); }
    void each(PropertyString &property) { text = property.value(); }
    void each(PropertyColor &property) { text = property.value().name(); }
    void each(PropertyFilename &property) { text = property.value().path(); }
};

class TextSetter final : public GenericPropertyVisitor<TextSetter>
{
public:
    explicit TextSetter(const QString &text)
        : m_text(text)
    {
    }

    void each(Property &property) { refuse(property, QStringLiteral("nothing that is typed")); }

    void each(PropertyInt &property)
    {
        const auto *range = dynamic_cast<const PropertyDescriptionInt *>(property.description());
        bool isNumber = false;
        const int value = m_text.toInt(&isNumber);
        if (!isNumber || (range && (value < range->minimum() || value > range->maximum())))
            refuse(property,
                   range ? QStringLiteral("a whole number from %1 to %2")
                               .arg(range->minimum())
                               .arg(range->maximum())
                         : QStringLiteral("a whole number"));
        property.setValue(value, undoText());
    }

    void each(PropertyString &property)
    {
        if (!fitsInFileName(m_text))
            refuse(property, QStringLiteral("a part of a file's name"));
        property.setValue(plainText(m_text), undoText());
    }

    void each(PropertyColor &property)
    {
        const bool isColor = m_text.size() == 7 && m_text.startsWith(QLatin1Char('#')) &&
                             QColor::isValidColor(m_text);
        if (!isColor)
            refuse(property, QStringLiteral("a color such as #ff8000"));
        property.setValue(QColor(m_text), undoText());
    }

    void each(PropertyFilename &property)
    {
        if (!isPlainText(m_text))
            refuse(property, QStringLiteral("a path without control characters"));
        property.setValue(GFileName(m_text), undoText());
    }

private:
    static QString undoText() { return QStringLiteral("change setting"); }

    [[noreturn]] void refuse(const Property &property, const QString &expected) const
    {
        throw Error(QStringLiteral("'%1' is no value for %2: it takes %3")
                        .arg(m_text, property.key(), expected));
    }

    QString m_text;
};
} // namespace

QString settingText(Property &setting)
{
    TextOf visitor;
    setting.accept(visitor);
    return visitor.text;
}

void setSettingText(Property &setting, const QString &text)
{
    TextSetter visitor(text);
    setting.accept(visitor);
}
