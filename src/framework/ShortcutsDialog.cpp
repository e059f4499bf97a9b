#include "framework/ShortcutsDialog.h"

#include "framework/GAction.h"
#include "framework/KeyEdit.h"
#include "framework/Proposal.h"
#include "framework/QuotedName.h"
#include "framework/Shortcuts.h"
#include "framework/ThemeColors.h"
#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int idRole = Qt::UserRole;

QString textOf(const QList<QKeySequence> &keys)
{
    return QKeySequence::listToString(keys, QKeySequence::NativeText)
        .replace(QLatin1String("; "), QLatin1String(", "));
}

QString textOf(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::NativeText);
}

QString quoted(const QAction &command)
{
    return ::quoted(plainActionText(command.text()));
}

QPushButton *createButton(const QString &text)
{
    auto *button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ShortcutsDialog::ShortcutsDialog(Shortcuts &shortcuts,
                                 const QList<ShortcutGroup> &gestures,
                                 QWidget *parent)
    : QDialog(parent)
    , m_shortcuts(shortcuts)
    , m_gestures(gestures)
    , m_search(new QLineEdit)
    , m_list(new QTreeWidget)
    , m_command(new QLabel)
    , m_edit(new KeyEdit)
    , m_remove(createButton(tr("No Key")))
    , m_reset(createButton(tr("Reset")))
    , m_takeOver(createButton(tr("Take It Over")))
    , m_message(new QLabel)
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    resize(scaled(520), scaled(640));
    m_search->setPlaceholderText(tr("Search for a command or a key"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
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

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    QPushButton *all = buttons->addButton(tr("Reset All..."), QDialogButtonBox::ResetRole);
    all->setAutoDefault(false);
    connect(all, &QPushButton::clicked, this, &ShortcutsDialog::askAndResetAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    layout->addWidget(createEditor());
    layout->addWidget(buttons);
    fill();
    connectEditor();
    showCurrent();
}

QWidget *ShortcutsDialog::createEditor()
{
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    m_command->setFont(strong);
    m_command->setTextFormat(Qt::PlainText);
    m_edit->setAccessibleName(tr("Keys of the command"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    // Two lines at any time, so that nothing moves when there is something to tell.
    m_message->setMinimumHeight(2 * m_message->fontMetrics().lineSpacing());

    auto *editor = new QWidget;
    auto *keys = new QHBoxLayout;
    keys->setSpacing(scaled(8));
    keys->addWidget(m_edit, 1);
    keys->addWidget(m_remove);
    keys->addWidget(m_reset);
    auto *told = new QHBoxLayout;
    told->setSpacing(scaled(8));
    told->addWidget(m_message, 1);
    told->addWidget(m_takeOver, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(editor);
    layout->setContentsMargins({});
    layout->setSpacing(scaled(4));
    layout->addWidget(m_command);
    layout->addLayout(keys);
    layout->addLayout(told);
    QWidget::setTabOrder(m_edit, m_takeOver);
    return editor;
}

void ShortcutsDialog::connectEditor()
{
    connect(m_search, &QLineEdit::textChanged, this, &ShortcutsDialog::filter);
    connect(m_search, &QLineEdit::returnPressed, this, &ShortcutsDialog::goToFirst);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &ShortcutsDialog::showCurrent);
    connect(m_list, &QTreeWidget::itemActivated, m_edit, [this] { m_edit->setFocus(); });
    connect(m_edit, &KeyEdit::pressed, this, &ShortcutsDialog::take);
    connect(m_edit, &KeyEdit::left, m_list, [this] { m_list->setFocus(); });
    connect(m_takeOver, &QPushButton::clicked, this, &ShortcutsDialog::takeOver);
    connect(m_reset, &QPushButton::clicked, this, &ShortcutsDialog::reset);
    connect(m_remove, &QPushButton::clicked, this, [this] {
        if (const QAction *command = current())
            m_shortcuts.setKeys(*command, {});
        tell({});
    });
    connect(&m_shortcuts, &Shortcuts::changed, this, [this] {
        for (QTreeWidgetItemIterator row(m_list); *row; ++row) {
            if (const auto *command = m_shortcuts.command((*row)->data(0, idRole).toString()))
                showKeys(**row, *command);
        }
        showCurrent();
    });
}

void ShortcutsDialog::fill()
{
    const QList<Shortcuts::Group> groups = m_shortcuts.groups();
    for (const Shortcuts::Group &group : groups) {
        QTreeWidgetItem *title = addGroup(group.title);
        for (const QAction *action : group.actions) {
            auto *row = new QTreeWidgetItem(title, {plainActionText(action->text())});
            row->setData(0, idRole, action->objectName());
            showKeys(*row, *action);
        }
    }
    addGestures();
    m_list->expandAll();
}

void ShortcutsDialog::addGestures()
{
    for (const ShortcutGroup &group : m_gestures) {
        QTreeWidgetItem *title = addGroup(group.title);
        for (const auto &[what, keys] : group.rows)
            new QTreeWidgetItem(title, {what, keys});
    }
}

QTreeWidgetItem *ShortcutsDialog::addGroup(const QString &title)
{
    QFont titleFont = font();
    titleFont.setWeight(QFont::DemiBold);
    auto *group = new QTreeWidgetItem(m_list, {title});
    group->setFlags(Qt::ItemIsEnabled);
    group->setFont(0, titleFont);
    group->setForeground(0, themeColors(palette()).quietText);
    group->setSizeHint(0, QSize(0, scaled(26)));
    return group;
}

void ShortcutsDialog::showKeys(QTreeWidgetItem &row, const QAction &command)
{
    const bool isChanged = Shortcuts::isChanged(command);
    QFont keysFont = font();
    keysFont.setWeight(isChanged ? QFont::DemiBold : QFont::Normal);
    const QString usual = textOf(Shortcuts::defaultKeys(command));
    row.setText(1, textOf(command.shortcuts()));
    row.setFont(1, keysFont);
    row.setToolTip(1,
                   !isChanged        ? QString()
                   : usual.isEmpty() ? tr("Has no key of its own")
                                     : tr("Its own key: %1").arg(usual));
}

void ShortcutsDialog::filter()
{
    const QString text = m_search->text();
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
    if (!text.isEmpty())
        chooseFirst();
}

void ShortcutsDialog::chooseFirst()
{
    for (QTreeWidgetItemIterator row(m_list, QTreeWidgetItemIterator::NotHidden); *row; ++row) {
        if ((*row)->parent()) {
            m_list->setCurrentItem(*row);
            return;
        }
    }
    m_list->setCurrentItem(nullptr);
}

void ShortcutsDialog::goToFirst()
{
    chooseFirst();
    m_list->setFocus();
}

QAction *ShortcutsDialog::current() const
{
    const QTreeWidgetItem *row = m_list->currentItem();
    const QString id = row ? row->data(0, idRole).toString() : QString();
    return id.isEmpty() ? nullptr : m_shortcuts.command(id);
}

void ShortcutsDialog::showCurrent()
{
    const QAction *command = current();
    const QTreeWidgetItem *row = m_list->currentItem();
    m_command->setText(row && row->parent() ? row->text(0) : tr("Choose a command"));
    m_edit->setEnabled(command);
    m_remove->setEnabled(command && !command->shortcuts().isEmpty());
    m_reset->setEnabled(command && Shortcuts::isChanged(*command));
    m_edit->setKeySequence(command ? command->shortcut() : QKeySequence());
    tell(!row || !row->parent() ? QString()
         : command              ? tr("Press the new keys in the field above.")
                                : tr("These keys can't be changed."));
}

void ShortcutsDialog::take(const QKeySequence &keys)
{
    const QAction *command = current();
    // The way to the button that takes a key over is no other choice.
    const bool isLeaving = keys == QKeySequence(Qt::Key_Tab) && m_takeOver->isVisible();
    if (!command || isLeaving)
        return;
    const QString refusal = m_shortcuts.refusal(keys);
    const QAction *holder = m_shortcuts.holder(keys);
    if (refusal.isEmpty() && holder == command) {
        tell(tr("%1 is its key already.").arg(textOf(keys)));
    } else if (refusal.isEmpty() && m_shortcuts.isFixed(keys)) {
        const QString gesture = gestureAt(keys);
        tell(gesture.isEmpty() ? tr("%1 is a key of the tools, which stays.").arg(textOf(keys))
                               : tr("%1 stays with %2.").arg(textOf(keys), ::quoted(gesture)),
             true);
    } else if (refusal.isEmpty() && !holder) {
        m_shortcuts.setKeys(*command, {keys});
        tell(tr("%1 is the key of %2 now.").arg(textOf(keys), quoted(*command)));
    } else if (refusal.isEmpty() && !holder->objectName().isEmpty()) {
        tell(tr("%1 is the key of %2.").arg(textOf(keys), quoted(*holder)), true);
        m_takeOver->show();
        return; // the field shows what would be taken over
    } else {
        tell(refusal.isEmpty() ? tr("%1 stays with %2.").arg(textOf(keys), quoted(*holder))
                               : tr("%1 Choose other keys.").arg(refusal),
             true);
    }
    m_edit->setKeySequence(command->shortcut());
}

void ShortcutsDialog::takeOver()
{
    const QAction *command = current();
    const QAction *holder = m_shortcuts.holder(m_edit->keySequence());
    if (!command || !holder)
        return;
    const QString text = tr("%1 is the key of %2 now, no longer of %3.")
                             .arg(textOf(m_edit->keySequence()), quoted(*command), quoted(*holder));
    m_shortcuts.setKeys(*command, {m_edit->keySequence()});
    m_list->setFocus(); // the button goes
    tell(text);
}

void ShortcutsDialog::reset()
{
    const QAction *command = current();
    if (!command)
        return;
    m_shortcuts.reset(*command);
    for (const QKeySequence &keys : Shortcuts::defaultKeys(*command)) {
        const QAction *holder = m_shortcuts.holder(keys);
        if (holder && holder != command)
            tell(tr("%1 stays with %2, for which it was chosen.")
                     .arg(textOf(keys), quoted(*holder)));
    }
}

void ShortcutsDialog::askAndResetAll()
{
    const Proposal resetting{tr("Reset all keys?"),
                             tr("Give all commands their own keys again?"),
                             tr("The keys that you have chosen are lost."),
                             tr("Reset All")};
    if (isAgreedTo(resetting, this))
        m_shortcuts.resetAll();
}

// What the list of gestures calls it, where the key stands there by itself.
QString ShortcutsDialog::gestureAt(const QKeySequence &keys) const
{
    static const QRegularExpression gaps(QStringLiteral("(,? )|,$"));
    for (const ShortcutGroup &group : m_gestures) {
        for (const auto &[what, where] : group.rows) {
            if (where.split(gaps).contains(textOf(keys)))
                return what;
        }
    }
    return {};
}

void ShortcutsDialog::tell(const QString &text, bool isTrouble)
{
    m_takeOver->hide();
    m_message->setText(text);
    const ThemeColors colors = themeColors(palette());
    QPalette messagePalette = palette();
    messagePalette.setColor(QPalette::WindowText, isTrouble ? colors.trouble : colors.quietText);
    m_message->setPalette(messagePalette);
}
