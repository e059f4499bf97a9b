#include "imaging/NormalMapUpdateAlgorithm.h"

#include "imaging/MaskedPaste.h"
#include "imaging/NormalEncoding.h"

#include <algorithm>
#include <utility>

namespace {

AngleImage unsharedCopy(const AngleImage &image)
{
    if (image.isNull())
        return {};
    AngleImage copy = image;
    copy.row(0);
    return copy;
}

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
    const QRegion changed = changedBy(params, size);
    if (isFull)
        startAnew(params.image);
    else if (!changed.isEmpty())
        catchUp(m_behind - changed);

    paste(params);
    for (const QRect &rect : changed)
        toNormalMap(m_current.surface, m_current.normals, rect);

    if (isFull) {
        m_older = {};
        m_behind = {};
        if (params.expectsPieces) {
            m_current.surface = unsharedCopy(m_current.surface);
            makeOlder();
        }
    } else if (!changed.isEmpty()) {
        m_behind = changed;
    }
    return {m_current.surface, m_current.normals};
}

void NormalMapUpdateAlgorithm::startAnew(const AngleImage &image)
{
    m_stored = image;
    m_current = std::exchange(m_older, {});
    // One block of cells with the document, until a piece comes.
    m_current.surface = image;
    if (m_current.normals.size() != image.size())
        m_current.normals = flatNormalMap(image.size());
}

void NormalMapUpdateAlgorithm::makeOlder()
{
    m_older = {unsharedCopy(m_current.surface), m_current.normals.copy()};
}

// What is about to be written need not be brought up to date.
void NormalMapUpdateAlgorithm::catchUp(const QRegion &region)
{
    if (m_older.normals.isNull())
        makeOlder();
    for (const QRect &rect : region) {
        copyRegion(m_older.surface, {}, m_current.surface, rect);
        copyPixels(m_older.normals, m_current.normals, rect);
    }
    std::swap(m_current, m_older);
}

void NormalMapUpdateAlgorithm::paste(const NormalMapUpdateParams &params)
{
    for (int i = 0; i < std::min(params.rects.size(), params.pieces.size()); ++i) {
        const AngleImage &piece = params.pieces[i];
        const auto [source, target] = placeOf(piece, params.rects[i], m_current.surface.size());
        if (target.isEmpty())
            continue;
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
