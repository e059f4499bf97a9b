#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QRect>
#include <QRegion>
#include <QVector>

/// A request for new normals: a whole surface, painted pieces, or both. A value.
struct NormalMapUpdateParams
{
    /// The whole surface; null in a request of pieces only. With neither there is no surface at
    /// all.
    AngleImage image;
    /// Each of the surface's size or of the size of its rectangle.
    QVector<AngleImage> pieces;
    /// Where the pieces go, in the same order; later ones lie above.
    QVector<QRect> rects;
    /// Confines the pieces, not the whole surface; null for no selection.
    FloatImage mask;
    /// Pieces are to come: the images in which they are prepared are made now, as the first step of
    /// a stroke has no time for it. Without it they are made at the first piece and go with the
    /// next whole surface.
    bool expectsPieces = false;

    bool isFull() const { return !image.isNull() || rects.isEmpty(); }
};

/// Where and how a piece goes into a surface.
struct PiecePlace
{
    QRect source; ///< the cells of the piece that are taken
    QRect target; ///< where they go, inside the surface; empty when the piece lies beside it
};

/// The place of @p piece, announced for @p rect, in a surface of @p size. A piece of the surface's
/// size is cut at the rectangle; any other lies whole at the rectangle's top left. For a rectangle
/// of the surface's size the piece lies at the surface's own top left.
PiecePlace placeOf(const AngleImage &piece, const QRect &rect, const QSize &size);

/// The cells of a surface of @p size that the pieces of @p params cover.
QRegion coveredBy(const NormalMapUpdateParams &params, const QSize &size);
