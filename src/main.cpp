#include "base/GLogger.h"
#include "base/Resources.h"
#include "framework/CrashLog.h"
#include "ui/EditorOptions.h"
#include "ui/VesperineApplication.h"

#include <cstdio>

int main(int argc, char **argv)
{
    GLogger::setVerbosity(GLogger::everything);
    GLogger::install();
    initialiseResources();
    VesperineApplication::prepare();
    if (answerFromCommandLine(argc, argv))
        return 0;
    CrashLog::start();
    // The application object would abort without a display.
    if (const QString problem = GApplication::missingDisplay(argc, argv); !problem.isEmpty()) {
        std::fprintf(stderr, "%s vesperine-cli works without one.\n", qPrintable(problem));
        return 1;
    }
    VesperineApplication application(argc, argv);
    return application.run();
}
