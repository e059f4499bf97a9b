#pragma once

#include <QObject>
#include <QString>

class GAction;
class NormalMapEditor;
class ProjectController;
class WindowPrompts;
class QWidget;

/// The commands that write images: normal maps of all bodies, and a lit copy of one. Everything
/// that is passed in outlives this.
class ExportActions : public QObject
{
    Q_OBJECT

public:
    ExportActions(ProjectController &controller,
                  WindowPrompts &prompts,
                  NormalMapEditor &editor,
                  QWidget *window);

    GAction &exportNormals() const { return *m_exportNormals; }
    GAction &exportNormalsAs() const { return *m_exportNormalsAs; }
    GAction &exportLitSprite() const { return *m_exportLitSprite; }
    /// Enables what can be done with the project and its selection as they are.
    void update();

private:
    void runExport();
    void exportMaps();
    void runExportAs();
    void runLitExport();
    bool runPublishDialog();
    QString chooseLitPath(const QString &proposal);

    ProjectController &m_controller;
    WindowPrompts &m_prompts;
    NormalMapEditor &m_editor;
    QWidget *m_window;
    GAction *m_exportNormals;
    GAction *m_exportNormalsAs;
    GAction *m_exportLitSprite;
};
