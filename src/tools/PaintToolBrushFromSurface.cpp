#include "tools/PaintToolBrushFromSurface.h"

void PaintToolBrushFromSurface::activate(const ToolContext &context, const AngleImage &image)
{
    PaintToolBrushBasedOnNormalMap::activate(context, image);
    m_isInUse = !image.isNull();
}

void PaintToolBrushFromSurface::deactivate()
{
    m_isInUse = false;
    PaintToolBrushBasedOnNormalMap::deactivate();
    m_source = {};
    m_strokeSource = {};
}

void PaintToolBrushFromSurface::setSource(const AngleImage &source)
{
    m_source = source;
    if (!isStrokeOpen() || !m_strokeSource.isNull())
        return;
    m_strokeSource = source;
    announceAgain();
}

QRect PaintToolBrushFromSurface::startStroke(const QPoint &point)
{
    m_strokeSource = m_source;
    return PaintToolBrushBasedOnNormalMap::startStroke(point);
}

void PaintToolBrushFromSurface::strokeEnded()
{
    // It has painted nothing: a line that goes on from it would show some of it after all.
    if (m_strokeSource.isNull())
        settingsChanged();
}
