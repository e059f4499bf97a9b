#include "ui/MainWindow.h"

#include "base/Error.h"
#include "base/PlainText.h"
#include "framework/GAction.h"
#include "framework/GApplication.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"
#include "preview/GraphicsCheck.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/ZoomWidget.h"
#include "tools/PaintTool.h"
#include "tools/effects/Filter.h"
#include "ui/DroppedPaths.h"
#include "ui/EditorTools.h"
#include "ui/ExportActions.h"
#include "ui/FeedbackAction.h"
#include "ui/NormalMapEditor.h"
#include "ui/PointedPixelLabel.h"
#include "ui/PreferencesDialog.h"
#include "ui/ProjectRecovery.h"
#include "ui/SampleAction.h"
#include "ui/ShapeTreeView.h"
#include "ui/SpriteActions.h"
#include "ui/SpritesSidebar.h"
#include "ui/ToolsSidebar.h"
#include "ui/UndoActions.h"

#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>

#include <algorithm>
#include <utility>

namespace {
DocumentType projectType()
{
    return {MainWindow::tr("Vesperine projects (*.vep *.vex)"),
            MainWindow::tr("Vesperine projects (*.vep)"),
            QStringLiteral("vep"),
            MainWindow::tr("Untitled")};
}

GMainWindow::ApplicationTexts applicationTexts()
{
    return {MainWindow::tr("Gives flat sprites a surface that a game can light."),
            MainWindow::tr("MIT licence. Made with Qt, OpenCV and OpenGL."),
            QStringLiteral(":/guide/index.html")};
}

QWidget *makeSpacer(QWidget *parent)
{
    auto *spacer = new QWidget(parent);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return spacer;
}
} // namespace

MainWindow::MainWindow(GApplication &application, QWidget *parent)
    : GMainWindow(application.settings(), projectType(), parent)
    , m_application(application)
    , m_prompts(*this)
    , m_controller(application.settings(), m_prompts)
    , m_sprites(new SpritesSidebar(m_controller.selection(), this))
    , m_editor(new NormalMapEditor(m_controller.selection(), m_prompts, this))
    , m_tools(new ToolsSidebar(m_controller.selection(),
                               application.settings(),
                               makeTools(application.settings()),
                               makeEffects(application.settings()),
                               this))
    , m_zoom(new ZoomWidget(this))
    , m_pointed(new PointedPixelLabel(this))
    , m_spriteActions(
          new SpriteActions(m_controller, m_prompts, m_sprites->list(), *m_editor, this))
    , m_exportActions(new ExportActions(m_controller, m_prompts, *m_editor, this))
    , m_recovery(new ProjectRecovery(m_controller, m_prompts, application.settings(), this))
    , m_preferences(new GAction(
          themedIcon(QStringLiteral(":/icons/preferences.svg")), tr("Preferences..."), this))
{
    setAcceptDrops(true);
    placePanels();
    createMenus();
    createToolBar();
    connectPanels();
    constexpr QSize startSize(1024, 700);
    resize(startSize * uiScaleFactor());
    restoreLayout();
    // Else it were with the list, which takes letters for names.
    m_editor->view().setFocus();
    m_controller.setInstalled([this] { installProject(); });
    m_controller.createProject();
}

MainWindow::~MainWindow()
{
    m_editor->discardEffect();
    // The panels borrow the controller's project and selection, which would go before them.
    m_controller.setInstalled({});
    disconnect(&project().undoStack(), nullptr, this, nullptr);
    delete takeCentralWidget();
}

void MainWindow::placePanels()
{
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("panels"));
    splitter->setChildrenCollapsible(false);
    splitter->setStyleSheet(QStringLiteral("QSplitter { width: 2px; }"
                                           "QSplitter::handle { background: palette(shadow); }"));
    splitter->addWidget(m_sprites);
    splitter->addWidget(m_editor);
    splitter->addWidget(m_tools);
    setCentralWidget(splitter);
    m_editor->setToolsSidebar(*m_tools);
    m_editor->setZoomWidget(*m_zoom);

    statusBar()->setStyleSheet(QStringLiteral(
        "QStatusBar, QLabel { color: #202024; }"
        "QStatusBar { border-top: 1px solid palette(shadow); background: #dddddd; };"));
    statusBar()->addPermanentWidget(m_pointed);
    statusBar()->addPermanentWidget(m_zoom);
}

void MainWindow::createMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    const std::pair<GAction &, QString> icons[] = {
        {newAction(), QStringLiteral(":/icons/new.svg")},
        {openAction(), QStringLiteral(":/icons/open.svg")},
        {saveAction(), QStringLiteral(":/icons/save.svg")},
        {saveAsAction(), QStringLiteral(":/icons/save_as.svg")},
        {manualAction(), QStringLiteral(":/icons/help.svg")}};
    for (const auto &[action, icon] : icons)
        action.setIcon(themedIcon(icon));
    addDocumentActions(*file);
    file->addSeparator();
    file->addAction(&m_exportActions->exportNormals());
    file->addAction(&m_exportActions->exportNormalsAs());
    file->addAction(&m_exportActions->exportLitSprite());
    file->addSeparator();
    addClosingActions(*file);
    createEditMenu();
    QMenu *draw = menuBar()->addMenu(tr("&Draw"));
    m_tools->addToolActions(*draw);
    draw->addSeparator();
    draw->addAction(&m_spriteActions->selectAll());
    m_editor->addDrawActions(*draw);
    createViewMenu();
    menuBar()->addMenu(createWindowMenu({m_sprites, m_tools}));
    menuBar()->addMenu(createHelpMenu(applicationTexts()));
    addSampleAction(*this, [this](const QString &path) { openOrAdd({path}); });
    m_feedback =
        &addFeedbackAction(*this, m_application.settings(), [this] { return systemInformation(); });
    setGestures(editorGestures());
}

void MainWindow::createEditMenu()
{
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    m_undoActions = new UndoActions(*edit, this);
    edit->addSeparator();
    m_spriteActions->addEditActions(*edit);
    edit->addSeparator();
    m_tools->addEditActions(*edit);
    edit->addSeparator();
    edit->addAction(m_preferences);
    m_preferences->setObjectName(QStringLiteral("preferences"));
    m_preferences->setShortcut(QKeySequence(QStringLiteral("Ctrl+,")));
    m_preferences->setMenuRole(QAction::PreferencesRole);
    connect(m_preferences, &QAction::triggered, this, &MainWindow::showPreferences);
}

void MainWindow::createViewMenu()
{
    QMenu *view = menuBar()->addMenu(tr("&View"));
    m_sprites->addViewActions(*view);
    view->addSeparator();
    const auto zoomActions = m_zoom->zoomActions();
    for (GAction *action : zoomActions)
        view->addAction(action);
}

void MainWindow::createToolBar()
{
    QToolBar *bar = addToolBar(tr("Toolbar"));
    bar->setObjectName(QStringLiteral("toolbar"));
    bar->setMovable(false);
    bar->addActions({&openAction(), &saveAction()});
    bar->addSeparator();
    bar->addAction(&m_spriteActions->addSprites());
    bar->addAction(&m_spriteActions->removeSprites());
    bar->addSeparator();
    bar->addActions({&m_undoActions->undoButton(), &m_undoActions->redoButton()});
    bar->addSeparator();
    bar->addAction(&m_exportActions->exportNormals());
    bar->addAction(&m_exportActions->exportLitSprite());
    bar->addWidget(makeSpacer(bar));
    bar->addAction(&manualAction());
    bar->addAction(m_feedback);
}

void MainWindow::connectPanels()
{
    connect(
        m_sprites, &SpritesSidebar::displayModeChanged, m_editor, &NormalMapEditor::setDisplayMode);
    connect(m_sprites,
            &SpritesSidebar::autoRotateLightToggled,
            m_editor,
            &NormalMapEditor::setAutoRotateLight);
    connect(m_sprites,
            &SpritesSidebar::textureOverlayChanged,
            m_editor,
            &NormalMapEditor::setTextureOverlay);
    connect(m_sprites, &SpritesSidebar::imageChosen, m_spriteActions, &SpriteActions::checkSizes);
    connect(&m_sprites->list(), &ShapeTreeView::pathsDropped, this, &MainWindow::openOrAdd);
    m_undoActions->setTool(m_tools->activeTool());
    connect(m_tools, &ToolsSidebar::activeToolChanged, m_undoActions, &UndoActions::setTool);
    connect(&m_sprites->list(),
            &ShapeTreeView::thumbnailDoubleClicked,
            m_editor,
            &NormalMapEditor::zoomToSelection);
    connect(m_editor, &NormalMapEditor::pathsDropped, this, &MainWindow::openOrAdd);
    connect(m_editor, &NormalMapEditor::effectOpenChanged, this, &MainWindow::lockForEffect);
    connect(
        m_editor, &NormalMapEditor::pointedPixelChanged, m_pointed, &PointedPixelLabel::showPixel);
    const auto show = [this](const QString &message) {
        statusBar()->showMessage(shownText(message));
    };
    connect(m_editor, &NormalMapEditor::noticed, this, show);
    connect(m_spriteActions, &SpriteActions::noticed, this, show);
    connect(m_recovery, &ProjectRecovery::noticed, this, show);
    connect(m_spriteActions, &SpriteActions::bodiesChanged, this, &MainWindow::updateActions);
}

// Called while the former project still lives: every panel lets go of it here.
void MainWindow::installProject()
{
    m_controller.loadTextures();
    Project &project = m_controller.project();
    m_sprites->setProject(&project);
    m_editor->setProject(&project);
    m_spriteActions->setProject(&project);
    m_undoActions->setStack(project.undoStack());
    m_recovery->setProject(&project);
    m_tools->reloadTools();
    connect(&project.undoStack(), &GUndoStack::indexChanged, this, [this] {
        updateTitle();
        updateActions();
    });
    connect(&project.undoStack(), &GUndoStack::cleanChanged, this, [this] { updateTitle(); });
    updateActions();
    updateTitle();
}

void MainWindow::updateActions()
{
    m_exportActions->update();
    m_spriteActions->update();
    m_tools->updateActions();
}

// What the effect works on stays as it is, and what it makes is the next undo step.
void MainWindow::lockForEffect(bool isOpen)
{
    setReplaceable(!isOpen);
    m_undoActions->setLocked(isOpen);
    m_spriteActions->setLocked(isOpen);
    m_sprites->setSpritesLocked(isOpen);
}

void MainWindow::finishEdits()
{
    m_editor->finishGesture();
}

// What is to be discarded goes once the window does: a question that follows may keep it open.
bool MainWindow::mayClose()
{
    return m_editor->settleEffect(WindowPrompts::AfterEffect::Close);
}

void MainWindow::createDocument()
{
    m_controller.createProject();
}

bool MainWindow::loadDocument(const QString &path)
{
    try {
        if (!m_controller.openProject(path, ProjectController::Lock::OnOpening))
            return false;
    } catch (const Error &error) {
        QMessageBox::critical(this, tr("Error"), error.message());
        return false;
    }
    m_prompts.showTold();
    const PromptedTask task(m_prompts, tr("Fitting surfaces"), false);
    m_controller.resolveTextures();
    m_prompts.showTold();
    updateActions();
    return true;
}

bool MainWindow::storeDocument(const QString &path)
{
    if (path.endsWith(QLatin1String(".vex"))) {
        QMessageBox::information(
            this,
            tr("File format change"),
            tr("'.vex' file format is no longer supported, please use '.vep' instead"));
        return saveAs();
    }
    const GFileName file(path);
    if (m_controller.isChangedOnDisk(file) && !m_prompts.askReplaceChanged(path))
        return false;
    try {
        const PromptedTask task(m_prompts, tr("Saving"), false);
        m_controller.saveAs(file, ProjectController::Changed::Replace);
    } catch (const Error &error) {
        QMessageBox::critical(this, tr("Error"), error.message());
        return false;
    }
    tellAboutSaving();
    return true;
}

void MainWindow::tellAboutSaving()
{
    constexpr int longEnough = 10000; // milliseconds; soon the effect is applied, too
    if (m_editor->hasOpenEffect())
        statusBar()->showMessage(
            tr("Saved without the open effect. Apply it and save again to keep it."), longEnough);
    else if (!m_controller.isLockKept() && !std::exchange(m_hasToldOfLocks, true))
        statusBar()->showMessage(tr("Saved without a lock: open the project in one program only."),
                                 longEnough);
}

QString MainWindow::documentPath() const
{
    return m_controller.project().filename().value().path();
}

bool MainWindow::isDocumentModified() const
{
    return m_controller.project().undoStack().isModified();
}

bool MainWindow::isDocumentReadOnly() const
{
    return m_controller.isReadOnly();
}

QString MainWindow::consequenceOfDiscarding() const
{
    return m_recovery->hasRecovered() ? tr("This work was recovered. Without saving, the next "
                                           "start offers it for the last time.")
                                      : GMainWindow::consequenceOfDiscarding();
}

QString MainWindow::systemInformation() const
{
    return graphicsInformation();
}

QWidget *MainWindow::documentWidget() const
{
    return &m_editor->view();
}

// Drops and the desktop's requests get past a dialog, whose answer is for the project that it
// found.
void MainWindow::openOrAdd(const QStringList &paths)
{
    const bool isAsking = QApplication::activeModalWidget();
    if (isAsking || m_editor->hasOpenEffect()) {
        statusBar()->showMessage(isAsking ? tr("Answer the open question first.")
                                          : tr("Apply or discard the effect first."));
        return;
    }
    for (const QString &path : paths) {
        if (isProjectFile(path)) {
            openPath(path);
            return;
        }
    }
    if (!paths.isEmpty())
        m_spriteActions->add(paths);
}

void MainWindow::openNamed(const QStringList &paths)
{
    const auto isShown = [file = project().filename().value().canonicalPath()](const auto &path) {
        return GFileName(path).canonicalPath() == file;
    };
    if (!m_recovery->hasRecovered() || std::none_of(paths.begin(), paths.end(), isShown))
        openOrAdd(paths);
}

void MainWindow::keepUnsaved()
{
    finishEdits();
    m_recovery->keepNow();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    GMainWindow::closeEvent(event);
    if (!event->isAccepted())
        return;
    m_editor->discardEffect();
    m_recovery->setProject(nullptr);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedPaths(*event->mimeData()).isEmpty())
        acceptCopy(*event);
}

void MainWindow::dropEvent(QDropEvent *event)
{
    acceptCopy(*event);
    openOrAdd(droppedPaths(*event->mimeData()));
}

void MainWindow::showPreferences()
{
    PreferencesDialog(m_application, this).exec();
    m_tools->reloadTools();
}
