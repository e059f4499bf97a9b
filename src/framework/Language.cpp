#include "framework/Language.h"

#include "base/GSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

QString languageKey()
{
    return QStringLiteral("language");
}

QString english()
{
    return QStringLiteral("en");
}

QString translationFolder()
{
    return QStringLiteral(":/translations");
}

QString toolkitFolder()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#endif
}

std::unique_ptr<QTranslator> install(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(name, folder))
        return nullptr;
    QCoreApplication::installTranslator(translator.get());
    return translator;
}

} // namespace

QStringList availableLanguages()
{
    QStringList codes{english()};
    const QStringList files = QDir(translationFolder()).entryList({QStringLiteral("*.qm")});
    for (const QString &file : files) {
        const QString code = file.section(QLatin1Char('_'), 1).section(QLatin1Char('.'), 0, 0);
        if (!codes.contains(code))
            codes.append(code);
    }
    return codes;
}

QString languageName(const QString &code)
{
    // The toolkit has none for English but with its country.
    const QLocale locale(code);
    return code == english() ? QStringLiteral("English") : locale.nativeLanguageName();
}

QString chosenLanguage(const GSettings &settings)
{
    return settings.value(languageKey()).toString();
}

void chooseLanguage(GSettings &settings, const QString &code)
{
    settings.setValue(languageKey(), code);
}

QString languageToSpeak(const QString &chosen, const QStringList &wanted)
{
    const QStringList available = availableLanguages();
    for (const QString &name : QStringList{chosen} + wanted) {
        QString code = name.section(QLatin1Char('-'), 0, 0).section(QLatin1Char('_'), 0, 0);
        if (available.contains(code))
            return code;
    }
    return english();
}

Language::Language(const GSettings &settings)
{
    const QString chosen = chosenLanguage(settings);
    const QLocale system = QLocale::system();
    m_code = languageToSpeak(chosen, system.uiLanguages());
    // A country of the language, which the system may know, has ways of its own.
    if (!chosen.isEmpty() && QLocale(m_code).language() != system.language())
        QLocale::setDefault(QLocale(m_code));
    // What is installed last is asked first: the program has the most common of the toolkit's texts
    // itself, for a system that lacks the rest.
    m_toolkit = install(QStringLiteral("qtbase_") + m_code, toolkitFolder());
    m_program = install(QStringLiteral("vesperine_") + m_code, translationFolder());
}

Language::~Language()
{
    QLocale::setDefault(QLocale::system());
}
