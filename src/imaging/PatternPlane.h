#pragma once

#include <QImage>
#include <QRect>

/// A pattern in its scaled size, repeated without end to all sides from (0, 0) on. It holds the
/// scaled tile where that is of an ordinary size, and otherwise makes every part when it is asked.
///
/// Pixels are read as 8-bit colours, not premultiplied, without their alpha.
class PatternPlane
{
public:
    /// @p scale of 0.1 to 4. A scaled pattern of at least @p side in both directions is resized by
    /// itself; a smaller one between copies of itself, so that its borders meet without a seam. No
    /// image of more than about @p pixelLimit pixels is made on the way.
    PatternPlane(const QImage &pattern, double scale, int side, qint64 pixelLimit);

    /// The plane's pixels inside @p area, in QImage::Format_RGB32.
    QImage part(const QRect &area) const;

private:
    QImage scaledPart(const QRect &area) const;

    QImage m_pattern;
    QSize m_scaledSize;
    qint64 m_pixelLimit;
    QImage m_tile; ///< the whole scaled pattern, or null
};
