#pragma once

#include <QWidget>

class GSettings;
class QSpinBox;

/// How often unsaved work is kept for recovery: the setting "recoveryInterval", and the row of the
/// preferences that changes it.
class RecoveryInterval : public QWidget
{
    Q_OBJECT

public:
    /// Shows what @p settings hold, which outlive the row.
    explicit RecoveryInterval(GSettings &settings, QWidget *parent = nullptr);

    /// Writes what the row shows to the settings.
    void store();

    /// Seconds from a change to the snapshot that holds it, 30 to 900.
    static int seconds(const GSettings &settings);

private:
    GSettings &m_settings;
    QSpinBox *m_seconds;
};
