#include "ui/PreferencesDialog.h"

#include "base/BuildOptions.h"
#include "base/GSettings.h"
#include "framework/ControlSizes.h"
#include "framework/GApplication.h"
#include "framework/GPathEdit.h"
#include "framework/LanguageChoice.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"
#include "framework/UpdateChoice.h"
#include "ui/RecoveryInterval.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {
QString patternsKey()
{
    return QStringLiteral("patterns");
}
} // namespace

PreferencesDialog::PreferencesDialog(GApplication &application, QWidget *parent)
    : QDialog(parent)
    , m_application(application)
    , m_patterns(new GDirectoryEdit(this))
    , m_theme(new QComboBox(this))
    , m_language(new LanguageChoice(application.settings(), this))
    , m_recovery(new RecoveryInterval(application.settings(), this))
{
    setWindowTitle(tr("Preferences"));
    m_patterns->setLabel(tr("Custom pattern directory:"));
    m_patterns->setDialogTitle(tr("Custom pattern directory"));
    m_patterns->setPath(application.settings().value(patternsKey()).toString());
    auto *hint = new QLabel(tr("The \"Structure\" tool loads its pattern images from this "
                               "directory. You have to re-open your VE project after changing the "
                               "directory or updating its content"),
                            this);
    hint->setWordWrap(true);
    m_theme->addItem(tr("As the system"), int(ThemeChoice::System));
    m_theme->addItem(tr("Dark"), int(ThemeChoice::Dark));
    m_theme->addItem(tr("Light"), int(ThemeChoice::Light));
    m_theme->setCurrentIndex(m_theme->findData(int(application.theme())));
    auto *themeLabel = createMarkedUpText(tr("<b>Appearance:</b>"), this);
    themeLabel->setBuddy(m_theme);
    m_theme->setAccessibleName(tr("Appearance"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(createMarkedUpText(tr("<b>Custom pattern directory:</b>"), this));
    layout->addWidget(m_patterns);
    layout->addWidget(hint);
    layout->addSpacing(scaled(8));
    auto *themeRow = new QHBoxLayout;
    themeRow->setSpacing(scaled(8));
    themeRow->addWidget(themeLabel);
    themeRow->addWidget(m_theme);
    themeRow->addStretch();
    layout->addLayout(themeRow);
    layout->addWidget(m_language);
    layout->addWidget(m_recovery);
    if (!updateFeedAddress().isEmpty()) {
        m_updates = new UpdateChoice(application.settings(), this);
        layout->addSpacing(scaled(8));
        layout->addWidget(m_updates);
    }
    layout->addStretch();
    layout->addWidget(buttons);
    alignLabels();
    const int width = scaled(480);
    resize(width, qMax(scaled(260), layout->totalHeightForWidth(width)));
}

// One column for all, as wide as the language needs it.
void PreferencesDialog::alignLabels()
{
    QVector<QLabel *> labels;
    int width = scaled(labelColumnWidth);
    for (QLabel *label : findChildren<QLabel *>()) {
        if (!label->buddy())
            continue;
        labels.append(label);
        width = std::max(width, label->sizeHint().width());
    }
    for (QLabel *label : labels)
        label->setMinimumWidth(width);
}

void PreferencesDialog::accept()
{
    m_application.settings().setValue(patternsKey(), m_patterns->path());
    m_application.setTheme(ThemeChoice(m_theme->currentData().toInt()));
    m_language->store();
    m_recovery->store();
    if (m_updates)
        m_updates->store();
    m_application.settings().flush();
    QDialog::accept();
}
