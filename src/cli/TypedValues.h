#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// The numbers of an effect as they were typed, each under its name. Every getter throws Error,
/// which names the option and what it takes, for a text that doesn't do.
class TypedValues
{
public:
    TypedValues() = default;
    /// Values that were options of their own, such as "width" of "--width".
    explicit TypedValues(const QMap<QString, QString> &values)
        : m_values(values)
    {
    }
    /// Values @p texts behind one @p option, in the order of @p names. Throws Error when there are
    /// more of them.
    TypedValues(const QString &option, const QStringList &names, const QStringList &texts);

    int wholeNumber(const QString &name, int minimum, int maximum, int fallback) const;
    double number(const QString &name, double minimum, double maximum, double fallback) const;

private:
    [[noreturn]] void refuse(const QString &name, const QString &expected) const;

    QString m_option; // empty where each value has its own
    QMap<QString, QString> m_values;
};
