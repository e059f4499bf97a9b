#pragma once

#include "framework/GApplication.h"
#include "framework/TerminationSignals.h"

#include <QPointer>

class MainWindow;
class QUrl;
class UpdateNotices;

/// The editor as a program: start-up, command line, internal links. Owns the window
/// and what asks for updates.
class VesperineApplication : public GApplication
{
    Q_OBJECT

public:
    /// What has to be set before the application object is made.
    static void prepare();

    VesperineApplication(int &argc, char **argv);
    ~VesperineApplication() override;

    /// Follows the command line and runs until the window is closed; the exit status.
    int run();

public Q_SLOTS:
    /// Opens what "ve:" links name: "ve://preferences"; others are ignored.
    void handleInternalURLs(const QUrl &url);

private:
    bool setUp();
    void launch();
    void endWhenAsked();

    QStringList m_documents;
    std::unique_ptr<TerminationSignals> m_endings;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<UpdateNotices> m_updates; ///< null in a build without a feed
    bool m_isReady = false;
    bool m_isLaunched = false; ///< and asks nothing any more
};
