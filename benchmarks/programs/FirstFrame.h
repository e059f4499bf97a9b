#pragma once

#include <QEvent>
#include <QOpenGLWidget>

#include <unistd.h>

/// Ends the process once the first frame of a widget that OpenGL draws is on the screen. To be
/// installed as event filter of the application.
class FirstFrame : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (auto *widget = qobject_cast<QOpenGLWidget *>(watched);
            widget && event->type() == QEvent::Show)
            connect(widget, &QOpenGLWidget::frameSwapped, [] { _exit(0); });
        return false;
    }
};
