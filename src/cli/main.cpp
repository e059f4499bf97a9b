#include "base/ApplicationName.h"
#include "base/GLogger.h"
#include "base/Resources.h"
#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "imaging/LibraryThreads.h"

#include <QCoreApplication>

#include <clocale>
#include <cstring>
#include <langinfo.h>

namespace {
// Pipelines often run in the C locale, in which the toolkit can't name a file with an umlaut.
void useUtf8()
{
    std::setlocale(LC_CTYPE, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0)
        qputenv("LC_ALL", "C.UTF-8");
}

} // namespace

int main(int argc, char **argv)
{
    useUtf8();
    const QCoreApplication application(argc, argv);
    GLogger::install();
    initialiseResources();
    nameApplication();
    forbidLibraryThreads();
    try {
        return CommandLine().run(argc, argv);
    } catch (const std::bad_alloc &) {
        Console(false).complain(QStringLiteral("There is not enough memory"));
    } catch (const std::exception &error) {
        Console(false).complain(QString::fromLocal8Bit(error.what()));
    }
    return int(ExitCode::Failed);
}
