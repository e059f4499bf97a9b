#pragma once

#include "tools/BrushSettings.h"

#include <QPointF>

/// A drag that changes a brush: to the right it grows, its edge following the pointer; upwards it
/// becomes harder. The outline stays where the drag began.
class BrushAdjustment
{
public:
    BrushAdjustment(const QPointF &start, const BrushSettings &settings)
        : m_start(start)
        , m_settings(settings)
    {
    }

    const QPointF &start() const { return m_start; }
    /// Not yet within the limits of a brush.
    int sizeAt(const QPointF &position) const;
    int hardnessAt(const QPointF &position) const;

private:
    QPointF m_start;
    BrushSettings m_settings;
};
