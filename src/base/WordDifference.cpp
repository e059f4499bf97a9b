#include "base/WordDifference.h"

#include <cstring>

namespace {

// A token is its kind and its length in words, as one number of 7 bits a byte, lowest first. The
// two kinds without content suffice for a mask of zeros and ones.
enum Kind : quint8 {
    Zeros,
    Again,    // the word of the last Repeated
    Repeated, // one word follows
    Literal,  // each word follows
};

constexpr qptrdiff wordLength = sizeof(quint32);

quint32 wordAt(const uchar *words, qptrdiff index)
{
    quint32 word = 0;
    std::memcpy(&word, words + index * wordLength, wordLength);
    return word;
}

void flip(uchar *words, qptrdiff index, quint32 bits)
{
    const quint32 word = wordAt(words, index) ^ bits;
    std::memcpy(words + index * wordLength, &word, wordLength);
}

class Writer
{
public:
    void token(Kind kind, qptrdiff length)
    {
        for (auto rest = quint64(length) * 4 + kind;;) {
            const bool isLast = rest < 0x80;
            m_tokens.append(char(isLast ? rest : (rest & 0x7F) | 0x80));
            if (isLast)
                return;
            rest >>= 7;
        }
    }

    /// Room for @p count words at the end.
    uchar *words(qptrdiff count)
    {
        const int end = m_tokens.size();
        m_tokens.resize(int(end + count * wordLength));
        return reinterpret_cast<uchar *>(m_tokens.data()) + end;
    }

    QByteArray take()
    {
        m_tokens.squeeze();
        return m_tokens;
    }

private:
    QByteArray m_tokens;
};

/// Calls @p visit(kind, first word's index, length, content) for each token.
template <class Visit>
void forEachToken(const QByteArray &tokens, Visit visit)
{
    const auto *at = reinterpret_cast<const uchar *>(tokens.constData());
    const uchar *end = at + tokens.size();
    const uchar *repeated = nullptr;
    for (qptrdiff index = 0; at != end;) {
        quint64 token = 0;
        for (int shift = 0;; shift += 7) {
            token |= quint64(*at & 0x7F) << shift;
            if (*at++ < 0x80)
                break;
        }
        const auto kind = Kind(token & 3);
        const auto length = qptrdiff(token >> 2);
        if (kind == Repeated)
            repeated = at;
        if (kind != Zeros)
            visit(index, length, kind == Literal ? at : repeated, kind == Literal);
        if (kind == Repeated)
            at += wordLength;
        if (kind == Literal)
            at += length * wordLength;
        index += length;
    }
}

/// Where the words stop to be equal to that at @p from. Runs are long as a rule: compared in blocks
/// without a branch, which become vectors.
template <class Word>
qptrdiff endOfRun(const Word &wordOf, qptrdiff from, qptrdiff count)
{
    constexpr qptrdiff block = 32;
    const quint32 word = wordOf(from);
    qptrdiff end = from + 1;
    if (end < count && wordOf(end) != word)
        return end;
    for (; end + block <= count; end += block) {
        quint32 differing = 0;
        for (qptrdiff i = 0; i < block; ++i)
            differing |= wordOf(end + i) ^ word;
        if (differing != 0)
            break;
    }
    while (end < count && wordOf(end) == word)
        ++end;
    return end;
}

template <class Word>
QByteArray packed(const Word &wordOf, qptrdiff count)
{
    // Shorter ones take more room than the same words as part of what stands around them.
    constexpr qptrdiff shortestRun = 3;
    Writer writer;
    quint32 repeated = 0;
    qptrdiff literal = 0; // from here on nothing is written yet
    const auto writeLiteral = [&](qptrdiff end) {
        if (literal == end)
            return;
        writer.token(Literal, end - literal);
        uchar *target = writer.words(end - literal);
        for (qptrdiff i = literal; i < end; ++i) {
            const quint32 word = wordOf(i);
            std::memcpy(target + (i - literal) * wordLength, &word, wordLength);
        }
    };
    for (qptrdiff from = 0; from < count;) {
        const quint32 word = wordOf(from);
        const qptrdiff end = endOfRun(wordOf, from, count);
        const bool isKnown = word == 0 || word == repeated;
        if (isKnown || end - from >= shortestRun) {
            writeLiteral(from);
            literal = end;
            if (isKnown) {
                writer.token(word == 0 ? Zeros : Again, end - from);
            } else {
                writer.token(Repeated, end - from);
                std::memcpy(writer.words(1), &word, wordLength);
                repeated = word;
            }
        }
        from = end;
    }
    writeLiteral(count);
    return writer.take();
}

} // namespace

WordDifference::WordDifference(const void *words, const void *other, qptrdiff count)
{
    const auto *a = static_cast<const uchar *>(words);
    const auto *b = static_cast<const uchar *>(other);
    if (b)
        m_tokens = packed([a, b](qptrdiff i) { return wordAt(a, i) ^ wordAt(b, i); }, count);
    else
        m_tokens = packed([a](qptrdiff i) { return wordAt(a, i); }, count);
}

void WordDifference::apply(void *words) const
{
    auto *target = static_cast<uchar *>(words);
    forEachToken(m_tokens, [target](qptrdiff from, qptrdiff length, const uchar *bits, bool each) {
        if (each) {
            for (qptrdiff i = 0; i < length; ++i)
                flip(target, from + i, wordAt(bits, i));
            return;
        }
        const quint32 repeated = wordAt(bits, 0);
        for (qptrdiff i = 0; i < length; ++i)
            flip(target, from + i, repeated);
    });
}

quint64 WordDifference::fingerprint(const void *words) const
{
    constexpr quint64 spread = 0x9E3779B97F4A7C15U; // an odd number of mixed bits
    const auto *source = static_cast<const uchar *>(words);
    quint64 sum = 0;
    forEachToken(m_tokens, [&](qptrdiff from, qptrdiff length, const uchar *, bool) {
        for (qptrdiff i = from; i < from + length; ++i)
            sum += wordAt(source, i) * (quint64(i) * spread | 1U);
    });
    return sum;
}
