#pragma once

#include "framework/SavePath.h"
#include "framework/ShortcutGroup.h"

#include <QHash>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>

class GAction;
class GSettings;
class QDialog;
class RecentFiles;
class Shortcuts;

/// The window of an application that works on one document at a time: its document actions, its
/// title and its geometry, the menus that every application has. What a document is the derived
/// window knows.
class GMainWindow : public QMainWindow
{
    Q_OBJECT

public:
    struct ApplicationTexts
    {
        QString sentence;   ///< what the program is for, in About
        QString licence;    ///< one line, in About
        QString manualPage; ///< the resource path of the manual's first page
    };

    /// @p settings outlive the window.
    GMainWindow(GSettings &settings, const DocumentType &type, QWidget *parent = nullptr);
    ~GMainWindow() override;

    /// Opens @p path after asking for unsaved changes; false when it was cancelled or refused.
    bool openPath(const QString &path);
    /// Puts @p action, which somebody else owns, into the Help menu, above About.
    void addHelpAction(QAction &action);

public Q_SLOTS:
    void newDocument();
    void chooseAndOpen();
    /// False when it was cancelled or failed.
    bool save();
    bool saveAs();

protected:
    /// Called before the document is stored, replaced or asked whether it is modified: what is
    /// being done to it by hand becomes part of it.
    virtual void finishEdits() {}
    /// Asked when the window shall close, before the document is asked about; false keeps it open.
    virtual bool mayClose() { return true; }
    // Called after the user has agreed; each shows its own errors.
    virtual void createDocument() = 0;
    virtual bool loadDocument(const QString &path) = 0;
    virtual bool storeDocument(const QString &path) = 0;
    /// Empty when the document was never saved.
    virtual QString documentPath() const = 0;
    virtual bool isDocumentModified() const = 0;
    /// True when the document may only be saved under another name.
    virtual bool isDocumentReadOnly() const { return false; }
    /// What becomes of the changes that the user does not save, told where he is asked.
    virtual QString consequenceOfDiscarding() const;
    /// Versions, paths, graphics: what a report of a fault needs, in lines.
    virtual QString systemInformation() const = 0;
    /// Gets the focus when a widget gives it up, as editors do after Enter and Escape, or loses it
    /// by being hidden or disabled.
    virtual QWidget *documentWidget() const { return centralWidget(); }

    /// Whether the user can take another document, new or opened, in place of the present one.
    void setReplaceable(bool isReplaceable);
    /// To be called when the document, its modified or its read-only state has become another.
    void updateTitle();
    /// Restores geometry, toolbars, shown panels, the splitters named by object name and the keys
    /// that the user has chosen; called at the end of the derived constructor, after a first
    /// resize(). All are kept on close.
    void restoreLayout();

    /// New, Open..., Open Recent, separator, Save, Save As...
    void addDocumentActions(QMenu &menu);
    /// Close, Quit.
    void addClosingActions(QMenu &menu);
    /// Minimise, full screen, and a check entry for each of @p panels, named by its window title;
    /// those with an object name are as they were in the last run after restoreLayout().
    QMenu *createWindowMenu(const QList<QWidget *> &panels);
    /// Manual, shortcuts, system information, About.
    QMenu *createHelpMenu(const ApplicationTexts &texts);
    GAction &newAction() { return *m_new; }
    GAction &openAction() { return *m_open; }
    GAction &saveAction() { return *m_save; }
    GAction &saveAsAction() { return *m_saveAs; }
    GAction &manualAction() { return *m_manual; }
    /// What the list of shortcuts tells besides those of all actions. Actions whose keys the user
    /// may change have an object name, under which the keys are kept.
    void setGestures(const QList<ShortcutGroup> &gestures) { m_gestures = gestures; }

    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    /// True when the document may go: unchanged, saved, or given up by the user.
    bool mayReplaceDocument();
    QString documentName() const;
    void finishEditing();
    QString savePathProposal() const;
    bool store(const QString &path);
    void rememberDocument();
    void returnFocus(QWidget *old, QWidget *now);
    /// Shows the dialog that @p create makes, or the one that is open already.
    template <typename Create>
    void showOnce(const QString &name, Create create);

    GSettings &m_settings;
    const DocumentType m_type;
    GAction *m_new;
    GAction *m_open;
    GAction *m_save;
    GAction *m_saveAs;
    GAction *m_close;
    GAction *m_quit;
    GAction *m_manual;
    GAction *m_fullScreen;
    Shortcuts *m_shortcuts;
    RecentFiles *m_recent;
    QMenu *m_help = nullptr;
    QAction *m_helpEnd = nullptr; ///< what follows all others there
    QHash<QString, QAction *> m_panelActions;
    QHash<QString, QPointer<QDialog>> m_dialogs;
    QList<ShortcutGroup> m_gestures;
    bool m_isStoring = false;
    bool m_closesAfterStoring = false;
};
