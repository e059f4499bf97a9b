#include "model/PixelSelection.h"

UndoValues<PixelSelection>::UndoValues(const PixelSelection &before, const PixelSelection &after)
    : m_before(before)
    , m_after(after)
{
}

bool UndoValues<PixelSelection>::takeUp(const UndoValues &next)
{
    if (next.m_before.selection() != m_after.selection())
        return false;
    m_after = next.m_after;
    return true;
}

void UndoValues<PixelSelection>::pack()
{
    m_before.pack();
    m_after.pack();
}

PixelSelection UndoValues<PixelSelection>::Kept::selection() const
{
    if (m_packedSize.isEmpty())
        return m_selection;
    FloatImage mask(m_packedSize.width(), m_packedSize.height());
    m_packed.apply(mask.row(0));
    return {m_selection.body, mask};
}

void UndoValues<PixelSelection>::Kept::pack()
{
    const FloatImage &mask = m_selection.mask;
    if (mask.isNull())
        return;
    m_packedSize = mask.size();
    m_packed = WordDifference(mask.row(0), nullptr, qptrdiff(mask.width()) * mask.height());
    m_selection.mask = {};
}
