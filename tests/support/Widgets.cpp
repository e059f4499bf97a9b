#include "support/Widgets.h"

#include <QTest>

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowActive(&window))
        qFatal("The window does not become active");
}
