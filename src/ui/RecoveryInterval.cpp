#include "ui/RecoveryInterval.h"

#include "base/GSettings.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

namespace {
constexpr int shortest = 30;
constexpr int usual = 120;
constexpr int longest = 900;

QString intervalKey()
{
    return QStringLiteral("recoveryInterval");
}
} // namespace

RecoveryInterval::RecoveryInterval(GSettings &settings, QWidget *parent)
    : QWidget(parent)
    , m_settings(settings)
    , m_seconds(new QSpinBox(this))
{
    m_seconds->setRange(shortest, longest);
    m_seconds->setSingleStep(shortest);
    m_seconds->setSuffix(tr(" s"));
    m_seconds->setValue(seconds(settings));
    m_seconds->setAccessibleName(tr("Keep unsaved work every"));
    m_seconds->setToolTip(tr("After a crash the next start offers what was kept last"));
    auto *label = createMarkedUpText(tr("<b>Keep unsaved work every:</b>"), this);
    label->setBuddy(m_seconds);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(label);
    layout->addWidget(m_seconds);
    layout->addStretch();
}

void RecoveryInterval::store()
{
    m_settings.setValue(intervalKey(), m_seconds->value());
}

int RecoveryInterval::seconds(const GSettings &settings)
{
    return std::clamp(settings.value(intervalKey(), usual).toInt(), shortest, longest);
}
