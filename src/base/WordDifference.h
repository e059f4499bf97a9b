#pragma once

#include <QByteArray>

/// In which bits two equally long sequences of 32-bit words differ: small where they agree and
/// where one difference repeats. Against zeros it is a sequence kept small on its own.
class WordDifference
{
public:
    WordDifference() = default;
    /// Of @p count words each, which need no alignment; without @p other, zeros take its place.
    WordDifference(const void *words, const void *other, qptrdiff count);

    /// Makes the other sequence from either of the two.
    void apply(void *words) const;
    /// Made from those words of @p words in which the two sequences differ. Where it is neither
    /// sequence's own, apply() would give a third one.
    quint64 fingerprint(const void *words) const;

private:
    QByteArray m_tokens;
};
