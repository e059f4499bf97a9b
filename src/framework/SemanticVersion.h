#pragma once

#include <QStringList>

#include <compare>
#include <optional>

/// A version such as "1.2.0-beta.1", ordered as Semantic Versioning 2.0 does; default-made 0.0.0.
class SemanticVersion
{
public:
    /// What @p text says, also with a "v" before it; none when it is no version or longer than 64
    /// characters. Build metadata, as in "1.2.0+linux", is dropped: it orders nothing.
    static std::optional<SemanticVersion> parse(const QString &text);

    bool isPreRelease() const { return !m_preRelease.isEmpty(); }
    QString toString() const;

    friend bool operator==(const SemanticVersion &, const SemanticVersion &) = default;
    friend std::strong_ordering operator<=>(const SemanticVersion &left,
                                            const SemanticVersion &right);

private:
    // Digits, since the standard sets no limit to a number.
    QStringList m_core{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("0")};
    QStringList m_preRelease;
};
