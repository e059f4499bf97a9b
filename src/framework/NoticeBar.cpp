#include "framework/NoticeBar.h"

#include "framework/UiScale.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMainWindow>
#include <QPushButton>

#include <chrono>

namespace {
bool isOfTheHand(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::KeyPress:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}
} // namespace

NoticeBar::NoticeBar(const QString &text, QMainWindow &window)
    : QToolBar(&window)
    , m_window(window)
    , m_label(new QLabel(text, this))
{
    setObjectName(QStringLiteral("notice"));
    setMovable(false);
    setAllowedAreas(Qt::BottomToolBarArea);
    // Not among the toolbars that the window's context menu shows and hides.
    toggleViewAction()->setVisible(false);
    setAccessibleName(text);
    layout()->setSpacing(scaled(8));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setMinimumWidth(scaled(240));
    m_label->setIndent(scaled(8));
    m_label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(m_label);
    hide();
    m_rest.setSingleShot(true);
    m_rest.setInterval(std::chrono::seconds(1));
    connect(&m_rest, &QTimer::timeout, this, &NoticeBar::appear);
}

QPushButton *NoticeBar::addButton(const QString &text)
{
    auto *button = new QPushButton(text, this);
    addWidget(button);
    connect(button, &QPushButton::clicked, this, [this] {
        hide();
        deleteLater();
    });
    return button;
}

void NoticeBar::showAtRest()
{
    qApp->installEventFilter(this);
    m_rest.start();
}

// A toolbar does not ask a text how high it is in the width that it gets.
void NoticeBar::resizeEvent(QResizeEvent *event)
{
    QToolBar::resizeEvent(event);
    m_label->setFixedHeight(m_label->heightForWidth(m_label->width()));
}

bool NoticeBar::eventFilter(QObject *watched, QEvent *event)
{
    if (isOfTheHand(event->type()) || QApplication::activeModalWidget())
        m_rest.start();
    return QToolBar::eventFilter(watched, event);
}

void NoticeBar::appear()
{
    qApp->removeEventFilter(this);
    m_window.addToolBar(Qt::BottomToolBarArea, this);
    show();
    Q_EMIT appeared();
}
