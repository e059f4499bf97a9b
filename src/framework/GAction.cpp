#include "framework/GAction.h"

#include <QKeySequence>

QString plainActionText(const QString &text)
{
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        // A single ampersand marks the next character, a double one stands for itself.
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        plain += text.at(i);
    }
    while (plain.endsWith(QLatin1Char('.')) || plain.endsWith(QChar(0x2026)))
        plain.chop(1);
    return plain.trimmed();
}

GAction::GAction(const QString &text, QObject *parent)
    : GAction(QIcon(), text, parent)
{
}

GAction::GAction(const QIcon &icon, const QString &text, QObject *parent)
    : QAction(icon, text, parent)
{
    connect(this, &QAction::changed, this, &GAction::updateToolTip);
    updateToolTip();
}

void GAction::updateToolTip()
{
    QString tip = plainActionText(text());
    if (!shortcut().isEmpty())
        tip += QStringLiteral(" (%1)").arg(shortcut().toString(QKeySequence::NativeText));
    // Setting it reports a change again.
    if (tip != toolTip())
        setToolTip(tip);
}
