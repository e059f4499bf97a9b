#pragma once

#include <QWidget>

class ToolPanel;

QT_BEGIN_NAMESPACE
class QRadioButton;
QT_END_NAMESPACE

/// The choice between "Up" and "Down" in an effect's panel, up at first.
class DirectionRow : public QWidget
{
    Q_OBJECT

public:
    /// Adds itself to @p panel, to be kept between runs.
    explicit DirectionRow(ToolPanel &panel);

Q_SIGNALS:
    void directionChanged(bool isUp);

private:
    QRadioButton *m_up;
    QRadioButton *m_down;
};
