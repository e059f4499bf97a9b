#include "tools/ToolPanel.h"

#include "framework/ControlSizes.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/KeysText.h"
#include "framework/UiScale.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <cmath>

namespace {
constexpr int roomAboveHelp = 16;
} // namespace

ToolPanel::ToolPanel(QWidget &panel)
    : m_panel(panel)
    , m_grid(new QGridLayout(&panel))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(scaled(controlSpacing));
    m_grid->setColumnMinimumWidth(0, scaled(labelColumnWidth));
    m_grid->setColumnStretch(1, 1);
}

template <class Edit, class Number>
Edit *ToolPanel::addNumberRow(const QString &label,
                              const QString &objectName,
                              const SliderScale &scale,
                              Number value,
                              const QString &unit)
{
    auto *edit = new Edit(&m_panel);
    edit->setObjectName(objectName);
    edit->setScale(scale);
    // A degree sign stands close to its number.
    const bool isApart = !unit.isEmpty() && unit != QStringLiteral("°");
    edit->setSuffix(isApart ? QLatin1Char(' ') + unit : unit);
    edit->setLabel(label);
    edit->setValue(value);
    addRow(label, edit);
    keepSetting({objectName,
                 [edit] { return edit->value(); },
                 [edit](QVariant kept) {
                     if (kept.convert(qMetaTypeId<Number>()) && std::isfinite(kept.toDouble()))
                         edit->setValue(kept.value<Number>());
                 }});
    return edit;
}

GIntEdit *ToolPanel::addIntegerRow(const QString &label,
                                   const QString &objectName,
                                   const SliderScale &scale,
                                   int value,
                                   const QString &unit)
{
    return addNumberRow<GIntEdit>(label, objectName, scale, value, unit);
}

GDoubleEdit *ToolPanel::addDoubleRow(const QString &label,
                                     const QString &objectName,
                                     const SliderScale &scale,
                                     double value,
                                     const QString &unit)
{
    return addNumberRow<GDoubleEdit>(label, objectName, scale, value, unit);
}

QComboBox *
ToolPanel::addChoiceRow(const QString &label, const QString &objectName, const QStringList &choices)
{
    auto *box = new QComboBox(&m_panel);
    box->setObjectName(objectName);
    box->addItems(choices);
    box->setAccessibleName(label);
    addRow(label, box);
    const auto choose = [box](const QVariant &kept) {
        bool isNumber = false;
        const int index = kept.toInt(&isNumber);
        if (isNumber && index >= 0 && index < box->count())
            box->setCurrentIndex(index);
    };
    keepSetting({objectName, [box] { return box->currentIndex(); }, choose});
    return box;
}

QCheckBox *ToolPanel::addCheckRow(const QString &label, const QString &objectName)
{
    auto *box = new QCheckBox(&m_panel);
    box->setObjectName(objectName);
    box->setAccessibleName(label);
    box->setMinimumHeight(scaled(controlHeight));
    addRow(label, box);
    keepSetting({objectName,
                 [box] { return box->isChecked(); },
                 [box](const QVariant &kept) { box->setChecked(kept.toBool()); }});
    return box;
}

QButtonGroup *ToolPanel::addSwitch(const QString &objectName, const QStringList &choices)
{
    auto *row = new QWidget(&m_panel);
    row->setObjectName(objectName);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(4));
    auto *group = new QButtonGroup(row);
    for (const QString &choice : choices) {
        auto *button = new QToolButton;
        button->setText(choice);
        button->setCheckable(true);
        button->setChecked(group->buttons().isEmpty());
        button->setFocusPolicy(Qt::TabFocus);
        button->setMinimumHeight(scaled(controlHeight));
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        group->addButton(button, group->buttons().size());
        layout->addWidget(button);
    }
    addWide(row);
    return group;
}

void ToolPanel::addRow(const QString &label, QWidget *editor)
{
    const int row = m_grid->rowCount();
    auto *name = new QLabel(label, &m_panel);
    name->setMinimumHeight(scaled(controlHeight));
    name->setBuddy(editor);
    m_grid->addWidget(name, row, 0, Qt::AlignTop);
    m_grid->addWidget(editor, row, 1);
}

void ToolPanel::addWide(QWidget *control)
{
    m_grid->addWidget(control, m_grid->rowCount(), 0, 1, 2);
}

QPushButton *ToolPanel::addCommand(const QString &text, const QString &objectName)
{
    auto *button = new QPushButton(text, &m_panel);
    button->setObjectName(objectName);
    button->setEnabled(false);
    addWide(button);
    m_commands.append(button);
    return button;
}

void ToolPanel::setCommandsEnabled(bool isEnabled)
{
    for (QPushButton *button : std::as_const(m_commands))
        button->setEnabled(isEnabled);
}

QLabel *ToolPanel::addHelp(const QString &text)
{
    const int row = m_grid->rowCount();
    if (m_grid->count() > 0)
        m_grid->setRowMinimumHeight(row, scaled(roomAboveHelp));
    m_grid->setRowStretch(row, 1);
    auto *help = new KeysText(text, &m_panel);
    m_grid->addWidget(help, row + 1, 0, 1, 2);
    return help;
}
