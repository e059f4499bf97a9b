#include "support/PlainSurface.h"

#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"
#include "support/Pictures.h"

#include <algorithm>
#include <optional>

namespace {

// The cell of the piece that lands at a cell of the surface.
std::optional<QPoint>
sourceOf(const QPoint &cell, const AngleImage &piece, const QRect &rect, const QSize &size)
{
    const bool isWhole = rect.size() == size;
    if (!isWhole && piece.size() == size)
        return rect.contains(cell) ? std::make_optional(cell) : std::nullopt;
    const QPoint source = isWhole ? cell : cell - rect.topLeft();
    return piece.rect().contains(source) ? std::make_optional(source) : std::nullopt;
}

} // namespace

void PlainSurface::update(const NormalMapUpdateParams &params)
{
    if (params.isFull())
        m_stored = m_working = params.image;
    for (int i = 0; i < params.rects.size(); ++i) {
        for (int y = 0; y < m_working.height(); ++y) {
            for (int x = 0; x < m_working.width(); ++x) {
                const auto source =
                    sourceOf({x, y}, params.pieces[i], params.rects[i], m_working.size());
                if (!source)
                    continue;
                m_working.row(y)[x] = std::as_const(m_stored).row(y)[x];
                pasteMasked(
                    m_working, params.mask, {x, y}, params.pieces[i], QRect(*source, QSize(1, 1)));
            }
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
    return {{}, {randomAngles(pieceSize.width(), pieceSize.height(), random)}, {rect}, mask};
}

FloatImage randomMask(const QSize &size, std::mt19937 &random)
{
    FloatImage mask = randomFloats(size.width(), size.height(), -0.5F, 1.5F, random);
    float *cells = mask.row(0);
    std::transform(cells, cells + qptrdiff(size.width()) * size.height(), cells, [](float weight) {
        return std::clamp(weight, 0.0F, 1.0F);
    });
    return mask;
}
