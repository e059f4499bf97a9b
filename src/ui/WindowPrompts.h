#pragma once

#include "model/ProjectPrompts.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QProgressDialog;
class QWidget;
QT_END_NAMESPACE

/// Asks and tells by dialogs over a window, which outlives this.
class WindowPrompts : public ProjectPrompts
{
    Q_DECLARE_TR_FUNCTIONS(WindowPrompts)

public:
    explicit WindowPrompts(QWidget &window);
    ~WindowPrompts() override;

    bool askReadOnly(const QString &file, const QString &holder) override;
    MissingTextures askMissingTextures(const QStringList &files) override;
    QString askSearchFolder() override;
    ResizedAnswer askResized(const QStringList &files) override;
    void showSummary(const QStringList &changes) override;
    /// Kept until showTold(), so that many messages make one dialog.
    void tell(const QString &message) override;
    bool showProgress(int done, int total) override;

    /// Another program has changed the project @p file since it was opened. True to replace it.
    bool askReplaceChanged(const QString &file);
    /// What is about to be done while an effect shows something that is not applied.
    enum class AfterEffect { Export, Close };
    enum class EffectAnswer { Apply, GoOn, Cancel };
    /// @p effect is the name of the open one.
    EffectAnswer askOpenEffect(const QString &effect, AfterEffect next);
    /// Normal maps would replace @p files, which are none of this program. True to replace them.
    bool askReplaceForeign(const QStringList &files);
    /// Names the operation whose progress is shown from now on.
    void beginTask(const QString &name, bool canBeCancelled);
    /// Takes the progress away.
    void endTask();
    /// Shows what was told since the last time, if anything.
    void showTold();

private:
    void createProgress(int total);

    QWidget &m_window;
    QStringList m_told;
    QString m_task;
    bool m_canBeCancelled = false;
    QElapsedTimer m_lasting; ///< since the first step of the task
    QPointer<QProgressDialog> m_progress;
};

/// A task for as long as it lives, also when an Error flies.
class PromptedTask
{
public:
    PromptedTask(WindowPrompts &prompts, const QString &name, bool canBeCancelled);
    ~PromptedTask();
    PromptedTask(const PromptedTask &) = delete;
    PromptedTask &operator=(const PromptedTask &) = delete;

private:
    WindowPrompts &m_prompts;
};
