#include "framework/ManualDialog.h"

#include "framework/PanelLabels.h"
#include "framework/ThemeColors.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int pageRole = Qt::UserRole;

/// Draws the program's own icons in the colours of the theme.
class ManualBrowser : public QTextBrowser
{
public:
    QVariant loadResource(int type, const QUrl &name) override
    {
        if (type != QTextDocument::ImageResource || !name.path().endsWith(QLatin1String(".svg")))
            return QTextBrowser::loadResource(type, name);
        const QSize size = QSize(24, 24) * uiScaleFactor();
        return themedIcon(QLatin1Char(':') + name.path()).pixmap(size);
    }
};

QString styleOf(const QPalette &palette)
{
    const ThemeColors colors = themeColors(palette);
    return QStringLiteral("h1 { font-size: 17pt; font-weight: 600; margin-bottom: 6px; }"
                          "h2 { font-size: 12pt; font-weight: 600; margin-top: 22px; }"
                          "p, li { line-height: 125%; }"
                          "p.picture { line-height: 100%; }"
                          "table { margin-top: 8px; margin-bottom: 8px; }"
                          "a { text-decoration: none; }"
                          "td { padding-right: 14px; padding-top: 3px; padding-bottom: 3px; }"
                          "kbd, code, pre { background-color: %1; }"
                          "pre { margin-left: 12px; }"
                          ".quiet { color: %2; }")
        .arg(palette.color(QPalette::Window).name(), colors.quietText.name());
}

QString textOf(const QUrl &page)
{
    QFile file(QLatin1Char(':') + page.path());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A page without its place.
QUrl whole(const QUrl &page)
{
    return page.adjusted(QUrl::RemoveFragment);
}

QToolButton *createStep(const QString &text, const QString &icon, const QKeySequence &keys)
{
    auto *step = new QToolButton;
    step->setIcon(themedIcon(icon));
    step->setIconSize(QSize(20, 20) * uiScaleFactor());
    step->setAutoRaise(true);
    step->setAccessibleName(text);
    step->setShortcut(keys);
    step->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
    return step;
}

QTreeWidgetItem *addGroup(QTreeWidget &list, const QString &title)
{
    auto *group = new QTreeWidgetItem(&list, {title});
    QFont font = list.font();
    font.setWeight(QFont::DemiBold);
    group->setFlags(Qt::ItemIsEnabled);
    group->setFont(0, font);
    group->setSizeHint(0, QSize(0, scaled(26)));
    return group;
}

void addLinks(QTreeWidgetItem &group, const QTextBlock &block, const QUrl &home)
{
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextCharFormat format = part.fragment().charFormat();
        if (!format.isAnchor() || format.anchorHref().isEmpty())
            continue;
        auto *entry = new QTreeWidgetItem(&group, {part.fragment().text()});
        entry->setData(0, pageRole, home.resolved(QUrl(format.anchorHref())));
        entry->setSizeHint(0, QSize(0, scaled(20)));
    }
}
} // namespace

ManualDialog::ManualDialog(const QString &page, QWidget *parent)
    : QDialog(parent)
    , m_home(QStringLiteral("qrc") + page)
    , m_browser(new ManualBrowser)
    , m_contents(new QTreeWidget)
    , m_search(new QLineEdit)
    , m_outcome(createQuietText({}))
{
    setWindowTitle(tr("Manual"));
    resize(scaled(980), scaled(720));
    createBrowser();
    createContents();
    auto *panels = new QSplitter;
    panels->setChildrenCollapsible(false);
    panels->addWidget(m_contents);
    panels->addWidget(m_browser);
    panels->setStretchFactor(1, 1);
    panels->setSizes({scaled(210), scaled(770)});
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(createNavigation());
    layout->addWidget(panels, 1);
    layout->addWidget(buttons);
    m_browser->setSource(m_home);
    m_browser->setFocus();
}

void ManualDialog::createBrowser()
{
    m_browser->setAccessibleName(tr("Manual"));
    m_browser->setOpenExternalLinks(true);
    m_browser->document()->setDocumentMargin(scaled(16));
    m_browser->document()->setDefaultStyleSheet(styleOf(palette()));
    connect(m_browser, &QTextBrowser::sourceChanged, this, &ManualDialog::followPage);
}

void ManualDialog::createContents()
{
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHeaderHidden(true);
    m_contents->setRootIsDecorated(false);
    m_contents->setItemsExpandable(false);
    m_contents->setIndentation(scaled(8));
    QTextDocument first;
    first.setHtml(textOf(m_home));
    QTreeWidgetItem *group = nullptr;
    for (QTextBlock block = first.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 2)
            group = addGroup(*m_contents, block.text());
        else if (group && block.textList())
            addLinks(*group, block, m_home);
    }
    m_contents->expandAll();
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *entry) {
        const QUrl page = entry ? entry->data(0, pageRole).toUrl() : QUrl();
        if (!page.isEmpty() && page != whole(m_browser->source()))
            m_browser->setSource(page);
    });
}

QLayout *ManualDialog::createNavigation()
{
    QToolButton *back =
        createStep(tr("Back"), QStringLiteral(":/icons/page_back.svg"), QKeySequence::Back);
    QToolButton *forward = createStep(
        tr("Forward"), QStringLiteral(":/icons/page_forward.svg"), QKeySequence::Forward);
    QToolButton *home = createStep(tr("Contents"),
                                   QStringLiteral(":/icons/home.svg"),
                                   QKeySequence(QStringLiteral("Alt+Home")));
    connect(back, &QToolButton::clicked, m_browser, &QTextBrowser::backward);
    connect(forward, &QToolButton::clicked, m_browser, &QTextBrowser::forward);
    connect(home, &QToolButton::clicked, m_browser, &QTextBrowser::home);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    back->setEnabled(false);
    forward->setEnabled(false);

    m_search->setPlaceholderText(tr("Search, Enter goes on"));
    m_search->setAccessibleName(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_search->setFixedWidth(scaled(240));
    connect(m_search, &QLineEdit::returnPressed, this, &ManualDialog::find);
    connect(m_search, &QLineEdit::textEdited, m_outcome, &QLabel::clear);
    const auto *search = new QShortcut(QKeySequence::Find, this);
    connect(search, &QShortcut::activated, m_search, qOverload<>(&QWidget::setFocus));
    const auto *next = new QShortcut(QKeySequence::FindNext, this);
    connect(next, &QShortcut::activated, this, &ManualDialog::find);

    auto *row = new QHBoxLayout;
    for (QToolButton *step : {back, forward, home})
        row->addWidget(step);
    row->addStretch();
    row->addWidget(m_outcome);
    row->addWidget(m_search);
    return row;
}

void ManualDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    // What was read has the colours of the former palette.
    m_browser->document()->setDefaultStyleSheet(styleOf(palette()));
    m_browser->reload();
}

void ManualDialog::followPage(const QUrl &page)
{
    for (QTreeWidgetItemIterator entry(m_contents); *entry; ++entry) {
        if ((*entry)->data(0, pageRole).toUrl() == whole(page)) {
            m_contents->setCurrentItem(*entry);
            return;
        }
    }
    m_contents->setCurrentItem(nullptr);
}

void ManualDialog::find()
{
    const QString text = m_search->text();
    if (text.isEmpty() || m_browser->find(text))
        return;
    QList<QUrl> pages{m_home};
    for (QTreeWidgetItemIterator entry(m_contents); *entry; ++entry) {
        if (const QUrl page = (*entry)->data(0, pageRole).toUrl(); !page.isEmpty())
            pages.append(page);
    }
    const int present = std::max<int>(0, pages.indexOf(whole(m_browser->source())));
    for (int step = 1; step <= pages.size(); ++step) {
        const QUrl &page = pages[(present + step) % pages.size()];
        QTextDocument document;
        document.setHtml(textOf(page));
        if (document.find(text).isNull())
            continue;
        m_browser->setSource(page);
        m_browser->moveCursor(QTextCursor::Start);
        m_browser->find(text);
        return;
    }
    m_outcome->setText(tr("Not found"));
}
