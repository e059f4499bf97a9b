#pragma once

#include "framework/Theme.h"

#include <QApplication>

#include <memory>

class GSettings;
class Language;

/// The generic application: settings, language, theme, and the files that the desktop wants opened.
class GApplication : public QApplication
{
    Q_OBJECT

public:
    /// What has to be set before the application object is made: scaling and names.
    static void prepare();
    /// Why no window can be shown, in one sentence; empty when one can. Works without an
    /// application object, whose constructor would abort. The arguments are those of main().
    static QString missingDisplay(int argc = 0, const char *const *argv = nullptr);

    GApplication(int &argc, char **argv);
    ~GApplication() override;

    GSettings &settings() { return *m_settings; }
    /// The theme that is kept under the setting "theme".
    ThemeChoice theme() const;
    void setTheme(ThemeChoice choice);

    bool event(QEvent *event) override;
    bool notify(QObject *receiver, QEvent *event) override;

Q_SIGNALS:
    /// The desktop asks to open @p path.
    void openRequested(const QString &path);
    /// Icons and palettes of own make are to be made anew.
    void themeChanged();

private:
    void followDesktop();

    std::unique_ptr<GSettings> m_settings;
    std::unique_ptr<Language> m_language;
};
