#pragma once

#include "imaging/NormalMapUpdateParams.h"

#include <QImage>

#include <random>

/// The slow and plain counterpart of NormalMapUpdateAlgorithm: every request in its turn, every
/// cell of the surface asked what lands there, no piece dropped, nothing kept but two surfaces.
class PlainSurface
{
public:
    void update(const NormalMapUpdateParams &params);

    const AngleImage &surface() const { return m_working; }
    QImage normals() const;

private:
    AngleImage m_stored;
    AngleImage m_working;
};

/// A request of one piece in and around a surface of @p size: of the surface's size or of the
/// rectangle's.
NormalMapUpdateParams randomPiece(const QSize &size, const FloatImage &mask, std::mt19937 &random);
