#include "tools/BrushPanel.h"

#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"
#include "tools/ToolPanel.h"

#include <QAction>
#include <QActionGroup>
#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QStringList>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {
constexpr double sizePerStep = 1.1;
constexpr int hardnessPerStep = 5;

QString percent()
{
    return QStringLiteral("%");
}

/// The buttons of contours, one of which is pressed. Owned by the row.
struct ContourButtons
{
    QButtonGroup *buttons;
    QActionGroup *actions;
};

ContourButtons createContourButtons(QWidget &row)
{
    // In the colours of the theme, as the contours' own icons are not.
    const QString icons[] = {
        QStringLiteral("cos"), QStringLiteral("linear"), QStringLiteral("round")};
    const ContourButtons contours{new QButtonGroup(&row), new QActionGroup(&row)};
    auto *layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(4));
    for (const QString &icon : icons) {
        const int index = contours.actions->actions().size();
        const QString path = QStringLiteral(":/painttoolicons/brush_shape_%1.svg").arg(icon);
        auto *action =
            new QAction(themedIcon(path), BrushPanel::tr("Brush contour %1").arg(index + 1), &row);
        action->setCheckable(true);
        action->setData(index);
        contours.actions->addAction(action);
        auto *button = new QToolButton;
        button->setDefaultAction(action);
        button->setIconSize(QSize(24, 24) * uiScaleFactor());
        button->setAutoRaise(true);
        button->setAccessibleName(action->text());
        contours.buttons->addButton(button, index);
        layout->addWidget(button);
    }
    layout->addStretch();
    contours.actions->actions().first()->setChecked(true);
    return contours;
}
} // namespace

BrushPanel::BrushPanel(ToolPanel &panel, BrushRows rows)
{
    createNumberRows(panel, rows);
    if (rows & ContourRow)
        createContourRow(panel);
    createPressureRow(panel, rows);
}

template <class Edit, class Number>
void BrushPanel::follow(const Edit &edit, Number &field)
{
    connect(&edit, &Edit::valueChanged, this, [this, &field](Number value) {
        field = value;
        Q_EMIT changed();
    });
}

void BrushPanel::createNumberRows(ToolPanel &panel, BrushRows rows)
{
    // Small brushes are chosen by the pixel, large ones by feel.
    m_sizeEdit = panel.addIntegerRow(tr("Brush size"),
                                     QStringLiteral("BrushSize"),
                                     SliderScale({1, 20, 40, 100, 500}),
                                     m_settings.size,
                                     tr("px"));
    follow(*m_sizeEdit, m_settings.size);
    if (rows & HeightRow) {
        const auto *edit = panel.addDoubleRow(tr("Height"),
                                              QStringLiteral("Height"),
                                              SliderScale(0.1, 10.0, 200.0),
                                              m_settings.height,
                                              percent());
        follow(*edit, m_settings.height);
    }
    if (rows & OpacityRow) {
        m_opacityEdit = panel.addIntegerRow(tr("Opacity"),
                                            QStringLiteral("Opacity"),
                                            SliderScale(1, 100),
                                            m_settings.opacity,
                                            percent());
        follow(*m_opacityEdit, m_settings.opacity);
    }
    if (rows & HardnessRow) {
        m_hardnessEdit = panel.addIntegerRow(tr("Hardness"),
                                             QStringLiteral("Hardness"),
                                             SliderScale(0, 100),
                                             m_settings.hardness,
                                             percent());
        follow(*m_hardnessEdit, m_settings.hardness);
    }
}

void BrushPanel::createContourRow(ToolPanel &panel)
{
    auto *row = new QWidget;
    row->setObjectName(QStringLiteral("Contour"));
    const auto [buttons, actions] = createContourButtons(*row);
    panel.addRow(tr("Contour"), row);
    connect(buttons, &QButtonGroup::idClicked, this, &BrushPanel::contourClicked);
    const auto choose = [this, actions = actions](const QVariant &kept) {
        if (QAction *action = actions->actions().value(kept.toInt())) {
            action->setChecked(true);
            Q_EMIT contourClicked(action->data().toInt());
        }
    };
    panel.keepSetting({row->objectName(), [this] { return m_settings.contour; }, choose});
}

void BrushPanel::createPressureRow(ToolPanel &panel, BrushRows rows)
{
    QStringList choices{tr("Off"), tr("Size")};
    if (rows & OpacityRow)
        choices.append(tr("Opacity"));
    if (rows & HeightRow)
        choices.append(tr("Height"));
    auto *box = panel.addChoiceRow(tr("Pen pressure"), QStringLiteral("PenPressure"), choices);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_settings.pressure = PenPressure(index);
    });
    box->setCurrentIndex(box->count() - 1);
}

void BrushPanel::setContour(int contour)
{
    m_settings.contour = contour;
    Q_EMIT changed();
}

void BrushPanel::setSize(int size)
{
    m_sizeEdit->setValue(size);
}

void BrushPanel::setOpacity(int opacity)
{
    if (m_opacityEdit)
        m_opacityEdit->setValue(opacity);
}

void BrushPanel::setHardness(int hardness)
{
    if (m_hardnessEdit)
        m_hardnessEdit->setValue(hardness);
}

void BrushPanel::changeSize(int steps)
{
    const int size = m_settings.size;
    const int wanted = qRound(size * std::pow(sizePerStep, steps));
    // Small brushes would stay as they are.
    setSize(steps > 0 ? std::max(wanted, size + 1) : std::min(wanted, size - 1));
}

void BrushPanel::changeHardness(int steps)
{
    setHardness(m_settings.hardness + steps * hardnessPerStep);
}

QString BrushPanel::keysHelp() const
{
    QStringList lines{tr("[ ] or Ctrl + wheel | brush size")};
    if (m_hardnessEdit)
        lines.append(tr("Shift and these | hardness"));
    if (m_opacityEdit)
        lines.append(tr("1 to 9, 0 | opacity"));
    lines.append(tr("Ctrl + Alt + right drag | size and hardness"));
    lines.append(tr("Shift | straight line from the last stroke"));
    lines.append(tr("Esc | take the stroke back"));
    return lines.join(QLatin1Char('\n'));
}
