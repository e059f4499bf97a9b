#pragma once

#include <QPoint>
#include <QPointF>

/// How a scene falls on the pixels of a screen: its zoom, on a screen that has some ratio of its
/// own (device) pixels to logical ones, which is what widgets are measured in. At 100 % a scene
/// pixel is a whole number of device pixels.
class PixelGrid
{
public:
    explicit PixelGrid(double ratio, double zoom = 1.0)
        : m_ratio(ratio)
        , m_zoom(zoom)
    {
    }

    double ratio() const { return m_ratio; }
    double zoom() const { return m_zoom; }
    /// Device pixels of a scene pixel at 100 %: the ratio in round numbers. Screens tell ratios
    /// like 1.04 because their size in millimetres is given in round numbers; they mean 1.
    int fullSize() const;
    /// Device pixels of a scene pixel.
    double devicePixels() const { return m_zoom * fullSize(); }
    /// Logical pixels of a scene pixel.
    double scale() const { return devicePixels() / m_ratio; }
    /// The zoom at which a scene pixel has @p scale logical pixels.
    double zoomOf(double scale) const { return scale * m_ratio / fullSize(); }

    /// What to add to @p place, in logical pixels, to come to the nearest device pixel's corner.
    QPointF toCorner(const QPoint &place) const;
    /// The point of the scene for @p place, where the pointer is, in device pixels from the scene's
    /// origin: always in the pixel of the scene that is drawn there.
    QPointF sceneAt(const QPointF &place) const;

private:
    double sceneAt(double place) const;

    double m_ratio;
    double m_zoom;
};
