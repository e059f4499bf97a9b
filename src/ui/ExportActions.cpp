#include "ui/ExportActions.h"

#include "base/Error.h"
#include "base/PlainText.h"
#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"
#include "ui/NormalMapEditor.h"
#include "ui/PublishDialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace {
QString litSpriteKey()
{
    return QStringLiteral("litSprite");
}

QIcon normalsIcon()
{
    return themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_PublishNormalmap.svg"));
}

// Beside the sprite, or in the folder of the last time.
QString proposedLitPath(const GFileName &sprite, const QString &lastFolder)
{
    const QFileInfo file(sprite.path());
    const QString folder = lastFolder.isEmpty() ? file.path() : lastFolder;
    return folder + QLatin1Char('/') + file.completeBaseName() + QStringLiteral("_lit.") +
           file.suffix();
}
} // namespace

ExportActions::ExportActions(ProjectController &controller,
                             WindowPrompts &prompts,
                             NormalMapEditor &editor,
                             QWidget *window)
    : QObject(window)
    , m_controller(controller)
    , m_prompts(prompts)
    , m_editor(editor)
    , m_window(window)
    , m_exportNormals(new GAction(normalsIcon(), tr("&Export normals"), this))
    , m_exportNormalsAs(new GAction(normalsIcon(), tr("Export normals as..."), this))
    , m_exportLitSprite(
          new GAction(themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_PublishLitSprite.svg")),
                      tr("Export &lit sprite"),
                      this))
{
    m_exportNormals->setObjectName(QStringLiteral("exportNormals"));
    m_exportNormalsAs->setObjectName(QStringLiteral("exportNormalsAs"));
    m_exportLitSprite->setObjectName(QStringLiteral("exportLitSprite"));
    m_exportNormals->setStatusTip(tr("Export normal maps"));
    m_exportNormals->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
    m_exportNormalsAs->setStatusTip(tr("Export normal maps..."));
    m_exportNormalsAs->setIconText(m_exportNormalsAs->text());
    m_exportLitSprite->setStatusTip(tr("Export lit sprite"));
    m_exportLitSprite->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    connect(m_exportNormals, &QAction::triggered, this, &ExportActions::runExport);
    connect(m_exportNormalsAs, &QAction::triggered, this, &ExportActions::runExportAs);
    connect(m_exportLitSprite, &QAction::triggered, this, &ExportActions::runLitExport);
    connect(&controller.selection(),
            &ItemSelectionModel::bodySelectionChanged,
            this,
            &ExportActions::update);
    update();
}

void ExportActions::update()
{
    const bool hasBodies = !m_controller.project().bodies().all().isEmpty();
    m_exportNormals->setEnabled(hasBodies);
    m_exportNormalsAs->setEnabled(hasBodies);
    m_exportLitSprite->setEnabled(m_controller.selection().selection().size() == 1);
}

bool ExportActions::runPublishDialog()
{
    return PublishDialog(m_window).run(m_controller.project());
}

void ExportActions::runExportAs()
{
    if (runPublishDialog() && m_editor.settleEffect(WindowPrompts::AfterEffect::Export))
        exportMaps();
}

void ExportActions::runExport()
{
    const Project &project = m_controller.project();
    if (project.publishDirectory().value().isEmpty() &&
        project.publishNormalmapPostfix().value().isEmpty() && !runPublishDialog())
        return;
    // Last, as it may apply the effect: whoever cancels the settings exports nothing.
    if (m_editor.settleEffect(WindowPrompts::AfterEffect::Export))
        exportMaps();
}

void ExportActions::exportMaps()
{
    const Project &project = m_controller.project();
    try {
        const QStringList foreign = m_controller.foreignMaps();
        if (!foreign.isEmpty() && !m_prompts.askReplaceForeign(foreign))
            return;
        const PromptedTask task(m_prompts, tr("Exporting normal maps"), true);
        using Foreign = ProjectController::Foreign;
        if (!m_controller.saveNormalMaps(foreign.isEmpty() ? Foreign::Refuse : Foreign::Replace))
            return;
    } catch (const Error &error) {
        QMessageBox::warning(m_window, tr("Error"), error.message());
        return;
    }
    const QString directory = project.publishDirectory().value().path();
    const int count = project.bodies().all().size();
    QMessageBox box(QMessageBox::Information,
                    QString(),
                    tr("Exported %1 normal maps", nullptr, count).arg(count),
                    QMessageBox::Ok,
                    m_window);
    box.setInformativeText(directory.isEmpty() ? tr("to sprite directory")
                                               : tr("to %1").arg(shownText(directory)));
    box.exec();
}

QString ExportActions::chooseLitPath(const QString &proposal)
{
    QFileDialog dialog(
        m_window, tr("Save lit sprite"), proposal, tr("Images (*.png *.jpg *.jpeg)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(proposal);
    // Of a name that is typed without one; the dialog asks about the file that is written then.
    const QString suffix = QFileInfo(proposal).suffix();
    dialog.setDefaultSuffix(suffix.isEmpty() ? QStringLiteral("png") : suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void ExportActions::runLitExport()
{
    const auto selected = m_controller.selection().selection();
    if (selected.size() != 1)
        return;
    const GFileName sprite = selected.first()->sprite().filename().value();
    const QString path =
        chooseLitPath(proposedLitPath(sprite, m_controller.imagePath(litSpriteKey())));
    if (path.isEmpty())
        return;
    // Beside its sprite is where a lit copy goes unless the user has another place for them.
    const QString folder = QFileInfo(path).absolutePath();
    const bool isBeside = folder == QFileInfo(sprite.path()).absolutePath();
    m_controller.setImagePath(litSpriteKey(), isBeside ? QString() : folder);
    const QImage image = m_editor.litImage(*selected.first());
    try {
        if (!image.isNull() && m_controller.writeImage(image, path))
            return;
    } catch (const Error &error) {
        QMessageBox::warning(m_window, tr("Error"), error.message());
        return;
    }
    QMessageBox::warning(m_window,
                         tr("Error"),
                         tr("Export to '") + shownText(path) + tr("' failed!"),
                         QMessageBox::Close);
}
