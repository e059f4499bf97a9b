#include "framework/GApplication.h"

#include "base/ApplicationName.h"
#include "base/GSettings.h"
#include "framework/Language.h"
#include "framework/MissingDisplay.h"

#include <QFileOpenEvent>
#include <QSettings>

namespace {

QString themeKey()
{
    return QStringLiteral("theme");
}

QString nameOf(ThemeChoice choice)
{
    switch (choice) {
    case ThemeChoice::Dark:
        return QStringLiteral("dark");
    case ThemeChoice::Light:
        return QStringLiteral("light");
    case ThemeChoice::System:
        break;
    }
    return QStringLiteral("system");
}

} // namespace

void GApplication::prepare()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // later ones always do both
    setAttribute(Qt::AA_EnableHighDpiScaling);
    setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    nameApplication();
}

QString GApplication::missingDisplay(int argc, const char *const *argv)
{
    return ::missingDisplay(argc, argv);
}

GApplication::GApplication(int &argc, char **argv)
    : QApplication(argc, argv)
    , m_settings(std::make_unique<GSettings>(std::make_unique<QSettings>()))
    , m_language(std::make_unique<Language>(*m_settings))
{
    // A stroke goes through every place that the pointer was at, also through those of the time
    // that a repaint took. Only now: the platform's plugin, which comes with the application, sets
    // what it takes for right.
    setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    setAttribute(Qt::AA_CompressTabletEvents, false);
    applyTheme(theme());
}

GApplication::~GApplication() = default;

ThemeChoice GApplication::theme() const
{
    const QString name = m_settings->value(themeKey()).toString();
    for (const ThemeChoice choice : {ThemeChoice::Dark, ThemeChoice::Light}) {
        if (name == nameOf(choice))
            return choice;
    }
    return ThemeChoice::System;
}

void GApplication::setTheme(ThemeChoice choice)
{
    m_settings->setValue(themeKey(), nameOf(choice));
    applyTheme(choice);
    Q_EMIT themeChanged();
}

bool GApplication::event(QEvent *event)
{
    if (event->type() != QEvent::FileOpen)
        return QApplication::event(event);
    Q_EMIT openRequested(static_cast<QFileOpenEvent *>(event)->file());
    return true;
}

bool GApplication::notify(QObject *receiver, QEvent *event)
{
    // The toolkit tells only the windows when the desktop takes other colours.
    const bool isNewDesktop = event->type() == QEvent::ThemeChange && receiver->isWindowType();
    const bool isHandled = QApplication::notify(receiver, event);
    if (isNewDesktop)
        followDesktop();
    return isHandled;
}

void GApplication::followDesktop()
{
    if (theme() != ThemeChoice::System)
        return;
    applyTheme(ThemeChoice::System);
    Q_EMIT themeChanged();
}
