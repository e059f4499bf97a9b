#pragma once

#include <QString>
#include <QStringList>

#include <memory>

class GSettings;
QT_BEGIN_NAMESPACE
class QTranslator;
QT_END_NAMESPACE

/// The languages that the program has its texts in, as codes such as "de", English first. Their
/// translations are compiled in.
QStringList availableLanguages();
/// What a language calls itself.
QString languageName(const QString &code);

/// The language that the user has chosen under the setting "language"; empty: that of the system.
QString chosenLanguage(const GSettings &settings);
/// Counts from the next start on. An empty @p code chooses the system's language.
void chooseLanguage(GSettings &settings, const QString &code);

/// The one of availableLanguages() in which to speak: @p chosen, else the first of @p wanted that
/// is available, else English. The wanted are the system's, such as "de-AT", the most wanted first.
QString languageToSpeak(const QString &chosen, const QStringList &wanted);

/// The texts of one language, the toolkit's included, and its way to write numbers while it lives.
/// Made before any text is. Owned by the application.
class Language
{
public:
    explicit Language(const GSettings &settings);
    ~Language();
    Language(const Language &) = delete;
    Language &operator=(const Language &) = delete;

    const QString &code() const { return m_code; }

private:
    QString m_code;
    std::unique_ptr<QTranslator> m_toolkit;
    std::unique_ptr<QTranslator> m_program;
};
