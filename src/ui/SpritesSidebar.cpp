#include "ui/SpritesSidebar.h"

#include "framework/ControlSizes.h"
#include "framework/EditorKeys.h"
#include "framework/GAction.h"
#include "framework/PanelLabels.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"
#include "model/ItemSelectionModel.h"
#include "model/Project.h"
#include "ui/PanelArea.h"
#include "ui/ShapeTreeView.h"
#include "ui/properties/PropertyStructEdit.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
constexpr int edge = 12;
constexpr int litTexture = 2;
constexpr int normalMap = 3;

// A panel with a title; what is below it is added to its layout.
QVBoxLayout *createPanel(const QString &title)
{
    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(scaled(edge), scaled(edge), scaled(edge), scaled(4));
    layout->setSpacing(scaled(8));
    layout->addWidget(createPanelTitle(title));
    return layout;
}

QToolButton *createDisplayModeButton(QAction &action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(&action);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize({scaled(32), scaled(32)});
    button->setFixedSize(scaled(58), scaled(68));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action.text());
    return button;
}
} // namespace

SpritesSidebar::SpritesSidebar(ItemSelectionModel &selection, QWidget *parent)
    : QWidget(parent)
    , m_selection(selection)
    , m_list(new ShapeTreeView(selection))
    , m_autoRotate(new GAction(tr("Auto-rotate light"), this))
{
    setObjectName(QStringLiteral("spritesSidebar"));
    setWindowTitle(tr("Sprites"));
    createDisplayModes();
    m_autoRotate->setObjectName(QStringLiteral("autoRotateLight"));
    m_autoRotate->setCheckable(true);
    m_autoRotate->setShortcut(QKeySequence(QStringLiteral("R")));
    connect(m_autoRotate, &QAction::toggled, this, &SpritesSidebar::autoRotateLightToggled);
    addAction(m_autoRotate);

    auto *title = createSidebarTitle(tr("Sprites"));
    title->setBuddy(m_list);
    auto *panels = new PanelArea;
    panels->addPanel(createSpritePanel());
    panels->addPanel(createDisplayModePanel());
    panels->addPanel(createLightPanel());
    panels->addPanel(createNormalMapPanel());

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(title);
    layout->addWidget(m_list, 1);
    layout->addWidget(panels);

    connect(&m_selection, &ItemSelectionModel::bodySelectionChanged, this, [this] {
        showSprites(m_selection.selection());
    });
    showSprites({});
    showPanels(litTexture);
}

SpritesSidebar::~SpritesSidebar() = default;

void SpritesSidebar::setProject(Project *project)
{
    m_list->setProject(project);
    m_lightEdit->setStructs(project ? QVector<PropertyStruct *>{project}
                                    : QVector<PropertyStruct *>(),
                            QStringLiteral("light"));
    showSprites(project ? m_selection.selection() : QList<Body *>());
}

void SpritesSidebar::setSpritesLocked(bool isLocked)
{
    m_list->setDisabled(isLocked);
    m_spritePanel->setDisabled(isLocked);
}

int SpritesSidebar::displayMode() const
{
    return m_displayModes.front()->actionGroup()->checkedAction()->data().toInt();
}

void SpritesSidebar::setDisplayMode(int index)
{
    for (GAction *action : m_displayModes) {
        if (action->data() == index && !action->isChecked())
            action->trigger();
    }
}

void SpritesSidebar::addViewActions(QMenu &menu) const
{
    for (GAction *action : m_displayModes)
        menu.addAction(action);
    menu.addSeparator();
    menu.addAction(m_autoRotate);
}

void SpritesSidebar::createDisplayModes()
{
    auto *group = new QActionGroup(this);
    const auto create =
        [&](int index, const QString &text, const QString &buttonText, const char *icon) {
            auto *action = new GAction(themedIcon(QLatin1String(icon)), text, this);
            action->setIconText(buttonText);
            action->setObjectName(QStringLiteral("displayMode%1").arg(index + 1));
            action->setCheckable(true);
            action->setData(index);
            action->setShortcut(QKeySequence(QStringLiteral("Alt+%1").arg(index + 1)));
            group->addAction(action);
            addAction(action);
            m_displayModes.at(index) = action;
        };
    create(0, tr("Texture"), tr("Texture"), ":/view/texture.svg");
    create(1, tr("Lit surface"), tr("Lit\nsurface"), ":/view/light.svg");
    create(2, tr("Lit texture"), tr("Lit\ntexture"), ":/view/texture+light.svg");
    create(3, tr("Normal map"), tr("Normal\nmap"), ":/view/normals.svg");
    m_displayModes.at(litTexture)->setChecked(true);
    connect(group, &QActionGroup::triggered, this, [this](const QAction *action) {
        showPanels(action->data().toInt());
        Q_EMIT displayModeChanged(action->data().toInt());
    });
}

QWidget *SpritesSidebar::createSpritePanel()
{
    auto *layout = createPanel(tr("Sprite"));
    m_spritePanel = layout->parentWidget();
    m_spriteEdit = new PropertyStructEdit;
    layout->addWidget(m_spriteEdit);
    connect(m_spriteEdit, &PropertyStructEdit::edited, this, [this](const QString &key) {
        if (key == QLatin1String("filename"))
            Q_EMIT imageChosen();
    });
    return m_spritePanel;
}

QWidget *SpritesSidebar::createDisplayModePanel()
{
    auto *layout = createPanel(tr("Display modes"));
    layout->setContentsMargins(scaled(edge), scaled(edge), scaled(edge), scaled(edge));
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(scaled(4));
    for (GAction *action : m_displayModes)
        buttons->addWidget(createDisplayModeButton(*action));
    buttons->addStretch();
    layout->addLayout(buttons);
    return layout->parentWidget();
}

QWidget *SpritesSidebar::createLightPanel()
{
    auto *settings = createPanel(tr("Global light"));
    settings->setContentsMargins(scaled(edge), scaled(4), scaled(edge), scaled(4));
    m_lightEdit = new PropertyStructEdit;
    settings->addWidget(m_lightEdit);
    m_lightPanel = new QWidget;
    auto *layout = new QVBoxLayout(m_lightPanel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(settings->parentWidget());
    layout->addWidget(createAutoRotateRow());
    layout->addSpacing(scaled(12));
    return m_lightPanel;
}

QWidget *SpritesSidebar::createAutoRotateRow()
{
    // The action has the shortcut, so that it also works while the panel is hidden.
    auto *box = new QCheckBox(m_autoRotate->text());
    box->setToolTip(m_autoRotate->toolTip());
    connect(m_autoRotate, &QAction::changed, box, [this, box] {
        box->setToolTip(m_autoRotate->toolTip());
    });
    box->setFocusPolicy(Qt::TabFocus);
    connect(box, &QCheckBox::toggled, m_autoRotate, &QAction::setChecked);
    connect(m_autoRotate, &QAction::toggled, box, &QCheckBox::setChecked);
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, scaled(6), scaled(15), scaled(6));
    layout->addStretch();
    layout->addWidget(box);
    return row;
}

QWidget *SpritesSidebar::createNormalMapPanel()
{
    auto *layout = createPanel(tr("Normal map"));
    layout->setContentsMargins(scaled(edge), scaled(4), scaled(edge), scaled(4));
    m_normalMapPanel = layout->parentWidget();
    auto *label = new QLabel(tr("Texture overlay"));
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, 100);
    slider->setAccessibleName(label->text());
    slider->setToolTip(tr("How much of the texture is seen over the normal map"));
    label->setBuddy(slider);
    auto *keys = new EditorKeys(
        *slider, [] {}, [] { return false; }, slider);
    keys->watch(*slider);
    connect(slider, &QSlider::valueChanged, this, [this](int percent) {
        Q_EMIT textureOverlayChanged(percent / 100.0);
    });
    auto *grid = new QGridLayout;
    grid->setSpacing(scaled(controlSpacing));
    grid->setColumnMinimumWidth(0, scaled(labelColumnWidth));
    grid->addWidget(label, 0, 0);
    grid->addWidget(slider, 0, 1);
    layout->addLayout(grid);
    layout->addSpacing(scaled(12));
    return m_normalMapPanel;
}

void SpritesSidebar::showPanels(int mode)
{
    m_lightPanel->setVisible(mode == 1 || mode == litTexture);
    m_normalMapPanel->setVisible(mode == normalMap);
}

void SpritesSidebar::showSprites(const QList<Body *> &bodies)
{
    QVector<PropertyStruct *> structs;
    for (Body *body : bodies)
        structs.append(body);
    m_spriteEdit->setStructs(structs);
    m_spritePanel->setVisible(!bodies.isEmpty());
}
