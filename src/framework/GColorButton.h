#pragma once

#include "framework/EditorKeys.h"

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
    /// Whether the dialog offers alpha; at first it does.
    void setAlphaOffered(bool isOffered) { m_offersAlpha = isOffered; }

    QSize sizeHint() const override;

public Q_SLOTS:
    /// Sends colorChanged() when it is another colour.
    void setColor(const QColor &color);

Q_SIGNALS:
    void colorChanged(const QColor &color);
    void editingFinished();
    /// The dialog was cancelled; the former colour, or the mixed state, is back.
    void editingCancelled();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void choose();
    void cancel(const QColor &former, bool wasMixed);

    QColor m_color = Qt::white;
    QString m_label;
    bool m_isMixed = false;
    bool m_offersAlpha = true;
    EditorKeys m_keys{*this, [] {}, [] { return false; }};
};
