#include "framework/PlainToolTip.h"

#include "base/PlainText.h"

#include <QTextDocument>

QString plainToolTip(const QString &text)
{
    const QString shown = shownLines(text);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}
