#pragma once

#include <QMainWindow>

class GAction;
class GSettings;
class QMenu;

/// The window of an application that works on one document at a time: its document actions, its
/// title and its geometry, the menus that every application has. What a document is the derived
/// window knows.
class GMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    struct DocumentType
    {
        QString openFilter;    ///< such as "Vesperine projects (*.vep *.vex)"
        QString saveFilter;    ///< such as "Vesperine projects (*.vep)"
        QString suffix;        ///< added to names without one, without a dot
        QString newName;       ///< the title of what was never saved, such as "Untitled"
    };

    /// @p settings outlive the window.
    GMainWindow(GSettings &settings, const DocumentType &type, QWidget *parent = nullptr);
    ~GMainWindow() override;

    /// Opens @p path after asking for unsaved changes; false when it was cancelled or refused.
    bool openPath(const QString &path);

public Q_SLOTS:
    void newDocument();
    void chooseAndOpen();
    /// False when it was cancelled or failed.
    bool save();
    bool saveAs();

protected:
    // Called after the user has agreed; each shows its own errors.
    virtual void createDocument() = 0;
    virtual bool loadDocument(const QString &path) = 0;
    virtual bool storeDocument(const QString &path) = 0;
    /// Empty when the document was never saved.
    virtual QString documentPath() const = 0;
    virtual bool isDocumentModified() const = 0;
    /// Versions, paths, graphics: what a report of a fault needs, in lines.
    virtual QString systemInformation() const = 0;
    /// What has the focus when no editor has.
    virtual QWidget *documentWidget() const { return centralWidget(); }

    /// To be called when the document or its modified state has become another.
    void updateTitle();
    /// Restores geometry, toolbars and the splitters named by object name; called at the end of the
    /// derived constructor, after a first resize().
    void restoreLayout();

    /// New, Open..., Open Recent, separator, Save, Save As...
    void addDocumentActions(QMenu &menu);
    /// Close, Quit.
    void addClosingActions(QMenu &menu);
    /// Minimise, full screen, and a check entry for each of @p panels, named by its window title.
    QMenu *createWindowMenu(const QList<QWidget *> &panels);
    /// Manual, shortcuts, system information, About.
    QMenu *createHelpMenu();
    GAction &openAction();
    GAction &saveAction();
    GAction &manualAction();
    /// What the system information dialog shows.
    QString fullSystemInformation() const;
    /// Opens the list of shortcuts: those of all actions, and @p gestures as pairs of what to do
    /// and what happens, set by the derived window.
    void setGestures(const QList<QPair<QString, QString>> &gestures);

    void closeEvent(QCloseEvent *event) override;
};
