#include "tools/PaintToolEraser.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "imaging/SlopeArithmetic.h"
#include "tools/ToolPanel.h"

#include <QPushButton>

PaintToolEraser::PaintToolEraser(QObject *parent)
    : PaintToolBrushBasedOnNormalMap(themedIcon(QStringLiteral(":/painttoolicons/eraser.svg")),
                                     tr("Eraser Tool"),
                                     tr("Erase"),
                                     QStringLiteral("E"),
                                     OpacityRow | HardnessRow,
                                     parent)
    , m_eraseAll(panel().addCommand(tr("Erase all"), QStringLiteral("EraseAll")))
{
    action().setStatusTip(tr("Flattens the surface where you paint."));
    connect(m_eraseAll, &QPushButton::clicked, this, &PaintToolEraser::eraseAll);
    panel().addHelp(action().statusTip() + QLatin1Char('\n') + keysHelp());
}

void PaintToolEraser::updateSelection(FloatImage selection)
{
    m_eraseAll->setText(selection.isNull() ? tr("Erase all") : tr("Erase selection"));
    PaintToolBrushBasedOnNormalMap::updateSelection(std::move(selection));
}

void PaintToolEraser::eraseAll()
{
    if (currentImage().isNull() || isStrokeOpen())
        return;
    AngleImage surface = currentImage();
    blendSlope(surface, FloatImage(surface.width(), surface.height(), opacity()), {});
    replaceSurface(surface, tr("Erase all"));
}

SurfacePiece PaintToolEraser::strokeResult(const QRect &changed)
{
    return turned(stroke().start(), stroke().layer(), changed, {});
}
