#include "ui/NormalMapEditor.h"

#include "base/Error.h"
#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "model/ItemSelectionModel.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "preview/ZoomWidget.h"
#include "tools/PaintTool.h"
#include "tools/effects/Filter.h"
#include "ui/DroppedPaths.h"
#include "ui/EffectRouting.h"
#include "ui/ToolsSidebar.h"

#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QVBoxLayout>

NormalMapEditor::NormalMapEditor(ItemSelectionModel &bodies,
                                 WindowPrompts &prompts,
                                 QWidget *parent)
    : QWidget(parent)
    , m_bodies(bodies)
    , m_scene(new NormalMapEditorScene(bodies, m_pixels, this))
    , m_view(new EditorGraphicsViewVesperine(this))
    , m_effects(new EffectRouting(*m_scene, prompts, this))
    , m_deselect(
          new GAction(themedIcon(QStringLiteral(":/icons/deselect.svg")), tr("Deselect "), this))
    , m_invert(new GAction(
          themedIcon(QStringLiteral(":/icons/invert_selection.svg")), tr("Invert selection"), this))
{
    setAcceptDrops(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHorizontalStretch(100);
    setSizePolicy(policy);
    m_view->setEditorScene(m_scene);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAccessibleName(tr("Preview"));
    m_view->setAcceptDrops(false);
    m_view->viewport()->setAcceptDrops(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_view, 1000);

    m_deselect->setObjectName(QStringLiteral("deselect"));
    m_invert->setObjectName(QStringLiteral("invertSelection"));
    m_deselect->setShortcut(QKeySequence(QStringLiteral("Ctrl+D")));
    m_invert->setShortcut(QKeySequence(QStringLiteral("Shift+Ctrl+I")));
    connect(m_deselect, &QAction::triggered, this, &NormalMapEditor::clearSelection);
    connect(m_invert, &QAction::triggered, this, &NormalMapEditor::invertSelection);
    const auto *placeLight = new QShortcut(QKeySequence(Qt::Key_P), this);
    connect(placeLight, &QShortcut::activated, m_scene, &NormalMapEditorScene::moveLightToPointer);
    connect(m_scene,
            &NormalMapEditorScene::pointedPixelChanged,
            this,
            &NormalMapEditor::pointedPixelChanged);
    connect(
        m_scene, &NormalMapEditorScene::contentRectChanged, this, &NormalMapEditor::followContent);
    connect(m_scene, &NormalMapEditorScene::noticed, this, &NormalMapEditor::noticed);
    connect(m_effects, &EffectRouting::noticed, this, &NormalMapEditor::noticed);
    connect(m_effects, &EffectRouting::effectChanged, this, &NormalMapEditor::followEffect);
}

NormalMapEditor::~NormalMapEditor()
{
    // The scene uses the pixel selection, which would go before it.
    m_scene->setTool(nullptr);
    delete m_view;
    delete m_scene;
}

void NormalMapEditor::setProject(Project *project)
{
    discardEffect();
    finishGesture();
    m_project = project;
    m_pixels.setProject(project);
    m_scene->setProject(project);
    zoomToFit();
}

void NormalMapEditor::finishGesture()
{
    m_scene->finishGesture();
}

void NormalMapEditor::setToolsSidebar(ToolsSidebar &sidebar)
{
    connect(&sidebar, &ToolsSidebar::activeToolChanged, m_scene, &NormalMapEditorScene::setTool);
    m_scene->setTool(sidebar.activeTool());
    connect(&sidebar, &ToolsSidebar::effectRequested, this, &NormalMapEditor::openEffect);
    connect(m_effects, &EffectRouting::effectChanged, &sidebar, &ToolsSidebar::setOpenEffect);
}

bool NormalMapEditor::hasOpenEffect() const
{
    return m_effects->effect();
}

bool NormalMapEditor::settleEffect(WindowPrompts::AfterEffect next)
{
    return m_effects->settle(next);
}

void NormalMapEditor::discardEffect()
{
    m_effects->discard();
}

void NormalMapEditor::openEffect(Filter *effect)
{
    if (m_project)
        m_effects->open(*effect,
                        {m_bodies.selection(), &m_pixels, m_project->mapSuffix(), window()});
}

void NormalMapEditor::followEffect(const Filter *effect)
{
    m_scene->setSelectionLocked(effect);
    m_deselect->setDisabled(effect);
    m_invert->setDisabled(effect);
    Q_EMIT effectOpenChanged(effect);
}

void NormalMapEditor::setZoomWidget(ZoomWidget &zoom)
{
    connect(m_view, &EditorGraphicsView::zoomChanged, &zoom, &ZoomWidget::setZoom);
    connect(&zoom, &ZoomWidget::zoomRequested, m_view, &EditorGraphicsView::setZoom);
    connect(&zoom, &ZoomWidget::fitRequested, this, &NormalMapEditor::zoomToFit);
    connect(&zoom, &ZoomWidget::selectionRequested, this, &NormalMapEditor::zoomToSelection);
    zoom.setZoom(m_view->zoom());
}

void NormalMapEditor::addDrawActions(QMenu &menu) const
{
    menu.addAction(m_deselect);
    menu.addAction(m_invert);
}

QWidget &NormalMapEditor::view() const
{
    return *m_view;
}

QImage NormalMapEditor::litImage(Body &body)
{
    SpriteItem *item = m_scene->spriteItem(&body);
    if (!item)
        return {};
    item->processor().waitForIdle();
    try {
        return m_scene->litImage(*item);
    } catch (const Error &error) {
        qWarning("%s", qUtf8Printable(error.message()));
        return {};
    }
}

void NormalMapEditor::setDisplayMode(int index)
{
    m_displayMode = index;
    if (index >= 0 && index <= 3)
        m_scene->setDisplayMode(DisplayMode(index + 1));
}

void NormalMapEditor::setAutoRotateLight(bool isOn)
{
    m_scene->setAutoRotateLight(isOn);
}

void NormalMapEditor::setTextureOverlay(double factor)
{
    m_scene->setTextureOverlayFactor(float(factor));
}

void NormalMapEditor::zoomToFit()
{
    m_view->zoomToFit(m_scene->contentRect());
}

void NormalMapEditor::zoomToSelection()
{
    const QRectF selected = m_scene->selectedRect();
    m_view->zoomToFit(selected.isEmpty() ? m_scene->contentRect() : selected);
}

// The zoom of the sprites is none for the start screen, nor the other way round. Only when all
// sprites are there that come with the first one.
void NormalMapEditor::followContent()
{
    if (const bool isEmpty = m_scene->spritesRect().isEmpty(); isEmpty != m_isEmpty) {
        m_isEmpty = isEmpty;
        QMetaObject::invokeMethod(this, &NormalMapEditor::zoomToFit, Qt::QueuedConnection);
    }
}

void NormalMapEditor::selectAllPixels()
{
    m_pixels.selectAll(m_bodies.selection());
}

void NormalMapEditor::clearSelection()
{
    m_pixels.clear(m_bodies.selection());
}

void NormalMapEditor::invertSelection()
{
    m_pixels.invert(m_bodies.selection());
}

void NormalMapEditor::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedPaths(*event->mimeData()).isEmpty())
        acceptCopy(*event);
}

void NormalMapEditor::dropEvent(QDropEvent *event)
{
    acceptCopy(*event);
    Q_EMIT pathsDropped(droppedPaths(*event->mimeData()));
}
