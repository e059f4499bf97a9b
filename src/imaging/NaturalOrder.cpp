#include "imaging/NaturalOrder.h"

#include <QCollator>

#include <algorithm>

QStringList inNaturalOrder(QStringList names)
{
    // The plain C locale knows no numbers in names.
    QCollator collator{QLocale(QLocale::English)};
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(names.begin(), names.end(), [&collator](const QString &a, const QString &b) {
        const int order = collator.compare(a, b);
        return order == 0 ? a < b : order < 0;
    });
    return names;
}
