#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "preview/GLGraphicsScene.h"
#include "tools/InteractionMode.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointF>
#include <QPointer>
#include <QTimer>

class Body;
class ItemSelectionModel;
class PaintTool;
class PixelSelectionModel;
class Project;
class ScalableToolCursor;
class SpriteItem;
class ToolCursor;

/// The pixel of a sprite that the pointer is over.
struct PointedPixel
{
    Body *body = nullptr; ///< null when the pointer is over none
    QPoint pixel;
    QPointF slope; ///< x and y, 1 is 45 degrees
    QColor normal; ///< as the normal map has it
};

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
    SpriteItem *spriteItem(const Body *body) const { return m_items.value(body); }
    /// The rectangle of all sprites; empty without any.
    QRectF spritesRect() const;
    /// What a view shows to begin with: all sprites, or the start screen.
    QRectF contentRect() const;

    PaintTool *tool() const { return m_tool; }
    /// The tool that gets the events from now on; deactivates the former one. Null for none.
    void setTool(PaintTool *tool);
    /// Only looking, while Space is held: overrides what the tool asked for.
    void setViewOnly(bool isViewOnly);
    InteractionMode interactionMode() const;

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

private:
    QHash<const Body *, SpriteItem *> m_items;
    Body *m_currentBody = nullptr;
    PaintTool *m_tool = nullptr;
};
