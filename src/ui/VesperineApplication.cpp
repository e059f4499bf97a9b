#include "ui/VesperineApplication.h"

#include "base/GLogger.h"
#include "base/GSettings.h"
#include "preview/GraphicsCheck.h"
#include "ui/MainWindow.h"
#include "ui/ProjectRecovery.h"

#include <QDesktopServices>
#include <QIcon>
#include <QMessageBox>
#include <QTimer>
#include <QUrl>

#include <cstdio>

void VesperineApplication::prepare()
{
    GApplication::prepare();
    prepareGraphics();
}

VesperineApplication::VesperineApplication(int &argc, char **argv)
    : GApplication(argc, argv)
    , m_isReady(setUp())
{
}

VesperineApplication::~VesperineApplication()
{
    QDesktopServices::unsetUrlHandler(QStringLiteral("ve"));
}

bool VesperineApplication::setUp()
{
    if (const QString problem = checkGraphics(); !problem.isEmpty()) {
        QMessageBox box(QMessageBox::Critical, tr("Error"), problem);
        box.addButton(tr("Quit"), QMessageBox::RejectRole);
        box.exec();
        QTimer::singleShot(0, this, [] { exit(1); });
        return false;
    }
    setWindowIcon(QIcon(QStringLiteral(":/Vesperine.png")));
    QDesktopServices::setUrlHandler(QStringLiteral("ve"), this, "handleInternalURLs");
    connect(this, &GApplication::openRequested, this, [this](const QString &path) {
        if (m_window)
            m_window->openOrAdd({path});
        else
            m_documents.append(path);
    });
    QTimer::singleShot(0, this, &VesperineApplication::launch);
    return true;
}

int VesperineApplication::run()
{
    GLogger::setVerbosity(GLogger::warnings);
    const QStringList given = arguments().mid(1);
    for (const QString &argument : given) {
        if (argument == QLatin1String("-v")) {
            GLogger::setVerbosity(GLogger::information);
        } else if (argument == QLatin1String("-vv")) {
            GLogger::setVerbosity(GLogger::debugging);
        } else if (argument == QLatin1String("-vvv")) {
            GLogger::setVerbosity(GLogger::everything);
        } else if (argument == QLatin1String("--flushsettings")) {
            std::puts("Flushing all settings");
            settings().clear();
            settings().flush();
            return 0;
        } else if (!argument.startsWith(QLatin1Char('-'))) {
            m_documents.append(argument);
        } else {
            std::fprintf(stderr, "Unknown option %s\n", qUtf8Printable(argument));
        }
    }
    return exec();
}

void VesperineApplication::launch()
{
    m_window = std::make_unique<MainWindow>(*this);
    m_window->show();
    m_window->recovery().offer();
    if (!m_documents.isEmpty())
        m_window->openOrAdd(std::exchange(m_documents, {}));
}

void VesperineApplication::handleInternalURLs(const QUrl &url)
{
    if (m_window && url.toString() == QLatin1String("ve://preferences"))
        m_window->showPreferences();
}
