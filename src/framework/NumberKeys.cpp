#include "framework/NumberKeys.h"

#include <QKeyEvent>
#include <QLocale>

namespace {
bool isInNumbers(QChar sign)
{
    const QLocale locale;
    const QString signs = QStringLiteral("+-.,") + locale.decimalPoint() + locale.negativeSign() +
                          locale.positiveSign();
    return sign.isDigit() || signs.contains(sign);
}
} // namespace

bool passesNumberField(const QKeyEvent &event, bool isTyped)
{
    if (event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo))
        return !isTyped;
    const QString text = event.text();
    return text.size() == 1 && text[0].isPrint() && !isInNumbers(text[0]);
}
