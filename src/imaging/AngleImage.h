#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QRect>
#include <QSize>

#include <cmath>
#include <optional>

/// A painted surface: a raster of slopes in X and Y, one cell a pixel of the sprite. A value that
/// shares its cells with its copies until one of them writes.
///
/// The cells live in the very bytes that a project file holds (see encode()), so that neither
/// saving nor loading copies a surface.
class AngleImage
{
public:
    /// One cell: slopes as signed fixed point with 8 fractional bits (256 is a slope of 1), X
    /// first. (0, 0) is flat, positive slopes face right and down.
    struct Pixel
    {
        qint16 sx = 0;
        qint16 sy = 0;

        bool operator==(const Pixel &) const = default;
    };

    static constexpr int maximumSide = 32768;
    static constexpr qint64 maximumCells = qint64(1) << 26;
    /// True when a raster of these sides can be: both within the limits above, 0 included.
    static constexpr bool isPossibleSize(qint64 width, qint64 height)
    {
        return width >= 0 && height >= 0 && width <= maximumSide && height <= maximumSide &&
               width * height <= maximumCells;
    }

    AngleImage() = default;
    /// A surface of width × height cells that all hold @p fill (X in the low half, Y in the high).
    /// Sides of 0 to maximumSide and at most maximumCells cells; anything else gives a null image.
    AngleImage(int width, int height, quint32 fill = 0);

    int width() const;
    int height() const;
    QSize size() const { return {width(), height()}; }
    QRect rect() const { return {0, 0, width(), height()}; }
    /// True when a side is 0: nothing is painted, the surface counts as flat.
    bool isNull() const { return width() == 0 || height() == 0; }

    /// The first cell of row @p y. The writing form detaches shared cells first.
    const Pixel *row(int y) const;
    Pixel *row(int y);

    /// The same in a block of its own, as made by the first write to a copy, but faster.
    AngleImage unsharedCopy() const;

    /// True when both have one size and equal cells.
    bool operator==(const AngleImage &other) const;
    /// True when both share one block of cells, so that a write to either would copy it whole.
    bool sharesCellsWith(const AngleImage &other) const;

private:
    friend QByteArray encode(const AngleImage &image);
    friend std::optional<AngleImage> decode(const QByteArray &bytes);

    QByteArray m_bytes;
};

Q_DECLARE_METATYPE(AngleImage)

/// The bytes of a surface: width and height as signed 32-bit, then the cells row by row, each the
/// X slope and the Y slope as signed 16-bit, all little-endian. Shares the cells with @p image.
/// The default surface is an empty array.
QByteArray encode(const AngleImage &image);

/// The surface that @p bytes hold, sharing them; an empty array is a null surface. Nothing when the
/// sides are out of range or the length is not exactly that of the header's size.
std::optional<AngleImage> decode(const QByteArray &bytes);

/// The nearest stored slope: clamped to −128…127, times 256, halves rounded away from zero (as the
/// toolkit's and OpenCV's own rounding do not). Not a number gives 0. In 32 bits and without
/// branches, so that loops of it become vectors.
inline qint32 roundedSlope(float slope)
{
    // One half itself, added to the largest float below a half, would round up.
    constexpr float almostHalf = 0.49999997F;
    const float scaled = slope * 256.0F;
    const float moved = scaled + std::copysign(almostHalf, scaled);
    const float notBelow = moved > -32768.0F ? moved : -32768.0F;
    const float clamped = moved < 32512.0F ? notBelow : 32512.0F;
    return slope == slope ? static_cast<qint32>(clamped) : 0;
}

/// The same as a half of a cell.
inline qint16 toStoredSlope(float slope)
{
    return static_cast<qint16>(roundedSlope(slope));
}
