#pragma once

#include <QDialog>

class GApplication;
class GDirectoryEdit;
class LanguageChoice;
class QComboBox;
class RecoveryInterval;
class UpdateChoice;

/// What the user sets for the whole program. Settings are written when the dialog is accepted.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p application outlives the dialog.
    explicit PreferencesDialog(GApplication &application, QWidget *parent = nullptr);

    void accept() override;

private:
    void alignLabels();

    GApplication &m_application;
    GDirectoryEdit *m_patterns;
    QComboBox *m_theme;
    LanguageChoice *m_language;
    RecoveryInterval *m_recovery;
    UpdateChoice *m_updates = nullptr; ///< only in a build with a feed
};
