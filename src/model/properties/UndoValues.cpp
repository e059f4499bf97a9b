#include "model/properties/UndoValues.h"

namespace {
constexpr int shortestPacked = 1 << 16;
constexpr int wordLength = 4;
} // namespace

bool UndoValues<QByteArray>::takeUp(const UndoValues &next)
{
    if (m_isPacked || next.m_isPacked || next.m_before != m_after)
        return false;
    m_after = next.m_after;
    return true;
}

void UndoValues<QByteArray>::pack()
{
    if (m_before.size() != m_after.size() || m_before.size() < shortestPacked ||
        m_before.size() % wordLength != 0)
        return;
    m_isPacked = true;
    m_length = m_before.size();
    m_difference = WordDifference(m_before.constData(), m_after.constData(), m_length / wordLength);
    m_beforeFingerprint = m_difference.fingerprint(m_before.constData());
    m_afterFingerprint = m_difference.fingerprint(m_after.constData());
    m_before.clear();
    m_after.clear();
}

QByteArray UndoValues<QByteArray>::other(const QByteArray &present, quint64 fingerprint) const
{
    if (present.size() != m_length ||
        m_difference.fingerprint(present.constData()) != fingerprint) {
        qWarning("A value was changed without an undo step and is kept.");
        return present;
    }
    QByteArray result = present;
    m_difference.apply(result.data());
    return result;
}
