#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"

#include <QPoint>
#include <QRect>

/// A stroke as it is painted: the surface that it began with, and the layer of heights or coverage
/// that it has painted since. A new one costs what the one before has painted, not the layer.
class BrushStroke
{
public:
    /// Makes the layer for strokes on a surface of @p size; an empty one frees everything.
    void setSize(const QSize &size);
    /// The layer is 0 everywhere again.
    void begin(const AngleImage &start);

    const AngleImage &start() const { return m_start; }
    const FloatImage &layer() const { return m_layer; }
    /// Who paints into it tells so by add().
    FloatImage &layer() { return m_layer; }
    void add(const QRect &painted);
    const QRect &painted() const { return m_painted; }
    /// What was painted since the last call.
    QRect takeDirty();
    /// It takes more than twice the area of the piece that was painted last.
    bool isDirtyWide() const;
    /// All that was announced of it.
    const QRect &shown() const { return m_shown; }
    void addShown(const QRect &area) { m_shown |= area; }

private:
    AngleImage m_start; // never written: the document shares it
    FloatImage m_layer;
    QRect m_painted;
    QRect m_dirty;
    QRect m_latest;
    QRect m_shown;
};
