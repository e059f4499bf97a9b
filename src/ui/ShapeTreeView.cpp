#include "ui/ShapeTreeView.h"

#include "framework/UiScale.h"
#include "model/Body.h"
#include "model/ItemSelectionModel.h"
#include "ui/DroppedPaths.h"
#include "ui/SpriteDelegate.h"
#include "ui/SpriteListModel.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QShortcut>

#include <algorithm>

namespace {
// As few ranges as do: each costs time in every question to the view.
QItemSelection rangesOf(const SpriteListModel &model, const QList<Body *> &bodies)
{
    const QSet<Body *> wanted(bodies.begin(), bodies.end());
    const auto isWanted = [&](int row) { return wanted.contains(model.body(model.index(row))); };
    QItemSelection ranges;
    for (int row = 0; row < model.rowCount(); ++row) {
        const int first = row;
        while (row < model.rowCount() && isWanted(row))
            ++row;
        if (row > first)
            ranges.append(QItemSelectionRange(model.index(first), model.index(row - 1)));
    }
    return ranges;
}

/// Of a name that is typed to find it.
bool isLetter(const QKeyEvent &event)
{
    const bool isPlain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    const QString text = event.text();
    return isPlain && text.size() == 1 && text[0].isPrint() && !text[0].isSpace();
}

bool hasAction(const QWidget &widget, const QKeySequence &key)
{
    const auto actions = widget.actions();
    return std::any_of(actions.begin(), actions.end(), [&key](const QAction *each) {
        return each->shortcuts().contains(key);
    });
}

/// Whether a command of @p window has the key, be it at rest or not.
bool isKeyOfCommand(const QWidget &window, const QKeyEvent &event)
{
    const QKeySequence key(int(event.modifiers() & Qt::ShiftModifier) | event.key());
    const auto shortcuts = window.findChildren<QShortcut *>();
    const auto widgets = window.findChildren<QWidget *>();
    return std::any_of(shortcuts.begin(),
                       shortcuts.end(),
                       [&key](const QShortcut *each) { return each->key() == key; }) ||
           hasAction(window, key) ||
           std::any_of(widgets.begin(), widgets.end(), [&key](const QWidget *each) {
               return hasAction(*each, key);
           });
}
} // namespace

ShapeTreeView::ShapeTreeView(ItemSelectionModel &selection, QWidget *parent)
    : QTreeView(parent)
    , m_selection(selection)
    , m_model(new SpriteListModel(this))
    , m_delegate(new SpriteDelegate(this))
{
    setModel(m_model);
    setItemDelegate(m_delegate);
    setAccessibleName(tr("Sprites"));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setAcceptDrops(true);
    viewport()->setAttribute(Qt::WA_Hover);

    connect(
        &m_selection, &ItemSelectionModel::bodySelectionChanged, this, [this] { showSelection(); });
    connect(m_model, &SpriteListModel::rowsAboutToChange, this, [this] { m_isFollowing = true; });
    connect(m_model, &SpriteListModel::rowsChanged, this, [this] {
        m_isFollowing = false;
        showSelection();
        viewport()->update();
    });
    connect(selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &ShapeTreeView::takeSelection);
}

ShapeTreeView::~ShapeTreeView() = default;

void ShapeTreeView::setProject(Project *project)
{
    m_model->setProject(project);
}

void ShapeTreeView::renameCurrent()
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    const QModelIndex current = currentIndex();
    const QModelIndex index = current.isValid() || rows.isEmpty() ? current : rows.first();
    if (!index.isValid())
        return;
    scrollTo(index);
    QTreeView::edit(index);
}

QSize ShapeTreeView::sizeHint() const
{
    return {scaled(240), scaled(200)};
}

QSize ShapeTreeView::minimumSizeHint() const
{
    return {scaled(160), scaled(144)};
}

// A name that was begun goes on with any letter.
bool ShapeTreeView::event(QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride || !isSearching() || !isLetter(static_cast<QKeyEvent &>(*event)))
        return QTreeView::event(event);
    event->accept();
    return true;
}

// A tool's key doesn't become the begin of a name while the tool is at rest: that would select
// another sprite.
void ShapeTreeView::keyPressEvent(QKeyEvent *event)
{
    const bool isLetter = ::isLetter(*event);
    if (isLetter && !isSearching() && isKeyOfCommand(*window(), *event)) {
        event->ignore();
        return;
    }
    if (isLetter)
        m_sinceLetter.start();
    QTreeView::keyPressEvent(event);
}

bool ShapeTreeView::isSearching() const
{
    return m_sinceLetter.isValid() &&
           !m_sinceLetter.hasExpired(QApplication::keyboardInputInterval());
}

bool ShapeTreeView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const auto *mouse = trigger == DoubleClicked ? dynamic_cast<QMouseEvent *>(event) : nullptr;
    if (mouse && !m_delegate->textArea(visualRect(index)).contains(mouse->pos())) {
        Q_EMIT thumbnailDoubleClicked();
        return false;
    }
    return QTreeView::edit(index, trigger, event);
}

void ShapeTreeView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    if (m_model->rowCount() == 0) {
        QFont large = font();
        large.setPointSizeF(QFontInfo(large).pointSizeF() * 1.4);
        painter.setFont(large);
        painter.setPen(
            palette().color(m_isDropTarget ? QPalette::Text : QPalette::PlaceholderText));
        painter.drawText(
            viewport()->rect(),
            Qt::AlignHCenter | Qt::AlignTop,
            tr("\n\nNo sprites added yet!\n\nDrag and drop\nsprites and folders\nhere"));
    }
    if (!m_isDropTarget)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(3, 3, -3, -3), 3, 3);
}

void ShapeTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    if (droppedPaths(*event->mimeData()).isEmpty())
        return;
    setDropTarget(true);
    acceptCopy(*event);
}

void ShapeTreeView::dragMoveEvent(QDragMoveEvent *event)
{
    acceptCopy(*event);
}

void ShapeTreeView::dragLeaveEvent(QDragLeaveEvent *event)
{
    Q_UNUSED(event)
    setDropTarget(false);
}

void ShapeTreeView::dropEvent(QDropEvent *event)
{
    setDropTarget(false);
    const QStringList paths = droppedPaths(*event->mimeData());
    if (paths.isEmpty())
        return;
    acceptCopy(*event);
    Q_EMIT pathsDropped(paths);
}

QList<Body *> ShapeTreeView::selectedBodies() const
{
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QList<Body *> bodies;
    for (const QModelIndex &row : std::as_const(rows))
        bodies.append(m_model->body(row));
    return bodies;
}

void ShapeTreeView::showSelection()
{
    const QList<Body *> bodies = m_selection.selection();
    if (m_isFollowing || selectedBodies() == bodies)
        return;
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    const QItemSelection ranges = rangesOf(*m_model, bodies);
    if (!ranges.isEmpty() && !ranges.contains(currentIndex()))
        setCurrentIndex(ranges.indexes().first());
    selectionModel()->select(ranges, QItemSelectionModel::ClearAndSelect);
}

void ShapeTreeView::takeSelection()
{
    if (!m_isFollowing)
        m_selection.setSelection(selectedBodies());
}

void ShapeTreeView::setDropTarget(bool isDropTarget)
{
    m_isDropTarget = isDropTarget;
    viewport()->update();
}
