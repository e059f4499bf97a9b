#include "base/PlainText.h"

QString plainText(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            plain += c;
            plain += text.at(++i);
        } else if (!c.isSurrogate() && c.category() != QChar::Other_Control &&
                   c.unicode() < 0xFFFE) {
            plain += c;
        }
    }
    return plain;
}

bool isPlainText(const QString &text)
{
    return plainText(text).size() == text.size();
}

bool fitsInFileName(const QString &text)
{
    return !text.contains(QLatin1Char('/')) && !text.contains(QLatin1Char('\\'));
}
