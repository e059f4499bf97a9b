#pragma once

#include "imaging/FloatImage.h"
#include "imaging/SynchronousUpdateAlgorithm.h"
#include "imaging/effects/RimParams.h"

#include <QHash>

/// Gives a surface a rounded rim along the border between the sprite's opaque pixels and
/// transparency. Keeps the distances from that border for each body, so that only a change of the
/// sprite, the selection or the tile mode computes them anew.
class FilterCreateRimAlgorithm : public SynchronousUpdateAlgorithm<RimParams, AngleImage>
{
public:
    /// The surface with the rim's slopes added, in the size of the base; of the sprite where there
    /// is no base.
    AngleImage compute(const RimParams &params) override;

private:
    struct Entry
    {
        QImage sprite;
        FloatImage selection;
        bool tileMode = false;
        FloatImage distances; ///< with a margin of one pixel on every side
    };

    const FloatImage &distances(const RimParams &params);

    QHash<quintptr, Entry> m_cache;
};
