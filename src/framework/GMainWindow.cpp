#include "framework/GMainWindow.h"

#include "base/GSettings.h"
#include "base/PlainText.h"
#include "framework/AboutDialog.h"
#include "framework/GAction.h"
#include "framework/ManualDialog.h"
#include "framework/QuotedName.h"
#include "framework/RecentFiles.h"
#include "framework/Shortcuts.h"
#include "framework/ShortcutsDialog.h"
#include "framework/SystemInformationDialog.h"
#include "framework/WindowLayout.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QToolBar>

#include <utility>

namespace {

QString folderKey()
{
    return QStringLiteral("documentFolder");
}

QString panelKey(const QString &panel)
{
    return QStringLiteral("window/panels/") + panel;
}

/// The platform's keys for a command, @p fallback where it has none.
QList<QKeySequence> platformKeys(QKeySequence::StandardKey key, const char *fallback)
{
    const QList<QKeySequence> keys = QKeySequence::keyBindings(key);
    return keys.isEmpty() ? QList<QKeySequence>{QKeySequence(QLatin1String(fallback))} : keys;
}

GAction *createAction(GMainWindow *window,
                      const char *id,
                      const QString &text,
                      const QList<QKeySequence> &keys,
                      QAction::MenuRole role = QAction::NoRole)
{
    auto *action = new GAction(text, window);
    action->setObjectName(QLatin1String(id));
    action->setShortcuts(keys);
    action->setMenuRole(role);
    return action;
}

} // namespace

GMainWindow::GMainWindow(GSettings &settings, const DocumentType &type, QWidget *parent)
    : QMainWindow(parent)
    , m_settings(settings)
    , m_type(type)
    , m_new(createAction(this, "new", tr("&New"), platformKeys(QKeySequence::New, "Ctrl+N")))
    , m_open(createAction(this, "open", tr("&Open..."), platformKeys(QKeySequence::Open, "Ctrl+O")))
    , m_save(createAction(this, "save", tr("&Save"), platformKeys(QKeySequence::Save, "Ctrl+S")))
    , m_saveAs(createAction(
          this, "saveAs", tr("Save &As..."), platformKeys(QKeySequence::SaveAs, "Ctrl+Shift+S")))
    , m_close(
          createAction(this, "close", tr("&Close"), platformKeys(QKeySequence::Close, "Ctrl+W")))
    , m_quit(createAction(
          this, "quit", tr("&Quit"), platformKeys(QKeySequence::Quit, "Ctrl+Q"), QAction::QuitRole))
    , m_manual(createAction(
          this, "manual", tr("&Manual"), platformKeys(QKeySequence::HelpContents, "F1")))
    , m_fullScreen(createAction(
          this, "fullScreen", tr("&Full Screen"), platformKeys(QKeySequence::FullScreen, "F11")))
    , m_shortcuts(new Shortcuts(settings, *this))
    , m_recent(new RecentFiles(settings, tr("Open &Recent"), this))
{
    connect(m_new, &QAction::triggered, this, &GMainWindow::newDocument);
    connect(m_open, &QAction::triggered, this, &GMainWindow::chooseAndOpen);
    connect(m_recent, &RecentFiles::chosen, this, &GMainWindow::openPath);
    connect(m_save, &QAction::triggered, this, &GMainWindow::save);
    connect(m_saveAs, &QAction::triggered, this, &GMainWindow::saveAs);
    connect(m_close, &QAction::triggered, this, &QWidget::close);
    // First this one, which may ask what becomes of what the others show.
    connect(m_quit, &QAction::triggered, this, [this] {
        if (close())
            QApplication::closeAllWindows();
    });
    m_fullScreen->setCheckable(true);
    connect(m_fullScreen, &QAction::triggered, this, [this] {
        setWindowState(windowState() ^ Qt::WindowFullScreen);
    });
    connect(qApp, &QApplication::focusChanged, this, &GMainWindow::returnFocus);
}

// The focus still changes while the widgets go.
GMainWindow::~GMainWindow()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void GMainWindow::newDocument()
{
    if (!mayReplaceDocument())
        return;
    createDocument();
    updateTitle();
}

void GMainWindow::chooseAndOpen()
{
    const QString folder = m_settings.value(folderKey()).toString();
    const QString path = QFileDialog::getOpenFileName(this, tr("Open"), folder, m_type.openFilter);
    if (!path.isEmpty())
        openPath(path);
}

bool GMainWindow::openPath(const QString &path)
{
    if (!mayReplaceDocument())
        return false;
    const bool isLoaded = loadDocument(QFileInfo(path).absoluteFilePath());
    if (isLoaded)
        rememberDocument();
    updateTitle();
    return isLoaded;
}

bool GMainWindow::save()
{
    if (m_isStoring)
        return false;
    finishEditing();
    const QString path = documentPath();
    return path.isEmpty() || isDocumentReadOnly() ? saveAs() : store(path);
}

bool GMainWindow::saveAs()
{
    finishEditing();
    const QString path = chooseSavePath(m_type, savePathProposal(), this);
    return !path.isEmpty() && store(path);
}

// Storing may show its progress, and the desktop's requests come through then: nothing takes the
// place of what is being stored, and a window that shall close does so once it is.
bool GMainWindow::store(const QString &path)
{
    bool isStored = false;
    {
        const QScopedValueRollback storing(m_isStoring, true);
        isStored = storeDocument(path);
    }
    if (isStored)
        rememberDocument();
    updateTitle();
    if (std::exchange(m_closesAfterStoring, false) && isStored)
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    return isStored;
}

void GMainWindow::rememberDocument()
{
    const QString path = documentPath();
    if (path.isEmpty())
        return;
    m_recent->add(path);
    m_settings.setValue(folderKey(), QFileInfo(path).absolutePath());
}

// What is still being typed counts when the focus leaves; keys and drops leave it where it is.
void GMainWindow::finishEditing()
{
    finishEdits();
    const QPointer<QWidget> editor = focusWidget();
    if (!editor || !editor->hasFocus())
        return;
    editor->clearFocus();
    if (editor && editor->isVisible())
        editor->setFocus(Qt::OtherFocusReason);
}

bool GMainWindow::mayReplaceDocument()
{
    if (m_isStoring)
        return false;
    finishEditing();
    if (!isDocumentModified())
        return true;
    QMessageBox box(QMessageBox::Warning,
                    tr("Save changes?"),
                    tr("Save the changes to %1?").arg(quoted(documentName())),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                    this);
    box.setInformativeText(consequenceOfDiscarding());
    box.setWindowModality(Qt::WindowModal);
    box.setDefaultButton(QMessageBox::Save);
    if (isDocumentReadOnly())
        box.button(QMessageBox::Save)->setText(m_saveAs->text());
    const int answer = box.exec();
    // What has changed while it was being saved is not in the file.
    return answer == QMessageBox::Discard ||
           (answer == QMessageBox::Save && save() && !isDocumentModified());
}

QString GMainWindow::consequenceOfDiscarding() const
{
    return tr("Without saving they are lost.");
}

QString GMainWindow::savePathProposal() const
{
    const QString path = documentPath();
    if (path.isEmpty()) {
        const QString documents =
            QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        return QDir(m_settings.value(folderKey(), documents).toString())
            .filePath(m_type.newName + QLatin1Char('.') + m_type.suffix);
    }
    // A document may have been opened under a suffix that is no longer written.
    const QFileInfo present(path);
    const QString base = present.completeBaseName();
    return present.dir().filePath((isDocumentReadOnly() ? tr("%1 copy").arg(base) : base) +
                                  QLatin1Char('.') + m_type.suffix);
}

QString GMainWindow::documentName() const
{
    const QString path = documentPath();
    return path.isEmpty() ? m_type.newName : QFileInfo(path).fileName();
}

void GMainWindow::updateTitle()
{
    QString name = shownText(documentName());
    // Doubled, the placeholder of the modified mark stands for itself.
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    if (isDocumentReadOnly())
        name = tr("%1 (read-only)").arg(name);
    m_save->setEnabled(!isDocumentReadOnly());
    setWindowFilePath(documentPath());
    setWindowTitle(
        QStringLiteral("%1[*] \u2013 %2").arg(name, QGuiApplication::applicationDisplayName()));
    setWindowModified(isDocumentModified());
}

void GMainWindow::setReplaceable(bool isReplaceable)
{
    m_new->setEnabled(isReplaceable);
    m_open->setEnabled(isReplaceable);
    m_recent->setLocked(!isReplaceable);
}

void GMainWindow::restoreLayout()
{
    ::restoreLayout(*this, m_settings);
    m_shortcuts->apply();
    for (auto panel = m_panelActions.cbegin(); panel != m_panelActions.cend(); ++panel)
        panel.value()->setChecked(
            m_settings.value(panelKey(panel.key()), panel.value()->isChecked()).toBool());
    for (QToolBar *bar : findChildren<QToolBar *>())
        leaveFocusOnClick(*bar);
}

void GMainWindow::closeEvent(QCloseEvent *event)
{
    m_closesAfterStoring = m_isStoring;
    event->setAccepted(!m_isStoring && mayClose() && mayReplaceDocument());
    if (!event->isAccepted())
        return;
    keepLayout(*this, m_settings);
    for (auto panel = m_panelActions.cbegin(); panel != m_panelActions.cend(); ++panel)
        m_settings.setValue(panelKey(panel.key()), panel.value()->isChecked());
}

void GMainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange)
        m_fullScreen->setChecked(isFullScreen());
    QMainWindow::changeEvent(event);
}

void GMainWindow::returnFocus(QWidget *old, QWidget *now)
{
    if (!old || old->window() != this || QApplication::activeWindow() != this)
        return;
    // From one that is hidden or disabled the toolkit goes on to the next in the tab order, which
    // nobody has chosen.
    const bool isChosen = old->isVisible() && old->isEnabled();
    if (now && (isChosen || now->window() != this))
        return;
    // The widget is still giving it up; a dialog that opens now keeps what it takes.
    QMetaObject::invokeMethod(
        this,
        [this, next = QPointer<QWidget>(now)] {
            QWidget *widget = documentWidget();
            if (widget && focusWidget() == next)
                widget->setFocus(Qt::OtherFocusReason);
        },
        Qt::QueuedConnection);
}

void GMainWindow::addDocumentActions(QMenu &menu)
{
    menu.addActions({m_new, m_open});
    menu.addMenu(m_recent);
    menu.addSeparator();
    menu.addActions({m_save, m_saveAs});
}

void GMainWindow::addClosingActions(QMenu &menu)
{
    menu.addActions({m_close, m_quit});
}

QMenu *GMainWindow::createWindowMenu(const QList<QWidget *> &panels)
{
    auto *menu = new QMenu(tr("&Window"), this);
    GAction *minimise =
        createAction(this, "minimise", tr("Mi&nimise"), {QKeySequence(QStringLiteral("Ctrl+M"))});
    connect(minimise, &QAction::triggered, this, &QWidget::showMinimized);
    menu->addActions({minimise, m_fullScreen});
    menu->addSeparator();
    for (QWidget *panel : panels) {
        QAction *action = createPanelAction(panel);
        menu->addAction(action);
        if (!panel->objectName().isEmpty())
            m_panelActions.insert(panel->objectName(), action);
    }
    return menu;
}

template <typename Create>
void GMainWindow::showOnce(const QString &name, Create create)
{
    QPointer<QDialog> &dialog = m_dialogs[name];
    if (!dialog) {
        dialog = create();
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

QMenu *GMainWindow::createHelpMenu(const ApplicationTexts &texts)
{
    auto *menu = new QMenu(tr("&Help"), this);
    GAction *shortcuts = createAction(this, "shortcuts", tr("Keyboard &Shortcuts"), {});
    GAction *information = createAction(this, "systemInformation", tr("System &Information"), {});
    GAction *about = createAction(this,
                                  "about",
                                  tr("&About %1").arg(QGuiApplication::applicationDisplayName()),
                                  {},
                                  QAction::AboutRole);
    connect(m_manual, &QAction::triggered, this, [this, page = texts.manualPage] {
        showOnce(QStringLiteral("manual"), [&] { return new ManualDialog(page, this); });
    });
    connect(shortcuts, &QAction::triggered, this, [this] {
        showOnce(QStringLiteral("shortcuts"),
                 [this] { return new ShortcutsDialog(*m_shortcuts, m_gestures, this); });
    });
    connect(information, &QAction::triggered, this, [this] {
        showOnce(QStringLiteral("information"), [this] {
            return new SystemInformationDialog(systemSummary() + systemInformation(), this);
        });
    });
    connect(about, &QAction::triggered, this, [this, texts] {
        showOnce(QStringLiteral("about"),
                 [&] { return new AboutDialog(texts.sentence, texts.licence, this); });
    });
    menu->addActions({m_manual, shortcuts, information});
    m_helpEnd = menu->addSeparator();
    menu->addAction(about);
    m_help = menu;
    return menu;
}

void GMainWindow::addHelpAction(QAction &action)
{
    m_help->insertAction(m_helpEnd, &action);
}
