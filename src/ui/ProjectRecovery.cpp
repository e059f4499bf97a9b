#include "ui/ProjectRecovery.h"

#include "base/DataFolder.h"
#include "base/Error.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "ui/RecoveryDialog.h"
#include "ui/RecoveryInterval.h"
#include "ui/WindowPrompts.h"

#include <QMessageBox>

ProjectRecovery::ProjectRecovery(ProjectController &controller,
                                 WindowPrompts &prompts,
                                 GSettings &settings,
                                 QWidget *window)
    : QObject(window)
    , m_controller(controller)
    , m_prompts(prompts)
    , m_settings(settings)
    , m_window(window)
    , m_store(root())
    , m_writer(m_store)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ProjectRecovery::takeSnapshot);
    connect(&m_writer, &RecoveryWriter::written, this, [this] { m_hasFailed = false; });
    connect(&m_writer, &RecoveryWriter::failed, this, &ProjectRecovery::tellFailure);
}

QString ProjectRecovery::root()
{
    return dataFolder() + QStringLiteral("/recovery");
}

void ProjectRecovery::setProject(Project *project)
{
    m_timer.stop();
    m_writer.giveUp();
    if (m_project)
        disconnect(&m_project->undoStack(), nullptr, this, nullptr);
    m_project = project;
    if (!project)
        return;
    const GUndoStack *stack = &project->undoStack();
    connect(stack, &GUndoStack::indexChanged, this, &ProjectRecovery::awaitSnapshot);
    connect(stack, &GUndoStack::saved, this, &ProjectRecovery::forget);
}

void ProjectRecovery::forget()
{
    m_timer.stop();
    m_writer.drop();
}

// Only what has changed needs a timer: an idle program sleeps.
void ProjectRecovery::awaitSnapshot()
{
    if (!m_timer.isActive())
        m_timer.start(RecoveryInterval::seconds(m_settings) * 1000);
}

void ProjectRecovery::takeSnapshot()
{
    constexpr int soon = 1000; // milliseconds
    if (!m_project || !m_project->undoStack().isModified())
        return;
    if (m_writer.isBusy() || m_project->undoStack().isUnsettled())
        m_timer.start(soon);
    else
        m_writer.write(*m_project, m_controller.fileStamp());
}

void ProjectRecovery::keepNow()
{
    if (!m_project)
        return;
    if (!m_project->undoStack().isModified()) {
        forget();
        return;
    }
    m_writer.finish();
    m_writer.write(*m_project, m_controller.fileStamp());
    m_writer.finish();
}

void ProjectRecovery::tellFailure(const QString &reason)
{
    qWarning("No recovery snapshot: %s", qUtf8Printable(reason));
    if (!m_hasFailed)
        Q_EMIT noticed(
            tr("Unsaved work can't be kept for recovery: %1. Better save now.").arg(reason));
    m_hasFailed = true;
    awaitSnapshot();
}

void ProjectRecovery::offer()
{
    auto entries = m_store.takeLeftOvers(QDateTime::currentDateTimeUtc());
    if (entries.empty())
        return;
    RecoveryDialog dialog(entries, m_window);
    while (RecoveryEntry *chosen = dialog.choose()) {
        if (recover(*chosen))
            return;
    }
}

bool ProjectRecovery::recover(RecoveryEntry &entry)
{
    // A crash from here on is not repeated by itself.
    entry.folder->setMark(RecoveryFolder::Mark::Tried);
    std::shared_ptr<Project> project;
    QStringList damagedBodies;
    try {
        project = RecoveryStore::read(entry, &damagedBodies);
    } catch (const Error &error) {
        entry.folder->setMark(RecoveryFolder::Mark::Tried, false);
        // The user wants it back, and has days to try again.
        entry.folder->setMark(RecoveryFolder::Mark::GivenUp, false);
        entry.folder->setMark(RecoveryFolder::Mark::Shown, false);
        QMessageBox::critical(
            m_window,
            tr("Error"),
            tr("%1\n\nThe snapshot is kept in '%2'.").arg(error.message(), entry.folder->path()));
        return false;
    }
    m_controller.installRecovered(project, damagedBodies, entry.index->projectFile);
    m_writer.adopt(std::move(entry), *project);
    // Once it has been drawn, too.
    constexpr int enough = 2000; // milliseconds
    QTimer::singleShot(enough, &m_writer, &RecoveryWriter::confirmAdopted);
    m_prompts.showTold();
    m_controller.resolveTextures();
    m_prompts.showTold();
    return true;
}
