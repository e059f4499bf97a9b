#pragma once

#include <QScrollArea>

QT_BEGIN_NAMESPACE
class QBoxLayout;
class QLabel;
QT_END_NAMESPACE

/// A column of panels that is as high as they are where there is room, and scrolls where there is
/// none.
class PanelArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PanelArea(QWidget *parent = nullptr);

    void addPanel(QWidget *panel);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QBoxLayout *m_layout;
};

/// The title of a sidebar, at its edges.
QLabel *createSidebarTitle(const QString &text, QWidget *parent = nullptr);
