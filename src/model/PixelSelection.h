#pragma once

#include "base/WordDifference.h"
#include "imaging/FloatImage.h"
#include "model/properties/UndoValues.h"

class Body;

/// A body, not owned, and the weights of its pixels; the null mask means that none is selected.
struct PixelSelection
{
    Body *body = nullptr;
    FloatImage mask;

    bool operator==(const PixelSelection &) const = default;
};

/// Selections, each packed on its own: the present one can't serve as the base of a difference,
/// since another body that becomes current empties it without a step.
template <>
class UndoValues<PixelSelection>
{
public:
    UndoValues(const PixelSelection &before, const PixelSelection &after);

    template <class Object>
    PixelSelection before(const Object &) const
    {
        return m_before.selection();
    }

    template <class Object>
    PixelSelection after(const Object &) const
    {
        return m_after.selection();
    }

    bool takeUp(const UndoValues &next);
    bool isUnchanged() const { return m_before.selection() == m_after.selection(); }
    void pack();

private:
    class Kept
    {
    public:
        explicit Kept(const PixelSelection &selection)
            : m_selection(selection)
        {
        }

        PixelSelection selection() const;
        void pack();

    private:
        PixelSelection m_selection; // without its mask once that is packed
        QSize m_packedSize;
        WordDifference m_packed;
    };

    Kept m_before;
    Kept m_after;
};
