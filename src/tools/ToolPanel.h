#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <functional>

class GDoubleEdit;
class GIntEdit;
class SliderScale;

QT_BEGIN_NAMESPACE
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;
QT_END_NAMESPACE

/// What a tool keeps between runs, under the name of the control that edits it.
struct ToolSetting
{
    QString key;
    std::function<QVariant()> read;
    /// Does nothing with a value that it can't take.
    std::function<void(const QVariant &)> write;
};

/// Lays the rows of settings into a panel, which it borrows: labels left, editors right. Rows come
/// in the order in which they are added. Numbers and choices are kept between runs.
class ToolPanel
{
public:
    explicit ToolPanel(QWidget &panel);

    /// A whole number with the range and the slider of @p scale.
    GIntEdit *addIntegerRow(const QString &label,
                            const QString &objectName,
                            const SliderScale &scale,
                            int value,
                            const QString &unit = {});
    GDoubleEdit *addDoubleRow(const QString &label,
                              const QString &objectName,
                              const SliderScale &scale,
                              double value,
                              const QString &unit = {});
    /// One of @p choices, the first at first.
    QComboBox *
    addChoiceRow(const QString &label, const QString &objectName, const QStringList &choices);
    /// A box beside its label, not checked at first.
    QCheckBox *addCheckRow(const QString &label, const QString &objectName);
    /// Buttons over both columns, one of which is pressed, the first at first; their ids count from
    /// 0. Not kept between runs. A click leaves the focus where it is.
    QButtonGroup *addSwitch(const QString &objectName, const QStringList &choices);
    void addRow(const QString &label, QWidget *editor);
    /// A control over both columns.
    void addWide(QWidget *control);
    /// A button over both columns that works while there is something to work on.
    QPushButton *addCommand(const QString &text, const QString &objectName);
    void setCommandsEnabled(bool isEnabled);
    /// Quiet text at the end, behind an empty row that takes the room that is left. Lines such as
    /// "X | toggle up/down" stand in two columns.
    QLabel *addHelp(const QString &text);

    void keepSetting(const ToolSetting &setting) { m_settings.append(setting); }
    const QVector<ToolSetting> &settings() const { return m_settings; }

private:
    template <class Edit, class Number>
    Edit *addNumberRow(const QString &label,
                       const QString &objectName,
                       const SliderScale &scale,
                       Number value,
                       const QString &unit);

    QWidget &m_panel;
    QGridLayout *m_grid;
    QVector<QPushButton *> m_commands;
    QVector<ToolSetting> m_settings;
};
