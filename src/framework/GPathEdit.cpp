#include "framework/GPathEdit.h"

#include "framework/ControlSizes.h"
#include "framework/GLineEdit.h"
#include "framework/PlainToolTip.h"
#include "framework/UiScale.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QToolButton>

GPathEdit::GPathEdit(Kind kind, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
    , m_line(new GLineEdit(this))
    , m_button(new QToolButton(this))
    , m_dialogTitle(kind == Kind::Folder ? tr("Choose folder") : tr("Choose file"))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(controlSpacing) / 2);
    row->addWidget(m_line, 1);
    row->addWidget(m_button);
    m_button->setText(QStringLiteral("\u2026"));
    m_button->setToolTip(m_dialogTitle);
    m_button->setFixedSize(scaled(controlHeight), scaled(controlHeight));
    m_line->setAcceptDrops(false); // they are the whole editor's
    setAcceptDrops(true);
    setFocusProxy(m_line);
    setLabel(QString());

    connect(m_line, &QLineEdit::textEdited, this, &GPathEdit::completePaths);
    connect(m_line, &QLineEdit::textChanged, this, &GPathEdit::textChanged);
    connect(m_line, &GLineEdit::committed, this, [this] { Q_EMIT pathChanged(path()); });
    connect(m_button, &QToolButton::clicked, this, &GPathEdit::choose);
}

void GPathEdit::setEmptyText(const QString &text)
{
    m_line->setEmptyText(text);
}

void GPathEdit::setDialogTitle(const QString &title)
{
    m_dialogTitle = title;
    m_button->setToolTip(title);
}

void GPathEdit::setLabel(const QString &label)
{
    setAccessibleName(label);
    m_line->setAccessibleName(label);
    m_button->setAccessibleName(label.isEmpty() ? m_dialogTitle : tr("Choose %1").arg(label));
}

void GPathEdit::setMixed(bool isMixed)
{
    m_line->setMixed(isMixed);
}

QString GPathEdit::path() const
{
    return QDir::fromNativeSeparators(m_line->text().trimmed());
}

void GPathEdit::setPath(const QString &path)
{
    m_line->showText(QDir::toNativeSeparators(path));
    m_line->setToolTip(plainToolTip(QDir::toNativeSeparators(path)));
}

void GPathEdit::dragEnterEvent(QDragEnterEvent *event)
{
    if (!fittingPath(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void GPathEdit::dropEvent(QDropEvent *event)
{
    // A source that moves files would delete them after the drop.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    m_line->commit(QDir::toNativeSeparators(fittingPath(*event->mimeData())));
}

// Not before it is needed: the model watches folders on a thread of its own.
void GPathEdit::completePaths()
{
    if (m_line->completer())
        return;
    auto *completer = new QCompleter(this);
    auto *files = new QFileSystemModel(completer);
    const QDir::Filters folders = QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot;
    files->setFilter(m_kind == Kind::Folder ? folders : folders | QDir::Files);
    files->setRootPath(QString());
    completer->setModel(files);
    m_line->setCompleter(completer);
    // After the line has taken it.
    connect(completer,
            qOverload<const QString &>(&QCompleter::activated),
            this,
            &GPathEdit::takeCompleted,
            Qt::QueuedConnection);
    completer->popup()->installEventFilter(this);
}

// A folder on the way to a file is to be gone on from.
void GPathEdit::takeCompleted()
{
    if (QFileInfo(path()).isDir() == (m_kind == Kind::Folder))
        m_line->commit(m_line->text());
    else
        m_line->setModified(true);
}

// Enter, which the list of paths keeps to itself, means what was typed while nothing is chosen
// there.
bool GPathEdit::eventFilter(QObject *watched, QEvent *event)
{
    auto *list = qobject_cast<QAbstractItemView *>(watched);
    if (!list || event->type() != QEvent::KeyPress || list->currentIndex().isValid())
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    list->hide();
    m_line->commit(m_line->text());
    return true;
}

void GPathEdit::choose()
{
    QFileDialog dialog(this, m_dialogTitle);
    dialog.setFileMode(m_kind == Kind::Folder ? QFileDialog::Directory : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::ShowDirsOnly, m_kind == Kind::Folder);
    const QFileInfo present(path());
    if (!path().isEmpty())
        dialog.setDirectory(m_kind == Kind::Folder ? present.filePath() : present.path());
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        m_line->commit(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

/// The first of the dropped files or folders as a path of the kind; empty when there is none.
QString GPathEdit::fittingPath(const QMimeData &data) const
{
    const QUrl url = data.urls().value(0);
    if (!url.isLocalFile())
        return {};
    const QFileInfo file(url.toLocalFile());
    if (m_kind == Kind::File)
        return file.isFile() ? file.filePath() : QString();
    return file.isDir() ? file.filePath() : file.path();
}
