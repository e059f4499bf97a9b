#include "framework/ShortcutsDialog.h"

#include "framework/GAction.h"
#include "framework/ThemeColors.h"
#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

using Rows = QList<QPair<QString, QString>>;

void appendRow(const QAction &action, Rows &rows, QSet<const QAction *> &seen)
{
    if (action.shortcuts().isEmpty() || seen.contains(&action))
        return;
    seen.insert(&action);
    rows.append({plainActionText(action.text()),
                 QKeySequence::listToString(action.shortcuts(), QKeySequence::NativeText)
                     .replace(QLatin1String("; "), QLatin1String(", "))});
}

void appendMenu(const QMenu &menu, Rows &rows, QSet<const QAction *> &seen)
{
    for (const QAction *action : menu.actions()) {
        if (action->menu())
            appendMenu(*action->menu(), rows, seen);
        else
            appendRow(*action, rows, seen);
    }
}

} // namespace

QList<ShortcutGroup> shortcutGroups(const QMainWindow &window, const QList<ShortcutGroup> &gestures)
{
    QList<ShortcutGroup> groups;
    const auto appendGroup = [&groups](const QString &title, const Rows &rows) {
        if (!rows.isEmpty())
            groups.append({title, rows});
    };
    QSet<const QAction *> seen;
    // A main window makes a missing menu bar when it is asked for one.
    if (const auto *bar = window.findChild<QMenuBar *>(QString(), Qt::FindDirectChildrenOnly)) {
        for (const QAction *action : bar->actions()) {
            Rows rows;
            if (action->menu())
                appendMenu(*action->menu(), rows, seen);
            appendGroup(plainActionText(action->text()), rows);
        }
    }
    Rows others;
    for (const QAction *action : window.findChildren<QAction *>())
        appendRow(*action, others, seen);
    appendGroup(ShortcutsDialog::tr("Further keys"), others);
    return groups + gestures;
}

ShortcutsDialog::ShortcutsDialog(const QList<ShortcutGroup> &groups, QWidget *parent)
    : QDialog(parent)
    , m_list(new QTreeWidget)
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    resize(scaled(480), scaled(560));
    auto *search = new QLineEdit;
    search->setPlaceholderText(tr("Search for a command or a key"));
    search->setAccessibleName(tr("Search"));
    search->setClearButtonEnabled(true);
    connect(search, &QLineEdit::textChanged, this, &ShortcutsDialog::filter);

    m_list->setAccessibleName(tr("Keyboard Shortcuts"));
    m_list->setColumnCount(2);
    m_list->setHeaderHidden(true);
    m_list->setRootIsDecorated(false);
    m_list->setItemsExpandable(false);
    m_list->setIndentation(scaled(8));
    m_list->setUniformRowHeights(true);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->header()->setStretchLastSection(false);
    QFont titleFont = font();
    titleFont.setWeight(QFont::DemiBold);
    for (const ShortcutGroup &group : groups) {
        auto *title = new QTreeWidgetItem(m_list, {group.title});
        title->setFlags(Qt::ItemIsEnabled);
        title->setFont(0, titleFont);
        title->setForeground(0, themeColors(palette()).quietText);
        title->setSizeHint(0, QSize(0, scaled(26)));
        for (const auto &[command, keys] : group.rows)
            new QTreeWidgetItem(title, {command, keys});
    }
    m_list->expandAll();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(search);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
}

void ShortcutsDialog::filter(const QString &text)
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *group = m_list->topLevelItem(i);
        bool hasRows = false;
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem *row = group->child(j);
            const bool fits = row->text(0).contains(text, Qt::CaseInsensitive) ||
                              row->text(1).contains(text, Qt::CaseInsensitive);
            row->setHidden(!fits);
            hasRows = hasRows || fits;
        }
        group->setHidden(!hasRows);
    }
}
