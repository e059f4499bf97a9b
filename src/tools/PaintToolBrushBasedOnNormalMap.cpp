#include "tools/PaintToolBrushBasedOnNormalMap.h"

#include <utility>

// As by undo: what was confined to another selection, or to none, would stay so.
void PaintToolBrushBasedOnNormalMap::updateSelection(FloatImage selection)
{
    PaintToolBrushBased::updateSelection(std::move(selection));
    if (isStrokeOpen())
        announceAgain();
}

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
