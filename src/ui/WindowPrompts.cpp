#include "ui/WindowPrompts.h"

#include "framework/ListDialog.h"
#include "framework/Proposal.h"
#include "framework/QuotedName.h"
#include "ui/AnchorGrid.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>

namespace {
/// Stays when it has no button to cancel by: the window below must not be used meanwhile.
class ProgressDialog : public QProgressDialog
{
public:
    using QProgressDialog::QProgressDialog;

    void setCancellable(bool isCancellable) { m_isCancellable = isCancellable; }

    void reject() override
    {
        if (m_isCancellable)
            QProgressDialog::reject();
    }

protected:
    void closeEvent(QCloseEvent *event) override
    {
        if (m_isCancellable)
            QProgressDialog::closeEvent(event);
        else
            event->ignore();
    }

private:
    bool m_isCancellable = true;
};
} // namespace

WindowPrompts::WindowPrompts(QWidget &window)
    : m_window(window)
{
}

WindowPrompts::~WindowPrompts()
{
    endTask();
}

bool WindowPrompts::askReadOnly(const QString &file, const QString &holder)
{
    return isAgreedTo(
        {tr("Project in use"),
         tr("%1 is open in %2.").arg(quoted(QFileInfo(file).fileName()), holder),
         tr("You can open it read-only: Save As... keeps your changes under another name."),
         tr("Open read-only")},
        &m_window);
}

bool WindowPrompts::askReplaceChanged(const QString &file)
{
    return isAgreedTo(
        {tr("Project changed on disk"),
         tr("Another program has changed %1 since you opened it.")
             .arg(quoted(QFileInfo(file).fileName())),
         tr("Replacing it loses what the other program wrote; Save As... keeps both."),
         tr("Replace")},
        &m_window);
}

WindowPrompts::EffectAnswer WindowPrompts::askOpenEffect(const QString &effect, AfterEffect next)
{
    const bool isExport = next == AfterEffect::Export;
    QMessageBox box(QMessageBox::Question,
                    tr("Apply the effect?"),
                    tr("Apply the open effect %1?").arg(quoted(effect)),
                    QMessageBox::Cancel,
                    &m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(isExport ? tr("Otherwise the normal maps are written without it.")
                                    : tr("Otherwise it is discarded."));
    // Else it would not get the keys while the effect's own window has them.
    box.setWindowModality(Qt::ApplicationModal);
    auto *apply =
        box.addButton(isExport ? tr("Apply and export") : tr("Apply"), QMessageBox::AcceptRole);
    const auto *goOn = box.addButton(isExport ? tr("Export without it") : tr("Discard"),
                                     QMessageBox::DestructiveRole);
    box.setDefaultButton(apply);
    box.exec();
    if (box.clickedButton() == apply)
        return EffectAnswer::Apply;
    return box.clickedButton() == goOn ? EffectAnswer::GoOn : EffectAnswer::Cancel;
}

bool WindowPrompts::askReplaceForeign(const QStringList &files)
{
    ListDialog dialog({tr("Files in the way"),
                       tr("These files were not written by this program. Normal maps would replace "
                          "them:"),
                       files,
                       {tr("Keep the files"), tr("Replace")}},
                      &m_window);
    return dialog.choose() == 1;
}

ProjectPrompts::MissingTextures WindowPrompts::askMissingTextures(const QStringList &files)
{
    ListDialog dialog(
        {tr("Textures not found"),
         tr("Failed to load following texture images:"),
         files,
         {tr("Search..."), tr("Remove from project"), tr("Continue without texture")}},
        &m_window);
    switch (dialog.choose()) {
    case 0:
        return MissingTextures::Search;
    case 1:
        return MissingTextures::Remove;
    default:
        return MissingTextures::Continue;
    }
}

QString WindowPrompts::askSearchFolder()
{
    return QFileDialog::getExistingDirectory(&m_window, tr("Select search path"));
}

ResizedAnswer WindowPrompts::askResized(const QStringList &files)
{
    ListDialog dialog(
        {tr("Size conflict"),
         tr("Size of texture changed:"),
         files,
         {tr("Anchor surface"), tr("Scale surface"), tr("Clear normal map"), tr("Decide later")}},
        &m_window);
    auto *anchor = new AnchorGrid(&dialog);
    dialog.addBelowList(
        *anchor,
        tr("Anchored, a surface stays at this place, and what is new around it is flat. Scaled, "
           "its relief grows with the sprite."));
    switch (dialog.choose()) {
    case 0:
        return {ResizedAnswer::Action::Anchor, anchor->anchor()};
    case 1:
        return {ResizedAnswer::Action::Scale, {}};
    case 2:
        return {ResizedAnswer::Action::Clear, {}};
    default:
        return {};
    }
}

void WindowPrompts::showSummary(const QStringList &changes)
{
    ListDialog dialog(
        {tr("Summary"), tr("Following changes have been made:"), changes, {tr("Continue")}},
        &m_window);
    dialog.choose();
}

void WindowPrompts::tell(const QString &message)
{
    m_told.append(message);
}

void WindowPrompts::showTold()
{
    if (m_told.isEmpty())
        return;
    const QStringList told = std::exchange(m_told, {});
    ListDialog dialog({tr("Please note"), tr("This is worth knowing:"), told, {tr("Continue")}},
                      &m_window);
    dialog.choose();
}

void WindowPrompts::beginTask(const QString &name, bool canBeCancelled)
{
    endTask();
    m_task = name;
    m_canBeCancelled = canBeCancelled;
}

void WindowPrompts::endTask()
{
    delete m_progress;
    m_task.clear();
    m_lasting.invalidate();
}

// From the first step on: what the task asks before is not its own time.
bool WindowPrompts::showProgress(int done, int total)
{
    constexpr int patience = 300; // milliseconds
    if (!m_lasting.isValid())
        m_lasting.start();
    if (m_lasting.elapsed() < patience)
        return true;
    if (!m_progress)
        createProgress(total);
    m_progress->setValue(done);
    m_progress->findChild<QProgressBar *>()->update(); // which may move without a step
    QCoreApplication::processEvents();                 // of the dialog, which is modal
    return !m_progress->wasCanceled();
}

void WindowPrompts::createProgress(int total)
{
    auto *dialog = new ProgressDialog(
        m_task, m_canBeCancelled ? tr("Cancel") : QString(), 0, total, &m_window);
    dialog->setCancellable(m_canBeCancelled);
    m_progress = dialog;
    m_progress->setWindowTitle(QCoreApplication::applicationName());
    m_progress->setWindowModality(Qt::WindowModal);
    m_progress->setAutoReset(false);
    m_progress->show();
}

PromptedTask::PromptedTask(WindowPrompts &prompts, const QString &name, bool canBeCancelled)
    : m_prompts(prompts)
{
    m_prompts.beginTask(name, canBeCancelled);
}

PromptedTask::~PromptedTask()
{
    m_prompts.endTask();
}
