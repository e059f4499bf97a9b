#include "tools/PaintToolBrushBasedOnNormalMap.h"

void PaintToolBrushBasedOnNormalMap::announce()
{
    show(stroke().takeDirty());
}

void PaintToolBrushBasedOnNormalMap::announceAgain()
{
    show(stroke().painted());
}

void PaintToolBrushBasedOnNormalMap::show(const QRect &changed)
{
    const SurfacePiece piece = isErasing() ? turned(stroke().start(), stroke().layer(), changed, {})
                                           : strokeResult(changed);
    if (piece.isEmpty())
        return;
    stroke().addShown(piece.area);
    Q_EMIT temporaryNormalMapChanged(piece.cells, piece.area);
}
