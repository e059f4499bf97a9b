#include "support/PaintedSurface.h"

#include "imaging/MaskedPaste.h"
#include "imaging/SlopeArithmetic.h"
#include "support/Pictures.h"

AngleImage someSurface(unsigned seed)
{
    std::mt19937 random(seed);
    AngleImage surface = randomAngles(90, 70, random);
    addSlopes(surface, {}, {}, AngleImage(90, 70));
    return surface;
}

PaintedSurface::PaintedSurface(PaintTool &tool,
                               const AngleImage &start,
                               const FloatImage &selection)
    : stored(start)
    , shown(start)
    , m_tool(tool)
{
    connect(&tool,
            &PaintTool::temporaryNormalMapChanged,
            this,
            [this](const AngleImage &piece, const QRect &area) {
                areas.append(area);
                pasteMasked(shown, {}, area.topLeft(), piece);
            });
    connect(&tool, &PaintTool::commitNormalMap, this, [this](const QString &text) {
        commits.append(text);
        replace(shown);
    });
    QImage texture(start.size(), QImage::Format_ARGB32);
    texture.fill(Qt::red);
    tool.activate({texture, selection}, start);
    tool.updateTexture(texture);
    tool.updateSelection(selection);
}

PaintedSurface::~PaintedSurface()
{
    m_tool.deactivate();
}

void PaintedSurface::press(const QPointF &at, Qt::KeyboardModifiers modifiers) const
{
    m_tool.mousePress({at, 1.0, false, Qt::LeftButton, Qt::LeftButton, modifiers});
}

void PaintedSurface::moveTo(const QPointF &at, Qt::KeyboardModifiers modifiers) const
{
    m_tool.mouseMove({at, 1.0, false, Qt::LeftButton, Qt::NoButton, modifiers});
}

void PaintedSurface::release(const QPointF &at, Qt::KeyboardModifiers modifiers) const
{
    m_tool.mouseRelease({at, 1.0, false, Qt::NoButton, Qt::LeftButton, modifiers});
}

void PaintedSurface::paint(const QVector<QPointF> &points, Qt::KeyboardModifiers modifiers) const
{
    press(points.first(), modifiers);
    for (int i = 1; i < points.size(); ++i)
        moveTo(points[i], modifiers);
    release(points.last(), modifiers);
}

void PaintedSurface::replace(const AngleImage &surface)
{
    stored = surface;
    shown = surface;
    m_tool.updateNormalMap(stored);
}
