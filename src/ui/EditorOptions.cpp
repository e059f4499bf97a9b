#include "ui/EditorOptions.h"

#include "base/GLogger.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace {
using Effect = EditorOption::Effect;

QString translated(const char *text)
{
    return QCoreApplication::translate("EditorOptions", text);
}

QString help()
{
    QString text = translated("Usage: vesperine [OPTION]... [FILE]...") + QLatin1String("\n\n") +
                   editorSummary() + QLatin1String("\n\n");
    for (const EditorOption &option : editorOptions())
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(option.name), -16)
                    .arg(translated(option.description));
    return text;
}
} // namespace

const std::vector<EditorOption> &editorOptions()
{
    static const std::vector<EditorOption> options = {
        {"-v",
         Effect::SetVerbosity,
         GLogger::information,
         QT_TRANSLATE_NOOP("EditorOptions", "Log what the program does")},
        {"-vv",
         Effect::SetVerbosity,
         GLogger::debugging,
         QT_TRANSLATE_NOOP("EditorOptions", "Log what helps to find faults, too")},
        {"-vvv",
         Effect::SetVerbosity,
         GLogger::everything,
         QT_TRANSLATE_NOOP("EditorOptions", "Log everything")},
        {"--flushsettings",
         Effect::FlushSettings,
         0,
         QT_TRANSLATE_NOOP("EditorOptions", "Remove all stored settings, and end")},
        {"--help",
         Effect::ShowHelp,
         0,
         QT_TRANSLATE_NOOP("EditorOptions", "Show this help, and end")},
        {"--version",
         Effect::ShowVersion,
         0,
         QT_TRANSLATE_NOOP("EditorOptions", "Show the version, and end")}};
    return options;
}

const EditorOption *findEditorOption(const QString &argument)
{
    const auto &options = editorOptions();
    const auto found = std::find_if(options.begin(), options.end(), [&](const EditorOption &each) {
        return argument == QLatin1String(each.name);
    });
    return found == options.end() ? nullptr : &*found;
}

QString editorSummary()
{
    return translated("Opens a project (.vep), or makes one of sprites and folders of sprites.");
}

bool answerFromCommandLine(int argc, const char *const *argv)
{
    for (int i = 1; i < argc; ++i) {
        const EditorOption *option = findEditorOption(QString::fromLocal8Bit(argv[i]));
        if (!option)
            continue;
        if (option->effect == Effect::ShowHelp) {
            std::fputs(qPrintable(help()), stdout);
            return true;
        }
        if (option->effect == Effect::ShowVersion) {
            std::printf("vesperine %s\n", qPrintable(QCoreApplication::applicationVersion()));
            return true;
        }
    }
    return false;
}
