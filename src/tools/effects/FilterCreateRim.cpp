#include "tools/effects/FilterCreateRim.h"

#include "framework/GAction.h"
#include "framework/GIntEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "imaging/effects/FilterCreateRimAlgorithm.h"
#include "tools/ToolPanel.h"
#include "tools/effects/DirectionRow.h"
#include "tools/effects/EffectRunner.h"
#include "tools/effects/PositionedDialog.h"

#include <QCheckBox>

FilterCreateRim::FilterCreateRim(QObject *parent)
    : PreviewedFilter(themedIcon(QStringLiteral(":/painttoolicons/create_rim.svg")),
                      tr("Bevel..."),
                      tr("Bevel"),
                      tr("create rim"),
                      parent)
{
    action().setStatusTip(tr("Rounds the surface along the border to transparency."));
    addRows();
    dialog()->setWindowTitle(tr("Create bevel"));
}

void FilterCreateRim::addRows()
{
    const auto addNumber = [this](const QString &label,
                                  const QString &name,
                                  const SliderScale &scale,
                                  int &number,
                                  const QString &unit) {
        auto *edit = panel().addIntegerRow(label, name, scale, number, unit);
        connect(edit, &GIntEdit::valueChanged, this, [this, &number](int value) {
            number = value;
            updatePreview();
        });
    };
    // Narrow rims are chosen by the pixel.
    const SliderScale pixels(0, 32, 255);
    addNumber(tr("Bevel width"), QStringLiteral("RimWidth"), pixels, m_settings.rimWidth, tr("px"));
    addNumber(tr("Bevel height"),
              QStringLiteral("RimHeight"),
              SliderScale(25, 100, 400),
              m_settings.rimHeight,
              tr("%"));
    addNumber(
        tr("Smoothness"), QStringLiteral("Smoothness"), pixels, m_settings.smoothness, tr("px"));
    auto *direction = new DirectionRow(panel());
    connect(direction, &DirectionRow::directionChanged, this, [this](bool isUp) {
        m_settings.up = isUp;
        updatePreview();
    });
    auto *tileMode = panel().addCheckRow(tr("Tile mode"), QStringLiteral("TileMode"));
    tileMode->setToolTip(tr("Effect is only applied on border pixels\nadjacent to transparency.\n\n"
                            "Areas which are in contact with\nthe sprite bounding rectangle\n"
                            "remain unchanged."));
    connect(tileMode, &QCheckBox::toggled, this, [this](bool isOn) {
        m_settings.tileMode = isOn;
        updatePreview();
    });
}

std::unique_ptr<EffectRunner> FilterCreateRim::createRunner()
{
    return std::make_unique<EffectRunnerOf<RimParams>>(std::make_unique<FilterCreateRimAlgorithm>(),
                                                       [this](const Body &body) {
                                                           RimParams params = m_settings;
                                                           params.selection = selectionOf(body);
                                                           return params;
                                                       });
}
