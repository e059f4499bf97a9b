#include "tools/effects/FilterEmboss.h"

#include "framework/GAction.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "imaging/effects/FilterEmbossAlgorithm.h"
#include "tools/ToolPanel.h"
#include "tools/effects/DirectionRow.h"
#include "tools/effects/EffectRunner.h"
#include "tools/effects/PositionedDialog.h"

FilterEmboss::FilterEmboss(QObject *parent)
    : PreviewedFilter(themedIcon(QStringLiteral(":/painttoolicons/emboss.svg")),
                      tr("Emboss..."),
                      tr("Emboss"),
                      tr("create embossing"),
                      parent)
{
    action().setStatusTip(tr("Raises the surface where the sprite is bright."));
    auto *height = panel().addDoubleRow(tr("Emboss height"),
                                        QStringLiteral("EmbossHeight"),
                                        SliderScale(0.1, 10.0),
                                        double(m_settings.height),
                                        tr("px"));
    height->setDecimals(2); // a hundred steps a pixel
    auto *smoothness = panel().addIntegerRow(tr("Smoothness"),
                                             QStringLiteral("Smoothness"),
                                             SliderScale(1, 9),
                                             m_settings.smoothness,
                                             tr("px"));
    auto *direction = new DirectionRow(panel());
    dialog()->setWindowTitle(tr("Emboss"));
    connect(height, &GDoubleEdit::valueChanged, this, &FilterEmboss::setHeight);
    connect(smoothness, &GIntEdit::valueChanged, this, &FilterEmboss::setSmoothness);
    connect(direction, &DirectionRow::directionChanged, this, &FilterEmboss::setDirection);
}

void FilterEmboss::setHeight(double height)
{
    m_settings.height = float(height);
    updatePreview();
}

void FilterEmboss::setSmoothness(int smoothness)
{
    m_settings.smoothness = smoothness;
    updatePreview();
}

void FilterEmboss::setDirection(bool isUp)
{
    m_settings.up = isUp;
    updatePreview();
}

std::unique_ptr<EffectRunner> FilterEmboss::createRunner()
{
    return std::make_unique<EffectRunnerOf<EmbossParams>>(
        std::make_unique<FilterEmbossAlgorithm>(),
        [this](const Body & /*body*/) { return m_settings; });
}
