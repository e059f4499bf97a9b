#include "imaging/NormalMapUpdateAlgorithm.h"

#include "imaging/DifferingArea.h"
#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"

#include <algorithm>
#include <utility>

namespace {

void copyPixels(QImage &target, const QImage &source, const QRect &rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(source.constScanLine(y)) + rect.left();
        std::copy_n(from, rect.width(), reinterpret_cast<QRgb *>(target.scanLine(y)) + rect.left());
    }
}

} // namespace

QPair<AngleImage, QImage> NormalMapUpdateAlgorithm::compute(const NormalMapUpdateParams &params)
{
    const bool isFull = params.isFull();
    const QSize size = isFull ? params.image.size() : m_current.surface.size();
    const QRect different = isFull ? differenceTo(params.image) : QRect();
    const QRegion covered = coveredBy(params, size);
    const QRegion changed = covered + different;
    const bool hasTurns =
        !isFull || (params.expectsPieces && params.image.size() == m_current.surface.size());
    if (isFull)
        store(params.image, params.expectsPieces);
    if (!hasTurns)
        startAnew(params.image);
    else if (!changed.isEmpty())
        takeTurns(changed);
    if (hasTurns && !different.isEmpty())
        copyRegion(m_current.surface, {}, params.image, different);

    paste(params);
    for (const QRect &rect : changed)
        toNormalMap(m_current.surface, m_current.normals, rect);

    m_painted = covered.boundingRect() | (isFull ? QRect() : m_painted);
    m_changedArea = changed.boundingRect();
    if (isFull && params.expectsPieces)
        leaveDocument();
    return {m_current.surface, m_current.normals};
}

QRect NormalMapUpdateAlgorithm::differenceTo(const AngleImage &image) const
{
    if (image.size() != m_current.surface.size())
        return image.rect();
    // Pieces that were dropped: everything beside them is as it was stored.
    const QRect within = image.sharesCellsWith(m_stored) ? m_painted : image.rect();
    return differingArea(image, m_current.surface, within);
}

// What was committed is the shown surface itself. The block that the document held till now differs
// from it by the pieces only, and becomes a surface of ours; it is copied when others keep it.
void NormalMapUpdateAlgorithm::store(const AngleImage &image, bool expectsPieces)
{
    AngleImage former = std::exchange(m_stored, image);
    if (!expectsPieces || !m_current.surface.sharesCellsWith(image))
        return;
    if (!m_painted.isEmpty())
        copyRegion(former, {}, image, m_painted);
    m_current.surface = former;
}

void NormalMapUpdateAlgorithm::startAnew(const AngleImage &image)
{
    m_older = {};
    m_behind = {};
    // One block of cells with the document, until a piece comes.
    m_current.surface = image;
    if (m_current.normals.size() != image.size())
        m_current.normals = flatNormalMap(image.size());
}

// What is about to be written need not be brought up to date.
void NormalMapUpdateAlgorithm::takeTurns(const QRegion &changing)
{
    // Who writes to the surface copies it; a piece that takes its place need not.
    if (m_older.normals.isNull())
        m_older = {m_current.surface, m_current.normals.copy()};
    for (const QRect &rect : m_behind - changing) {
        copyRegion(m_older.surface, {}, m_current.surface, rect);
        copyPixels(m_older.normals, m_current.normals, rect);
    }
    std::swap(m_current, m_older);
    m_behind = changing;
}

// Now, since the first step of a stroke has no time for it.
void NormalMapUpdateAlgorithm::leaveDocument()
{
    for (Generation *generation : {&m_current, &m_older})
        if (generation->surface.sharesCellsWith(m_stored))
            generation->surface = m_stored.unsharedCopy();
    if (m_older.normals.isNull())
        m_older = {m_current.surface.unsharedCopy(), m_current.normals.copy()};
}

void NormalMapUpdateAlgorithm::paste(const NormalMapUpdateParams &params)
{
    for (int i = 0; i < std::min(params.rects.size(), params.pieces.size()); ++i) {
        const AngleImage &piece = params.pieces[i];
        const auto [source, target] = placeOf(piece, params.rects[i], m_current.surface.size());
        if (target.isEmpty())
            continue;
        // An effect's piece is everything, and large.
        if (params.mask.isNull() && target == m_current.surface.rect() && source == piece.rect()) {
            m_current.surface = piece;
            continue;
        }
        if (!params.mask.isNull())
            copyRegion(m_current.surface, {}, m_stored, target);
        pasteMasked(m_current.surface, params.mask, target.topLeft(), piece, source);
    }
}

NormalMapUpdateParams NormalMapUpdateAlgorithm::merge(const NormalMapUpdateParams &pending,
                                                      const NormalMapUpdateParams &incoming) const
{
    if (incoming.isFull() || incoming.pieces.isEmpty())
        return incoming;
    NormalMapUpdateParams merged = pending;
    const QRect rect = incoming.rects.first();
    for (int i = merged.rects.size() - 1; i >= 0; --i) {
        if (!rect.contains(merged.rects[i]))
            continue;
        merged.rects.removeAt(i);
        if (i < merged.pieces.size())
            merged.pieces.removeAt(i);
    }
    merged.rects.append(rect);
    merged.pieces.append(incoming.pieces.first());
    return merged;
}
