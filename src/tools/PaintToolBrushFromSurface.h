#pragma once

#include "tools/PaintToolBrushBasedOnNormalMap.h"

/// A brush that paints from another surface, which is made in the background. A stroke keeps the
/// one that it began with, also where a line goes on from it; one that began without takes the
/// first that comes.
class PaintToolBrushFromSurface : public PaintToolBrushBasedOnNormalMap
{
    Q_OBJECT

public:
    using PaintToolBrushBasedOnNormalMap::PaintToolBrushBasedOnNormalMap;

    void activate(const ToolContext &context, const AngleImage &image) override;
    void deactivate() override;

protected:
    /// Activated and not deactivated; no more so while an open stroke is ended by that.
    bool isInUse() const { return m_isInUse; }
    /// What strokes paint from that begin from now on.
    void setSource(const AngleImage &source);
    const AngleImage &source() const { return m_source; }
    /// What the stroke paints from; null for nothing.
    const AngleImage &strokeSource() const { return m_strokeSource; }
    /// An open stroke waits for the next one.
    void dropStrokeSource() { m_strokeSource = {}; }

    QRect startStroke(const QPoint &point) override;
    void strokeEnded() override;

private:
    AngleImage m_source;
    AngleImage m_strokeSource;
    bool m_isInUse = false;
};
