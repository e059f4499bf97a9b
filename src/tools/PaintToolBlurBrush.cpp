#include "tools/PaintToolBlurBrush.h"

#include "framework/GAction.h"
#include "framework/GDoubleEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "tools/ToolPanel.h"

#include <QPushButton>

#include <utility>

PaintToolBlurBrush::PaintToolBlurBrush(QObject *parent)
    : PaintToolBrushFromSurface(themedIcon(QStringLiteral(":/painttoolicons/smooth.svg")),
                                tr("Smoothness brush"),
                                tr("Smoothen"),
                                {},
                                OpacityRow | HardnessRow,
                                parent)
{
    action().setStatusTip(tr("Smoothens the surface where you paint."));
    const auto *smoothness = panel().addDoubleRow(tr("Smoothness"),
                                                  QStringLiteral("Smoothness"),
                                                  SliderScale(0.5, 10.0, 50.0),
                                                  m_smoothness,
                                                  tr("px"));
    m_command = panel().addCommand(tr("Smoothen all"), QStringLiteral("SmoothenAll"));
    panel().addHelp(action().statusTip() + QLatin1Char('\n') + keysHelp());
    connect(smoothness, &GDoubleEdit::valueChanged, this, &PaintToolBlurBrush::blurRadiusChanged);
    connect(m_command, &QPushButton::clicked, this, &PaintToolBlurBrush::blurAll);
    connect(&m_blur.thread(),
            &AsyncUpdateThreadBase::resultAvailable,
            this,
            &PaintToolBlurBrush::newBlurredImageAvailable);
}

void PaintToolBlurBrush::activate(const ToolContext &context, const AngleImage &image)
{
    PaintToolBrushFromSurface::activate(context, image);
    updateSelection(context.selection);
    requestBlur();
}

void PaintToolBlurBrush::deactivate()
{
    PaintToolBrushFromSurface::deactivate();
    m_blur.forget();
}

void PaintToolBlurBrush::updateNormalMap(AngleImage normalmap)
{
    const bool isAnother = !normalmap.sharesCellsWith(currentImage());
    // What was undone in mid-stroke would come back by the blurred copy.
    if (isStrokeOpen() && isAnother) {
        dropStrokeSource();
        m_blur.forget();
    }
    PaintToolBrushFromSurface::updateNormalMap(std::move(normalmap));
    if (isAnother)
        requestBlur();
}

void PaintToolBlurBrush::updateSelection(FloatImage selection)
{
    m_command->setText(selection.isNull() ? tr("Smoothen all") : tr("Smoothen selection"));
    PaintToolBrushFromSurface::updateSelection(std::move(selection));
}

void PaintToolBlurBrush::blurAll()
{
    endStroke();
    m_blur.waitForIdle();
    if (isInUse() && !source().isNull())
        replaceSurface(source(), tr("Blur all"));
}

void PaintToolBlurBrush::blurRadiusChanged(double radius)
{
    m_smoothness = radius;
    settingsChanged();
    requestBlur();
}

void PaintToolBlurBrush::requestBlur()
{
    if (isInUse())
        m_blur.request({currentImage(), m_smoothness});
}

void PaintToolBlurBrush::newBlurredImageAvailable()
{
    const auto blurred = m_blur.take();
    if (blurred && isInUse())
        setSource(*blurred);
}

SurfacePiece PaintToolBlurBrush::strokeResult(const QRect &changed)
{
    return smoothened(stroke().start(), stroke().layer(), changed, strokeSource());
}
