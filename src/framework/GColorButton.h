#pragma once

#include <QColor>
#include <QToolButton>

/// A button that shows a colour, with its alpha, and opens a dialog to choose another one. While
/// the dialog is open its choice is sent at once; cancelling sends the former colour again.
class GColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit GColorButton(QWidget *parent = nullptr);

    QColor color() const { return m_color; }
    void setLabel(const QString &label);
    void setMixed(bool isMixed);

public Q_SLOTS:
    void setColor(const QColor &color);

Q_SIGNALS:
    void colorChanged(const QColor &color);
    void editingFinished();

private:
    QColor m_color = Qt::white;
};
