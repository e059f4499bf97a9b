#include "imaging/NormalMapUpdateParams.h"

#include "imaging/Clipping.h"

#include <algorithm>

PiecePlace placeOf(const AngleImage &piece, const QRect &rect, const QSize &size)
{
    if (rect.isEmpty())
        return {};
    const bool isCut = rect.size() != size && piece.size() == size;
    const QRect wanted = isCut ? rect : piece.rect();
    const QPoint position = rect.size() == size ? QPoint() : rect.topLeft();
    const QPoint shift = position - wanted.topLeft();
    const QRect target =
        clipped(clipped(wanted, piece.rect()).translated(shift), QRect(QPoint(), size));
    return {target.translated(-shift), target};
}

QRegion coveredBy(const NormalMapUpdateParams &params, const QSize &size)
{
    QRegion covered;
    for (int i = 0; i < std::min(params.rects.size(), params.pieces.size()); ++i)
        covered += placeOf(params.pieces[i], params.rects[i], size).target;
    return covered;
}
