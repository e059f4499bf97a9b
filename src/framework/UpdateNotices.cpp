#include "framework/UpdateNotices.h"

#include "framework/GAction.h"
#include "framework/NoticeBar.h"
#include "framework/UpdateDialog.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QPushButton>

namespace {
using namespace std::chrono_literals;
constexpr auto firstLook = 1min;
constexpr auto furtherLooks = 15min;
} // namespace

UpdateNotices::UpdateNotices(UpdateChecker::Source source, GSettings &settings, QMainWindow &window)
    : m_settings(settings)
    , m_checker(std::move(source), settings)
    , m_window(window)
    , m_checkAction(new GAction(tr("Check for updates..."), this))
{
    m_checkAction->setObjectName(QStringLiteral("checkForUpdates"));
    m_checkAction->setMenuRole(QAction::ApplicationSpecificRole);
    connect(m_checkAction, &QAction::triggered, this, &UpdateNotices::checkNow);
    connect(&m_checker, &UpdateChecker::answered, this, &UpdateNotices::tell);
    connect(&m_timer, &QTimer::timeout, this, &UpdateNotices::look);
    m_timer.start(firstLook);
}

UpdateNotices::~UpdateNotices()
{
    delete m_bar;
    delete m_dialog;
}

void UpdateNotices::look()
{
    m_timer.start(furtherLooks);
    if (m_settings.isQuestionPut())
        m_checker.checkIfDue();
    else
        askUser();
}

void UpdateNotices::askUser()
{
    const QString name = QGuiApplication::applicationDisplayName();
    NoticeBar &bar =
        makeBar(tr("May %1 ask %2 once a day whether there is a newer version? Nothing "
                   "but its name and version goes along.")
                    .arg(name, m_checker.host()));
    connect(&bar, &NoticeBar::appeared, this, [this] { m_settings.setQuestionPut(); });
    connect(bar.addButton(tr("Ask daily")), &QPushButton::clicked, this, [this] {
        m_settings.setAsksDaily(true);
        m_checker.checkIfDue();
    });
    connect(bar.addButton(tr("Don't ask")), &QPushButton::clicked, this, [this] {
        m_settings.setAsksDaily(false);
    });
    bar.showAtRest();
}

void UpdateNotices::checkNow()
{
    dialog().wait();
    dialog().show();
    dialog().raise();
    dialog().activateWindow();
    m_checker.check();
}

void UpdateNotices::tell(const UpdateAnswer &answer)
{
    if (m_dialog && m_dialog->isVisible() && m_dialog->isWaiting()) {
        m_dialog->showAnswer(answer);
        return;
    }
    // Nobody waits for it: only news are worth a line.
    if (!answer.newer || m_settings.isSkipped(answer.newer->version))
        return;
    NoticeBar &bar = makeBar(
        tr("%1 %2 is there.")
            .arg(QGuiApplication::applicationDisplayName(), answer.newer->version.toString()));
    connect(bar.addButton(tr("Details...")), &QPushButton::clicked, this, [this, answer] {
        dialog().showAnswer(answer);
        dialog().show();
    });
    bar.addButton(tr("Later"));
    bar.showAtRest();
}

NoticeBar &UpdateNotices::makeBar(const QString &text)
{
    delete m_bar;
    m_bar = new NoticeBar(text, m_window);
    return *m_bar;
}

UpdateDialog &UpdateNotices::dialog()
{
    if (!m_dialog) {
        m_dialog = new UpdateDialog(m_checker.host(), &m_window);
        connect(m_dialog, &UpdateDialog::skipped, this, [this](const SemanticVersion &version) {
            m_settings.skip(version);
        });
    }
    return *m_dialog;
}
