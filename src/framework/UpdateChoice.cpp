#include "framework/UpdateChoice.h"

#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

UpdateChoice::UpdateChoice(GSettings &settings, QWidget *parent)
    : QWidget(parent)
    , m_settings(settings)
    , m_daily(new QCheckBox(tr("Ask once a day whether there is a newer version"), this))
    , m_preReleases(new QCheckBox(tr("Tell of pre-releases, too"), this))
{
    m_daily->setToolTip(tr("Nothing but the program's name and version goes along."));
    m_daily->setChecked(m_settings.asksDaily());
    m_preReleases->setChecked(m_settings.wantsPreReleases());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(createMarkedUpText(tr("<b>Updates:</b>"), this));
    layout->addWidget(m_daily);
    layout->addWidget(m_preReleases);
}

// A choice that was left as it stood is no decision: the one question may still come.
void UpdateChoice::store()
{
    if (m_daily->isChecked() != m_settings.asksDaily())
        m_settings.setAsksDaily(m_daily->isChecked());
    if (m_preReleases->isChecked() != m_settings.wantsPreReleases())
        m_settings.setWantsPreReleases(m_preReleases->isChecked());
}
