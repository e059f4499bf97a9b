#pragma once

#include "model/RecoveryStore.h"
#include "model/RecoveryWriter.h"

#include <QObject>
#include <QTimer>

class GSettings;
class Project;
class ProjectController;
class WindowPrompts;

/// Keeps a snapshot of the window's project as long as it has unsaved changes, and brings back what
/// programs that did not end well have left. All that it is given outlives its last event.
class ProjectRecovery : public QObject
{
    Q_OBJECT

public:
    ProjectRecovery(ProjectController &controller,
                    WindowPrompts &prompts,
                    GSettings &settings,
                    QWidget *window);

    /// The folder of all snapshots.
    static QString root();

    /// Works for @p project from now on, for none with null: the former one was saved or given up.
    void setProject(Project *project);
    /// Lets the user choose what to do with what is left of other runs, if anything.
    void offer();
    /// Whether the project was recovered and not saved since.
    bool hasRecovered() const { return m_writer.hasAdopted(); }
    /// Starts to write a snapshot, where there is something new to keep.
    void takeSnapshot();
    /// The program is about to end without asking: what is unsaved is kept before this returns.
    void keepNow();
    const RecoveryWriter &writer() const { return m_writer; }

Q_SIGNALS:
    /// A line for the status bar.
    void noticed(const QString &message);

private:
    void awaitSnapshot();
    void forget();
    bool recover(RecoveryEntry &entry);
    void tellFailure(const QString &reason);

    ProjectController &m_controller;
    WindowPrompts &m_prompts;
    GSettings &m_settings;
    QWidget *m_window;
    RecoveryStore m_store;
    RecoveryWriter m_writer;
    QTimer m_timer;
    Project *m_project = nullptr;
    bool m_hasFailed = false;
};
