#include "support/PseudoLocale.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
constexpr QChar first(0x27e6);
constexpr QChar last(0x27e7);
constexpr QChar firstWithoutGerman(0x27ea);
constexpr QChar lastWithoutGerman(0x27eb);

// In words, so that lines can be broken.
QString padding(int length)
{
    QString text;
    while (text.size() < length)
        text += text.size() % 7 == 6 ? QLatin1Char(' ') : QLatin1Char('~');
    return text;
}
} // namespace

PseudoLocale::PseudoLocale()
{
    if (!m_german.load(QStringLiteral(":/translations/vesperine_de.qm")))
        qFatal("There is no German");
}

QString PseudoLocale::translate(const char *context,
                                const char *source,
                                const char *comment,
                                int count) const
{
    const QString german = m_german.translate(context, source, comment, count);
    QString text = QString::fromUtf8(source);
    // What follows is no text.
    static const QRegularExpression filters(QStringLiteral(" ?\\((\\*\\.?\\w*[ )])+$"));
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    const QString end = filters.match(text).captured();
    text.chop(end.size());
    const int plain = QString(text).remove(tags).size();
    text += padding(std::max(int(german.size()) - int(end.size()) - plain, (plain * 2 + 4) / 5));
    const bool isTranslated = !german.isEmpty();
    return (isTranslated ? first : firstWithoutGerman) + text +
           (isTranslated ? last : lastWithoutGerman) + end;
}

QString PseudoLocale::withoutMarked(QString text)
{
    static const QRegularExpression marked(
        QStringLiteral("[\u27e6\u27ea][^\u27e6\u27e7\u27ea\u27eb]*[\u27e7\u27eb]"));
    // What stands for a placeholder may be marked, too.
    for (int before = -1; before != text.size();) {
        before = int(text.size());
        text.remove(marked);
    }
    return text;
}

bool PseudoLocale::lacksGerman(const QString &text)
{
    return text.contains(firstWithoutGerman);
}
