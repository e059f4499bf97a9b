#include "base/PlainText.h"

#include <QStringList>

namespace {
bool isShown(QChar c)
{
    // Line and paragraph separators, and what embeds, overrides or isolates a direction.
    const ushort code = c.unicode();
    const bool steers = (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return c.category() != QChar::Other_Control && !steers && code < 0xFFFE;
}

QString escaped(QChar c)
{
    switch (c.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(int(c.unicode()), 4, 16, QLatin1Char('0'));
    }
}
} // namespace

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

QString shownText(const QString &text)
{
    QString shown;
    shown.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isPair =
            c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            shown.append(c).append(text.at(++i));
        else if (isShown(c) && !c.isSurrogate())
            shown += c;
        else
            shown += escaped(c);
    }
    return shown;
}

QString shownLines(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = shownText(line);
    return lines.join(QLatin1Char('\n'));
}

QString shownBytes(const QByteArray &bytes)
{
    constexpr int longestCharacter = 4;
    QString shown;
    for (int at = 0; at < bytes.size();) {
        QString character;
        int size = 0;
        do {
            const QByteArray piece = bytes.mid(at, ++size);
            character = QString::fromUtf8(piece);
            if (character.toUtf8() != piece)
                character.clear();
        } while (character.isEmpty() && size < longestCharacter);
        if (character.isEmpty()) {
            shown += QStringLiteral("\\x%1").arg(uchar(bytes.at(at++)), 2, 16, QLatin1Char('0'));
            continue;
        }
        shown += shownText(character);
        at += size;
    }
    return shown;
}
