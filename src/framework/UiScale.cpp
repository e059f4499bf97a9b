#include "framework/UiScale.h"

#include <QGuiApplication>
#include <QScreen>

double uiScaleFactor()
{
    constexpr double unscaledDpi = 96.0;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() / unscaledDpi : 1.0;
}

int scaled(int pixels)
{
    return qRound(pixels * uiScaleFactor());
}
