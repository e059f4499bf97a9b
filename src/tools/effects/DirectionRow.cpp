#include "tools/effects/DirectionRow.h"

#include "framework/ControlSizes.h"
#include "framework/UiScale.h"
#include "tools/ToolPanel.h"

#include <QHBoxLayout>
#include <QRadioButton>

DirectionRow::DirectionRow(ToolPanel &panel)
    : m_up(new QRadioButton(tr("Up")))
    , m_down(new QRadioButton(tr("Down")))
{
    m_up->setObjectName(QStringLiteral("DirectionUp"));
    m_down->setObjectName(QStringLiteral("DirectionDown"));
    m_up->setChecked(true);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(16));
    row->addWidget(m_up);
    row->addWidget(m_down);
    row->addStretch();
    setFixedHeight(scaled(controlHeight));
    connect(m_up, &QRadioButton::toggled, this, &DirectionRow::directionChanged);
    panel.addRow(tr("Direction"), this);
    panel.keepSetting(
        {m_up->objectName(),
         [this] { return m_up->isChecked(); },
         [this](const QVariant &isUp) { (isUp.toBool() ? m_up : m_down)->setChecked(true); }});
}
