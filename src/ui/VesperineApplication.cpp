#include "ui/VesperineApplication.h"

#include "base/BuildOptions.h"
#include "base/GLogger.h"
#include "base/GSettings.h"
#include "framework/CrashHandler.h"
#include "framework/CrashReportDialog.h"
#include "framework/UpdateNotices.h"
#include "imaging/PoolThread.h"
#include "preview/GraphicsCheck.h"
#include "ui/EditorOptions.h"
#include "ui/MainWindow.h"
#include "ui/ProjectFileTypes.h"
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
    // By this name a desktop finds icon and entry of the window.
    setDesktopFileName(QStringLiteral("org.vesperine.editor"));
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
    setPoolThreadPrologue(CrashHandler::prepareThread);
    QString graphics;
    const QString problem = checkGraphics(&graphics);
    CrashHandler::setGraphics(graphics.toUtf8());
    if (!problem.isEmpty()) {
        QMessageBox box(QMessageBox::Critical, tr("Error"), problem);
        box.addButton(tr("Quit"), QMessageBox::RejectRole);
        box.exec();
        QTimer::singleShot(0, this, [] { exit(1); });
        return false;
    }
    for (const FileAssociation &type : projectFileTypes(applicationDirPath()))
        registerAssociation(type);
    setWindowIcon(QIcon(QStringLiteral(":/Vesperine.png")));
    QDesktopServices::setUrlHandler(QStringLiteral("ve"), this, "handleInternalURLs");
    connect(this, &GApplication::openRequested, this, [this](const QString &path) {
        if (m_isLaunched)
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
        if (const EditorOption *option = findEditorOption(argument)) {
            if (option->effect == EditorOption::Effect::FlushSettings) {
                std::puts("Flushing all settings");
                settings().clear();
                settings().flush();
                return 0;
            }
            GLogger::setVerbosity(option->verbosity);
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
    endWhenAsked();
    CrashReportDialog::showLast(m_window.get());
    m_window->recovery().offer();
    m_isLaunched = true;
    if (!m_documents.isEmpty())
        m_window->openNamed(std::exchange(m_documents, {}));
    if (const QUrl feed = updateFeedAddress(); !feed.isEmpty()) {
        m_updates = std::make_unique<UpdateNotices>(
            UpdateChecker::Source{.feed = feed}, settings(), *m_window);
        m_window->addHelpAction(m_updates->checkAction());
    }
}

// By a signal, or with the desktop's session, whose questions may remain without an answer.
void VesperineApplication::endWhenAsked()
{
    m_endings = std::make_unique<TerminationSignals>();
    connect(m_endings.get(), &TerminationSignals::received, this, [this](int number) {
        constexpr int firstSignal = 128; // as shells tell it
        m_window->keepUnsaved();
        exit(firstSignal + number);
    });
    connect(this, &QGuiApplication::commitDataRequest, this, [this] { m_window->keepUnsaved(); });
}

void VesperineApplication::handleInternalURLs(const QUrl &url)
{
    if (m_window && url.toString() == QLatin1String("ve://preferences"))
        m_window->showPreferences();
}
