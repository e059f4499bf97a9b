#include "ui/ToolsSidebar.h"

#include "base/GSettings.h"
#include "framework/GAction.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"
#include "model/Body.h"
#include "model/ItemSelectionModel.h"
#include "tools/PaintTool.h"
#include "tools/ToolPanel.h"
#include "tools/effects/Filter.h"
#include "ui/PanelArea.h"

#include <QActionGroup>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int edge = 12;
constexpr int buttonsInARow = 4;

QString activeToolKey()
{
    return QStringLiteral("activeTool");
}

QString nameOf(const AngleImageTool &tool)
{
    return QString::fromLatin1(tool.metaObject()->className());
}

QString keyOf(const AngleImageTool &tool, const ToolSetting &setting)
{
    return nameOf(tool) + QLatin1Char('/') + setting.key;
}

QToolButton *createToolButton(QAction &action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(&action);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize({scaled(24), scaled(24)});
    button->setMinimumSize(scaled(66), scaled(56));
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action.text());
    return button;
}

QFrame *createLine()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    line->setFixedHeight(1);
    return line;
}

bool hasControls(const PaintTool &tool)
{
    return !tool.settingsPanel()->findChildren<QWidget *>().isEmpty();
}

QString helpOn(const PaintTool &tool)
{
    const QString tip = tool.action().statusTip();
    return tip.isEmpty() ? ToolsSidebar::tr("This tool has no settings.") : tip;
}
} // namespace

ToolsSidebar::ToolsSidebar(ItemSelectionModel &selection,
                           GSettings &settings,
                           std::vector<std::unique_ptr<PaintTool>> tools,
                           std::vector<std::unique_ptr<Filter>> effects,
                           QWidget *parent)
    : QWidget(parent)
    , m_selection(selection)
    , m_store(settings)
    , m_tools(std::move(tools))
    , m_effects(std::move(effects))
    , m_actions(new QActionGroup(this))
    , m_settings(new PanelArea)
    , m_help(createQuietText(QString()))
    , m_whyAtRest(createPanelTitle(tr("Select one sprite")))
{
    setObjectName(QStringLiteral("toolsSidebar"));
    setWindowTitle(tr("Tools"));
    setMinimumWidth(scaled(315));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHorizontalStretch(0);
    setSizePolicy(policy);

    std::vector<AngleImageTool *> shown;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createSidebarTitle(tr("Tools")));
    for (const auto &effect : m_effects)
        shown.push_back(effect.get());
    layout->addWidget(createButtons(tr("Effects"), shown));
    shown.clear();
    for (const auto &tool : m_tools)
        shown.push_back(tool.get());
    layout->addWidget(createButtons(tr("Brushes & Tools"), shown));
    layout->addWidget(createLine());
    layout->addWidget(createSettings(), 1);
    // Labels in other languages may need more.
    setMinimumWidth(std::max(minimumWidth(), layout->minimumSize().width()));

    registerActions();
    connect(m_actions, &QActionGroup::triggered, this, &ToolsSidebar::takeTriggered);
    connect(&m_selection, &ItemSelectionModel::bodySelectionChanged, this, [this] {
        if (m_selection.selection().size() != m_selectedCount)
            updateActions();
    });
    restoreSettings();
    if (!m_tools.empty())
        activate(lastActiveTool());
    updateActions();
}

// The tools go before the base class, and their panels leave the layout with them.
ToolsSidebar::~ToolsSidebar()
{
    for (const AngleImageTool *tool : allTools())
        keepSettings(*tool);
}

void ToolsSidebar::setOpenEffect(Filter *effect)
{
    if (effect == m_openEffect)
        return;
    if (!m_openEffect)
        m_formerTool = m_activeTool;
    if (m_openEffect) {
        keepSettings(*m_openEffect);
        m_openEffect->action().setChecked(false);
    }
    m_openEffect = effect;
    if (effect) {
        effect->action().setChecked(true);
        activate(nullptr);
    } else {
        activate(m_formerTool);
    }
    updateActions();
}

void ToolsSidebar::updateActions()
{
    m_selectedCount = m_selection.selection().size();
    for (const AngleImageTool *tool : allTools())
        tool->action().setEnabled(isUsable(*tool));
    showWhyAtRest();
}

bool ToolsSidebar::isUsable(const AngleImageTool &tool) const
{
    if (m_openEffect)
        return &tool == m_openEffect;
    return m_selectedCount == 1 || (m_selectedCount > 1 && tool.worksOnSeveralBodies());
}

void ToolsSidebar::showWhyAtRest()
{
    m_whyAtRest->setVisible(m_activeTool && !isUsable(*m_activeTool));
}

void ToolsSidebar::addToolActions(QMenu &menu) const
{
    for (const auto &tool : m_tools)
        menu.addAction(&tool->action());
    for (const auto &effect : m_effects) {
        if (effect->hasShortLabel())
            menu.addAction(&effect->action());
    }
}

void ToolsSidebar::addEditActions(QMenu &menu) const
{
    for (const auto &effect : m_effects) {
        if (!effect->hasShortLabel())
            menu.addAction(&effect->action());
    }
}

void ToolsSidebar::reloadTools()
{
    for (const auto &tool : m_tools)
        tool->reload();
}

QWidget *ToolsSidebar::createButtons(const QString &title,
                                     const std::vector<AngleImageTool *> &shown)
{
    auto *group = new QWidget;
    auto *grid = new QGridLayout(group);
    grid->setContentsMargins(scaled(edge), scaled(4), scaled(edge), scaled(edge));
    grid->setSpacing(scaled(4));
    QLabel *heading = createPanelTitle(title);
    heading->setContentsMargins(0, 0, 0, scaled(4));
    grid->addWidget(heading, 0, 0, 1, buttonsInARow);
    int count = 0;
    int width = scaled(66);
    for (const AngleImageTool *tool : shown) {
        if (!tool->hasShortLabel())
            continue;
        QToolButton *button = createToolButton(tool->action());
        // A label of another language may need more.
        width = std::max(width, button->sizeHint().width());
        grid->addWidget(button, 1 + count / buttonsInARow, count % buttonsInARow);
        ++count;
    }
    for (int column = 0; column < buttonsInARow; ++column) {
        grid->setColumnStretch(column, 1);
        grid->setColumnMinimumWidth(column, width);
    }
    group->setVisible(count > 0);
    return group;
}

QWidget *ToolsSidebar::createSettings()
{
    auto *section = new QWidget;
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *title = createPanelTitle(tr("TOOL SETTINGS"));
    auto *heading = new QHBoxLayout;
    heading->setContentsMargins(scaled(edge), scaled(edge), scaled(edge), scaled(8));
    heading->addWidget(title);
    heading->addStretch();
    heading->addWidget(m_whyAtRest);
    layout->addLayout(heading);
    layout->addWidget(m_settings);
    layout->addStretch();
    m_help->setContentsMargins(scaled(edge), 0, scaled(edge), scaled(edge));
    m_settings->addPanel(m_help);
    for (const auto &tool : m_tools) {
        QWidget *panel = tool->settingsPanel();
        if (panel->layout())
            panel->layout()->setContentsMargins(scaled(edge), 0, scaled(edge), scaled(edge));
        m_settings->addPanel(panel);
        panel->hide();
        // The keys go on working while the sidebar is hidden.
        tool->moveShortcuts(*window());
    }
    return section;
}

std::vector<AngleImageTool *> ToolsSidebar::allTools() const
{
    std::vector<AngleImageTool *> all;
    for (const auto &tool : m_tools)
        all.push_back(tool.get());
    for (const auto &effect : m_effects)
        all.push_back(effect.get());
    return all;
}

void ToolsSidebar::registerActions()
{
    for (const AngleImageTool *tool : allTools()) {
        tool->action().setObjectName(nameOf(*tool));
        m_actions->addAction(&tool->action());
        addAction(&tool->action());
    }
}

void ToolsSidebar::takeTriggered(QAction *action)
{
    for (const auto &tool : m_tools) {
        if (&tool->action() == action && tool.get() != m_activeTool)
            activate(tool.get());
    }
    for (const auto &effect : m_effects) {
        if (&effect->action() != action || effect.get() == m_openEffect)
            continue;
        Q_EMIT effectRequested(effect.get());
        // Refused, or finished already.
        if (!m_openEffect && m_activeTool)
            m_activeTool->action().setChecked(true);
    }
}

void ToolsSidebar::activate(PaintTool *tool)
{
    if (m_activeTool)
        keepSettings(*m_activeTool);
    m_activeTool = tool;
    if (tool) {
        tool->action().setChecked(true);
        m_store.setValue(activeToolKey(), nameOf(*tool));
    }
    showSettings();
    showWhyAtRest();
    Q_EMIT activeToolChanged(tool);
}

void ToolsSidebar::showSettings()
{
    for (const auto &tool : m_tools)
        tool->settingsPanel()->setVisible(tool.get() == m_activeTool && hasControls(*tool));
    const bool showsPanel = m_activeTool && hasControls(*m_activeTool);
    m_help->setVisible(!showsPanel);
    m_help->setText(m_activeTool ? helpOn(*m_activeTool)
                                 : tr("Apply or discard the effect to go on with a tool."));
    m_settings->verticalScrollBar()->setValue(0);
}

void ToolsSidebar::restoreSettings()
{
    for (const AngleImageTool *tool : allTools()) {
        for (const ToolSetting &setting : tool->settings()) {
            const QVariant kept = m_store.value(keyOf(*tool, setting));
            if (kept.isValid())
                setting.write(kept);
        }
    }
}

void ToolsSidebar::keepSettings(const AngleImageTool &tool)
{
    for (const ToolSetting &setting : tool.settings())
        m_store.setValue(keyOf(tool, setting), setting.read());
}

PaintTool *ToolsSidebar::lastActiveTool() const
{
    const QString name = m_store.value(activeToolKey()).toString();
    const auto isIt = [&name](const auto &tool) { return nameOf(*tool) == name; };
    const auto last = std::find_if(m_tools.begin(), m_tools.end(), isIt);
    return last == m_tools.end() ? m_tools.front().get() : last->get();
}
