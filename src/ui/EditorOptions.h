#pragma once

#include <QString>

#include <vector>

/// An option of the editor's command line, compared exactly. Help, manual page and completions are
/// made from the same table.
struct EditorOption
{
    enum class Effect { SetVerbosity, FlushSettings, ShowHelp, ShowVersion };

    const char *name;
    Effect effect;
    int verbosity; ///< with SetVerbosity, of the log
    const char *description;
};

const std::vector<EditorOption> &editorOptions();

/// The option that @p argument is, null for any other.
const EditorOption *findEditorOption(const QString &argument);

/// What the editor does, in one sentence.
QString editorSummary();

/// Prints help or version to standard output when the arguments of main() ask for it; true when
/// there is nothing more to do. Needs no application object, so no display either.
bool answerFromCommandLine(int argc, const char *const *argv);
