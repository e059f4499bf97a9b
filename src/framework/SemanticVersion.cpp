#include "framework/SemanticVersion.h"

#include <QRegularExpression>

#include <algorithm>

namespace {
constexpr int maxLength = 64;

bool isNumber(const QString &identifier)
{
    return std::all_of(identifier.begin(), identifier.end(), [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    });
}

// Numbers, which have no leading zeros, come before words.
std::strong_ordering compareIdentifiers(const QString &left, const QString &right)
{
    const bool isLeftNumber = isNumber(left);
    if (isLeftNumber != isNumber(right))
        return isLeftNumber ? std::strong_ordering::less : std::strong_ordering::greater;
    if (isLeftNumber && left.size() != right.size())
        return left.size() <=> right.size();
    return QString::compare(left, right, Qt::CaseSensitive) <=> 0;
}

std::strong_ordering compareLists(const QStringList &left, const QStringList &right)
{
    return std::lexicographical_compare_three_way(
        left.begin(), left.end(), right.begin(), right.end(), compareIdentifiers);
}
} // namespace

std::optional<SemanticVersion> SemanticVersion::parse(const QString &text)
{
    static const QString number = QStringLiteral("(?:0|[1-9][0-9]*)");
    static const QString word = QStringLiteral("[0-9]*[a-zA-Z-][0-9a-zA-Z-]*");
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(
        QStringLiteral("v?(%1)\\.(%1)\\.(%1)(?:-((?:%1|%2)(?:\\.(?:%1|%2))*))?"
                       "(?:\\+[0-9a-zA-Z-]+(?:\\.[0-9a-zA-Z-]+)*)?")
            .arg(number, word)));
    if (text.size() > maxLength)
        return {};
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    SemanticVersion version;
    version.m_core = match.capturedTexts().mid(1, 3);
    if (const QString preRelease = match.captured(4); !preRelease.isEmpty())
        version.m_preRelease = preRelease.split(QLatin1Char('.'));
    return version;
}

QString SemanticVersion::toString() const
{
    const QString core = m_core.join(QLatin1Char('.'));
    return isPreRelease() ? core + QLatin1Char('-') + m_preRelease.join(QLatin1Char('.')) : core;
}

std::strong_ordering operator<=>(const SemanticVersion &left, const SemanticVersion &right)
{
    if (const auto order = compareLists(left.m_core, right.m_core); std::is_neq(order))
        return order;
    // What comes before a release is older than it.
    if (left.isPreRelease() != right.isPreRelease())
        return left.isPreRelease() ? std::strong_ordering::less : std::strong_ordering::greater;
    return compareLists(left.m_preRelease, right.m_preRelease);
}
