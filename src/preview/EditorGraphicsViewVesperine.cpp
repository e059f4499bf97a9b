#include "preview/EditorGraphicsViewVesperine.h"

#include <QApplication>
#include <QKeyEvent>
#include <QOpenGLWidget>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace {
/// Draws the rubber band so that the colours below it stay.
class RubberBandStyle : public QProxyStyle
{
public:
    void drawControl(ControlElement element,
                     const QStyleOption *option,
                     QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element != CE_RubberBand) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        QColor accent = option->palette.color(QPalette::Highlight);
        painter->setPen(accent);
        accent.setAlphaF(0.1);
        painter->setBrush(accent);
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
};
} // namespace

EditorGraphicsViewVesperine::EditorGraphicsViewVesperine(QWidget *parent)
    : EditorGraphicsView(parent)
{
    // What is dropped here is for the editor around it.
    setAcceptDrops(false);
    setViewport(new QOpenGLWidget);
    auto *style = new RubberBandStyle;
    style->setParent(this);
    viewport()->setStyle(style);
    // The scene is drawn as a whole or not at all; it tells when.
    setViewportUpdateMode(NoViewportUpdate);
    viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    viewport()->setMouseTracking(true);
    viewport()->setTabletTracking(true);
    setDragMode(RubberBandDrag);
    grabGesture(Qt::PinchGesture);
    qApp->installEventFilter(this);
    connect(this, &QGraphicsView::rubberBandChanged, viewport(), qOverload<>(&QWidget::update));
}

EditorGraphicsViewVesperine::~EditorGraphicsViewVesperine() = default;

// Tools see the modifiers wherever in the window the focus is. Edits may keep them to themselves.
bool EditorGraphicsViewVesperine::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    if (isKey && !hasFocus() && watched == window()->focusWidget())
        forwardModifier(static_cast<QKeyEvent &>(*event));
    return EditorGraphicsView::eventFilter(watched, event);
}

void EditorGraphicsViewVesperine::forwardModifier(QKeyEvent &event)
{
    const int key = event.key();
    if (key != Qt::Key_Shift && key != Qt::Key_Control && key != Qt::Key_Alt)
        return;
    // A copy and no delivery, which would come through here once more.
    QKeyEvent copy(event.type(), key, event.modifiers(), event.text(), event.isAutoRepeat());
    if (event.type() == QEvent::KeyPress)
        keyPressEvent(&copy);
    else
        keyReleaseEvent(&copy);
}
