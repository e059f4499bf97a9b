#include "ui/SpriteActions.h"

#include "base/Error.h"
#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpriteReloading.h"
#include "ui/WindowPrompts.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>

SpriteActions::SpriteActions(ProjectController &controller,
                             WindowPrompts &prompts,
                             ShapeTreeView &list,
                             NormalMapEditor &editor,
                             QWidget *window)
    : QObject(window)
    , m_controller(controller)
    , m_prompts(prompts)
    , m_list(list)
    , m_editor(editor)
    , m_window(window)
    , m_add(new GAction(themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_AddImage.svg")),
                        tr("Add &sprites..."),
                        this))
    , m_remove(new GAction(themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_RemoveImage.svg")),
                           tr("&Remove sprites"),
                           this))
    , m_rename(new GAction(tr("Rename sprite"), this))
    , m_selectAll(
          new GAction(themedIcon(QStringLiteral(":/icons/select_all.svg")), tr("Select all"), this))
    , m_reloading(new SpriteReloading(controller, prompts, editor, this))
{
    m_add->setObjectName(QStringLiteral("addSprites"));
    m_remove->setObjectName(QStringLiteral("removeSprites"));
    m_rename->setObjectName(QStringLiteral("renameSprite"));
    m_selectAll->setObjectName(QStringLiteral("selectAll"));
    m_add->setStatusTip(tr("Add a new sprite"));
    m_remove->setStatusTip(tr("Remove selected sprites"));
    m_remove->setShortcut(QKeySequence(Qt::Key_Delete));
    m_rename->setShortcut(QKeySequence(Qt::Key_F2));
    m_rename->setShortcutContext(Qt::WidgetShortcut);
    m_selectAll->setShortcuts(QKeySequence::SelectAll);
    connect(m_add, &QAction::triggered, this, &SpriteActions::chooseAndAdd);
    connect(m_remove, &QAction::triggered, this, &SpriteActions::remove);
    connect(m_rename, &QAction::triggered, &list, &ShapeTreeView::renameCurrent);
    connect(m_selectAll, &QAction::triggered, this, &SpriteActions::runSelectAll);
    connect(&controller.selection(),
            &ItemSelectionModel::bodySelectionChanged,
            this,
            &SpriteActions::update);
    connect(m_reloading, &SpriteReloading::noticed, this, &SpriteActions::noticed);
    connect(m_reloading, &SpriteReloading::reloaded, this, &SpriteActions::bodiesChanged);
    list.addActions({m_add, m_rename, m_remove});
    update();
}

void SpriteActions::addEditActions(QMenu &menu) const
{
    for (GAction *action : {m_add, m_remove, m_rename, &m_reloading->reloadSprites()})
        menu.addAction(action);
}

void SpriteActions::setProject(Project *project)
{
    m_reloading->setProject(project);
}

void SpriteActions::checkSizes()
{
    m_reloading->askAbout(m_controller.selection().selection().toVector());
}

void SpriteActions::update()
{
    for (GAction *action : {m_add, m_remove, m_selectAll, &m_reloading->reloadSprites()})
        action->setEnabled(!m_isLocked);
    m_rename->setEnabled(!m_isLocked && m_controller.selection().selection().size() == 1);
}

void SpriteActions::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    update();
}

void SpriteActions::chooseAndAdd()
{
    const QStringList files = QFileDialog::getOpenFileNames(m_window,
                                                            tr("Select one or more sprite to open"),
                                                            m_controller.lastSpriteImportPath(),
                                                            tr("Images (*.png *.jpg)"));
    if (!files.isEmpty())
        add(files);
}

void SpriteActions::add(const QStringList &paths)
{
    const int before = m_controller.project().bodies().all().size();
    QString failure;
    try {
        const PromptedTask task(m_prompts, tr("Adding sprites"), true);
        m_controller.addSprites(paths);
    } catch (const Error &error) {
        failure = error.message();
    }
    const int added = m_controller.project().bodies().all().size() - before;
    // The zoom was that of the start screen.
    if (before == 0)
        m_editor.zoomToFit();
    if (failure.isEmpty())
        Q_EMIT noticed(added > 0 ? tr("Sprites added: %1").arg(added) : tr("No sprites added"));
    Q_EMIT bodiesChanged();
    if (!failure.isEmpty())
        showFailure(failure);
    m_prompts.showTold();
}

// A box of some hundred lines would reach beyond the screen.
void SpriteActions::showFailure(const QString &failure)
{
    constexpr int shownLines = 12;
    const QStringList lines = failure.split(QLatin1Char('\n'));
    QMessageBox box(QMessageBox::Warning, tr("Error"), failure, QMessageBox::Ok, m_window);
    box.setTextFormat(Qt::PlainText);
    if (const int more = lines.size() - shownLines; more > 0) {
        box.setText(lines.mid(0, shownLines).join(QLatin1Char('\n')) + QLatin1Char('\n') +
                    tr("and %1 more").arg(more));
        box.setDetailedText(failure);
    }
    box.exec();
}

void SpriteActions::remove()
{
    m_controller.removeBodies(m_controller.selection().selection().toVector());
    Q_EMIT bodiesChanged();
}

void SpriteActions::runSelectAll()
{
    if (!m_list.hasFocus()) {
        m_editor.selectAllPixels();
        return;
    }
    const auto bodies = m_controller.project().bodies().all();
    m_controller.selection().setSelection({bodies.begin(), bodies.end()});
}
