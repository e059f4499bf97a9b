#include "framework/LanguageChoice.h"

#include "framework/Language.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

LanguageChoice::LanguageChoice(GSettings &settings, QWidget *parent)
    : QWidget(parent)
    , m_settings(settings)
    , m_box(new QComboBox(this))
{
    m_box->setObjectName(QStringLiteral("language"));
    m_box->setAccessibleName(tr("Language"));
    m_box->addItem(tr("As the system"), QString());
    for (const QString &code : availableLanguages())
        m_box->addItem(languageName(code), code);
    m_box->setCurrentIndex(std::max(0, m_box->findData(chosenLanguage(settings))));
    auto *label = createMarkedUpText(tr("<b>Language:</b>"), this);
    label->setBuddy(m_box);
    auto *hint = createQuietText(tr("From the next start on"), this);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(8));
    layout->addWidget(label);
    layout->addWidget(m_box);
    layout->addWidget(hint, 1);
}

void LanguageChoice::store()
{
    chooseLanguage(m_settings, m_box->currentData().toString());
}
