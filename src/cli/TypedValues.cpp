#include "cli/TypedValues.h"

#include "base/Error.h"

#include <cmath>

namespace {
QString range(double minimum, double maximum)
{
    return QStringLiteral("from %1 to %2").arg(minimum).arg(maximum);
}
} // namespace

TypedValues::TypedValues(const QString &option, const QStringList &names, const QStringList &texts)
    : m_option(option)
{
    if (texts.size() > names.size())
        throw Error(
            QStringLiteral("'%1' is no value for %2: it takes at most %3")
                .arg(texts.join(QLatin1Char(',')), option, names.join(QLatin1Char(',')).toUpper()));
    for (int i = 0; i < texts.size(); ++i)
        m_values.insert(names[i], texts[i]);
}

int TypedValues::wholeNumber(const QString &name, int minimum, int maximum, int fallback) const
{
    if (!m_values.contains(name))
        return fallback;
    bool isNumber = false;
    const int value = m_values[name].toInt(&isNumber);
    if (!isNumber || value < minimum || value > maximum)
        refuse(name, QStringLiteral("a whole number ") + range(minimum, maximum));
    return value;
}

double
TypedValues::number(const QString &name, double minimum, double maximum, double fallback) const
{
    if (!m_values.contains(name))
        return fallback;
    bool isNumber = false;
    const double value = m_values[name].toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value) || value < minimum || value > maximum)
        refuse(name, QStringLiteral("a number ") + range(minimum, maximum));
    return value;
}

void TypedValues::refuse(const QString &name, const QString &expected) const
{
    const QString option = m_option.isEmpty() ? QStringLiteral("--") + name
                                              : QStringLiteral("the %1 of %2").arg(name, m_option);
    throw Error(QStringLiteral("'%1' is no value for %2: it takes %3")
                    .arg(m_values[name], option, expected));
}
