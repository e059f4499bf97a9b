// What the editor's start is compared with: a window that OpenGL draws, and no more.

#include "FirstFrame.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    FirstFrame firstFrame;
    application.installEventFilter(&firstFrame);
    QMainWindow window;
    window.setCentralWidget(new QOpenGLWidget);
    window.resize(1024, 700);
    window.show();
    return QApplication::exec();
}
