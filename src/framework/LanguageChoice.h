#pragma once

#include <QWidget>

class GSettings;
QT_BEGIN_NAMESPACE
class QComboBox;
QT_END_NAMESPACE

/// Chooses the language of the program's next start, each by its own name.
class LanguageChoice : public QWidget
{
    Q_OBJECT

public:
    /// @p settings outlive it.
    explicit LanguageChoice(GSettings &settings, QWidget *parent = nullptr);

    /// Keeps what is chosen.
    void store();

private:
    GSettings &m_settings;
    QComboBox *m_box;
};
