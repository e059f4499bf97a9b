#include "WindowPictures.h"

#include <QPixmap>
#include <QScreen>
#include <QString>
#include <QTest>
#include <QWidget>

void showSettled(QWidget &window)
{
    QCursor::setPos(window.screen()->geometry().bottomRight());
    window.show();
    waitUntilSettled(window);
}

void waitUntilSettled(QWidget &window)
{
    constexpr int settledAfter = 300; // milliseconds, normal maps and the server included
    window.activateWindow();
    if (!QTest::qWaitForWindowExposed(&window) || !QTest::qWaitForWindowActive(&window))
        qWarning("The window does not come up");
    QTest::qWait(settledAfter);
}

bool savePicture(QWidget &window, const QString &path, const QRect &part)
{
    waitUntilSettled(window);
    const QRect shown = part.isNull() ? window.rect() : part;
    const QPixmap picture = window.screen()->grabWindow(
        window.winId(), shown.x(), shown.y(), shown.width(), shown.height());
    return picture.save(path, nullptr, 0);
}
