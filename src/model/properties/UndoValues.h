#pragma once

#include "base/WordDifference.h"

#include <QByteArray>

/// What an undo step knows of its object's value before and after it. Owned by the step, which
/// hands its object in: a large value may be kept as what differs from the object's present one.
template <class Value>
class UndoValues
{
public:
    UndoValues(const Value &before, const Value &after)
        : m_before(before)
        , m_after(after)
    {
    }

    template <class Object>
    const Value &before(const Object &) const
    {
        return m_before;
    }

    template <class Object>
    const Value &after(const Object &) const
    {
        return m_after;
    }

    /// Leads to where @p next leads, when that goes on from the value to which this leads.
    bool takeUp(const UndoValues &next)
    {
        if (!(next.m_before == m_after))
            return false;
        m_after = next.m_after;
        return true;
    }

    bool isUnchanged() const { return m_before == m_after; }

    /// Makes the values small. No loss, but it may end that further steps are taken up.
    void pack() {}

private:
    Value m_before;
    Value m_after;
};

/// Bytes. Large ones of one length are packed into their difference, which asks of the object that
/// its value() changes by undo steps only, as long as there are any. A packed step takes no further
/// one up.
template <>
class UndoValues<QByteArray>
{
public:
    UndoValues(const QByteArray &before, const QByteArray &after)
        : m_before(before)
        , m_after(after)
    {
    }

    template <class Object>
    QByteArray before(const Object &object) const
    {
        return m_isPacked ? other(object.value(), m_afterFingerprint) : m_before;
    }

    template <class Object>
    QByteArray after(const Object &object) const
    {
        return m_isPacked ? other(object.value(), m_beforeFingerprint) : m_after;
    }

    bool takeUp(const UndoValues &next);
    bool isUnchanged() const { return !m_isPacked && m_before == m_after; }
    void pack();

private:
    /// Of the two values the one that @p present is not. What was changed without a step, where the
    /// step changes it too, stays as it is.
    QByteArray other(const QByteArray &present, quint64 fingerprint) const;

    QByteArray m_before; // both empty once packed
    QByteArray m_after;
    WordDifference m_difference;
    bool m_isPacked = false;
    int m_length = 0;
    quint64 m_beforeFingerprint = 0;
    quint64 m_afterFingerprint = 0;
};
