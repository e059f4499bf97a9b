#pragma once

#include <QMetaType>
#include <QRect>
#include <QSize>
#include <QVector>

/// A raster of floats, one a pixel: heights, or weights from 0 (keep) to 1 (take). A value that
/// shares its cells with its copies until one of them writes. As a selection, a null image means
/// that nothing is selected.
class FloatImage
{
public:
    FloatImage() = default;
    /// width × height cells that all hold @p fill. The limits of AngleImage hold, with room for a
    /// margin of one cell on every side; anything else gives a null image.
    FloatImage(int width, int height, float fill = 0.0F);

    int width() const { return m_width; }
    int height() const { return m_height; }
    QSize size() const { return {m_width, m_height}; }
    QRect rect() const { return {0, 0, m_width, m_height}; }
    bool isNull() const { return m_width == 0 || m_height == 0; }

    /// The first cell of row @p y. The writing form detaches shared cells first.
    const float *row(int y) const { return m_cells.constData() + qptrdiff(y) * m_width; }
    float *row(int y) { return m_cells.data() + qptrdiff(y) * m_width; }

    bool operator==(const FloatImage &other) const = default;

private:
    int m_width = 0;
    int m_height = 0;
    QVector<float> m_cells;
};

Q_DECLARE_METATYPE(FloatImage)
