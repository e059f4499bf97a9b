#pragma once

#include "framework/GMainWindow.h"
#include "model/ProjectController.h"
#include "ui/WindowPrompts.h"

class ExportActions;
class GApplication;
class NormalMapEditor;
class PointedPixelLabel;
class ProjectRecovery;
class SpriteActions;
class SpritesSidebar;
class ToolsSidebar;
class UndoActions;
class ZoomWidget;

/// The program's one window, which works on one project at a time: list and light on the left, the
/// preview in the middle, tools on the right. It places the panels and joins them; what they do is
/// theirs.
class MainWindow : public GMainWindow
{
    Q_OBJECT

public:
    /// @p application outlives the window.
    explicit MainWindow(GApplication &application, QWidget *parent = nullptr);
    ~MainWindow() override;

    Project &project() const { return m_controller.project(); }
    ProjectRecovery &recovery() const { return *m_recovery; }
    /// Opens a project among @p paths, or adds what else they name as sprites.
    void openOrAdd(const QStringList &paths);
    /// The same for what the program was started with, which does not take the place of work that
    /// was recovered from one of @p paths.
    void openNamed(const QStringList &paths);
    /// Keeps what is unsaved for the next start, since nobody can be asked.
    void keepUnsaved();

public Q_SLOTS:
    void showPreferences();

protected:
    void finishEdits() override;
    bool mayClose() override;
    void createDocument() override;
    bool loadDocument(const QString &path) override;
    bool storeDocument(const QString &path) override;
    QString documentPath() const override;
    bool isDocumentModified() const override;
    bool isDocumentReadOnly() const override;
    QString consequenceOfDiscarding() const override;
    QString systemInformation() const override;
    QWidget *documentWidget() const override;

    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void placePanels();
    void createMenus();
    void createEditMenu();
    void createViewMenu();
    void createToolBar();
    void connectPanels();
    void installProject();
    void lockForEffect(bool isOpen);
    void updateActions();
    void tellAboutSaving();

    GApplication &m_application;
    WindowPrompts m_prompts;
    ProjectController m_controller;
    SpritesSidebar *m_sprites;
    NormalMapEditor *m_editor;
    ToolsSidebar *m_tools;
    ZoomWidget *m_zoom;
    PointedPixelLabel *m_pointed;
    SpriteActions *m_spriteActions;
    ExportActions *m_exportActions;
    UndoActions *m_undoActions = nullptr;
    ProjectRecovery *m_recovery;
    GAction *m_feedback = nullptr;
    GAction *m_preferences;
    bool m_hasToldOfLocks = false;
};
