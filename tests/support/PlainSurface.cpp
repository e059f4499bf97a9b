#include "support/PlainSurface.h"

#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"
#include "support/Pictures.h"

namespace {

// The cell of the piece that lands at a cell of the surface; one outside where none does.
QPoint sourceOf(const QPoint &cell, const AngleImage &piece, const QRect &rect, const QSize &size)
{
    const bool isWhole = rect.size() == size;
    if (!isWhole && piece.size() == size)
        return rect.contains(cell) ? cell : QPoint(-1, -1);
    return isWhole ? cell : cell - rect.topLeft();
}

} // namespace

void PlainSurface::update(const NormalMapUpdateParams &params)
{
    if (params.isFull())
        m_stored = m_working = params.image;
    for (int i = 0; i < params.rects.size(); ++i) {
        const AngleImage &piece = params.pieces[i];
        for (int cell = 0; cell < m_working.width() * m_working.height(); ++cell) {
            const QPoint at(cell % m_working.width(), cell / m_working.width());
            const QPoint source = sourceOf(at, piece, params.rects[i], m_working.size());
            if (!piece.rect().contains(source))
                continue;
            m_working.row(0)[cell] = std::as_const(m_stored).row(0)[cell];
            pasteMasked(m_working, params.mask, at, piece, QRect(source, QSize(1, 1)));
        }
    }
}

QImage PlainSurface::normals() const
{
    QImage image = flatNormalMap(m_working.size());
    toNormalMap(m_working, image);
    return image;
}

NormalMapUpdateParams randomPiece(const QSize &size, const FloatImage &mask, std::mt19937 &random)
{
    QRect rect = randomRect(size, random);
    rect.setSize(rect.size().expandedTo({1, 1}));
    if (random() % 8 == 0)
        rect = {QPoint(), size};
    const QSize pieceSize = random() % 2 == 0 ? size : rect.size();
    return {{}, {randomAngles(pieceSize, random)}, {rect}, mask};
}
