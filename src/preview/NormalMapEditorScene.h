#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "preview/GLGraphicsScene.h"
#include "preview/PointedPixel.h"
#include "tools/InteractionMode.h"

#include <QCursor>
#include <QRectF>

#include <memory>

class Body;
class BodyItems;
class FloatImage;
class GLGraphicsSprite;
class ItemSelectionModel;
class LightRotation;
class PaintTool;
class PixelSelectionModel;
class Project;
class ProjectLight;
class ScalableToolCursor;
class ScenePointer;
class SceneSelection;
class SpriteItem;
class StartScreen;
class ToolRouting;

/// The editor's scene: a sprite item for each body of a project, the light, the pointer of the
/// active tool, and whatever the mouse does there. Selections, project and tools are borrowed.
class NormalMapEditorScene : public GLGraphicsScene, public Observer
{
    Q_OBJECT

public:
    NormalMapEditorScene(ItemSelectionModel &bodies,
                         PixelSelectionModel &pixels,
                         QObject *parent = nullptr);
    ~NormalMapEditorScene() override;

    /// Shows @p project (null for none) from now on; called before the former one goes.
    void setProject(Project *project);
    /// The one selected body, null with none or several.
    Body *currentBody() const { return m_currentBody; }
    /// Null when the scene does not show @p body.
    SpriteItem *spriteItem(const Body *body) const;
    /// The rectangle of all sprites; empty without any.
    QRectF spritesRect() const;
    /// The rectangle of the selected sprites; empty without any.
    QRectF selectedRect() const;
    QPointF contentNear(const QPointF &place) const override;
    /// What a view shows to begin with: all sprites, or the start screen.
    QRectF contentRect() const;

    PaintTool *tool() const;
    /// The tool that gets the events from now on; deactivates the former one. Null for none.
    void setTool(PaintTool *tool);
    /// Only looking, while Space is held: overrides what the tool asked for.
    void setViewOnly(bool isViewOnly) override;
    /// Sprites are neither selected nor moved by the mouse while this is set.
    void setSelectionLocked(bool isLocked);
    InteractionMode interactionMode() const;
    void setPen(const PenTouch &touch) override;
    /// Between a press and its release, be it a stroke or sprites that are moved.
    bool isGestureOpen() const;
    /// A stroke or a move becomes its undo step.
    void finishGesture() override;
    bool turnWheel(double notches, Qt::KeyboardModifiers modifiers) override;

    void setDisplayMode(DisplayMode mode) override;
    void setAutoRotateLight(bool isOn);
    /// Moves the light to where the pointer was last.
    void moveLightToPointer();

    void observableChanged(Observable &observable) override;

Q_SIGNALS:
    void pointedPixelChanged(const PointedPixel &pixel);
    /// Sprites have come, gone, moved or changed their size.
    void contentRectChanged();
    /// Something that can't be shown as it is, such as a sprite larger than textures may be.
    void noticed(const QString &message);

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void connectParts(ItemSelectionModel &bodies, PixelSelectionModel &pixels);
    void updateItems();
    void addItem(SpriteItem *item);
    void dropItem(SpriteItem *item);
    void followPlace();
    void updateContent();

    void updateCurrentBody();
    void showPixelSelection(Body *body, const FloatImage &mask);
    void updateAnimating();
    void setToolCursor(const ScalableToolCursor &cursor);

    const SpriteItem *itemHere() const;
    QCursor pointerHere() const;
    void updateHover();
    void updatePointedPixel();
    using ToolOperation = void (ToolRouting::*)(const QGraphicsSceneMouseEvent &);
    void pressed(QGraphicsSceneMouseEvent &event, ToolOperation operation);
    void updateViews();
    void noticeScaledDown(GLGraphicsSprite *sprite, int limit);

    ItemSelectionModel &m_bodies;
    PixelSelectionModel &m_pixels;
    Project *m_project = nullptr;
    Observation m_listObservation;

    std::unique_ptr<BodyItems> m_items;
    std::unique_ptr<StartScreen> m_startScreen;
    std::unique_ptr<ToolRouting> m_routing;
    std::unique_ptr<SceneSelection> m_selection;
    std::unique_ptr<ProjectLight> m_projectLight;
    std::unique_ptr<ScenePointer> m_pointer;
    std::unique_ptr<LightRotation> m_rotation;

    Body *m_currentBody = nullptr;
    bool m_isContentDue = false;
    bool m_isViewOnly = false;
    bool m_isSelectionLocked = false;
    PointedPixel m_pointed;
};
