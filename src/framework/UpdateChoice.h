#pragma once

#include "framework/UpdateSettings.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
QT_END_NAMESPACE

/// Whether the program asks for newer versions by itself, and for which; part of the preferences.
class UpdateChoice : public QWidget
{
    Q_OBJECT

public:
    /// @p settings outlive the widget.
    explicit UpdateChoice(GSettings &settings, QWidget *parent = nullptr);

    /// Keeps what is chosen.
    void store();

private:
    UpdateSettings m_settings;
    QCheckBox *m_daily;
    QCheckBox *m_preReleases;
};
