#include "ui/PanelArea.h"

#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>

PanelArea::PanelArea(QWidget *parent)
    : QScrollArea(parent)
{
    auto *column = new QWidget(this);
    column->setAutoFillBackground(false);
    m_layout = new QVBoxLayout(column);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    setWidget(column);
    column->installEventFilter(this);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    // The bar takes part in the tab order otherwise, without being of use to the keyboard.
    setFocusPolicy(Qt::NoFocus);
}

void PanelArea::addPanel(QWidget *panel)
{
    m_layout->addWidget(panel);
}

QSize PanelArea::sizeHint() const
{
    const QSize content = widget()->sizeHint();
    const int height = widget()->hasHeightForWidth() ? widget()->heightForWidth(width()) : 0;
    return {minimumSizeHint().width(), std::max(content.height(), height)};
}

QSize PanelArea::minimumSizeHint() const
{
    const QSize content = widget()->minimumSizeHint();
    return {content.width(), std::min(content.height(), scaled(96))};
}

bool PanelArea::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QLabel *createSidebarTitle(const QString &text, QWidget *parent)
{
    QLabel *title = createPanelTitle(text, parent);
    title->setForegroundRole(QPalette::WindowText);
    title->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(8));
    return title;
}
