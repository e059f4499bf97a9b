#pragma once

#include "model/PixelSelectionModel.h"
#include "ui/WindowPrompts.h"

#include <QWidget>

class EditorGraphicsViewVesperine;
class EffectRouting;
class Filter;
class ItemSelectionModel;
class NormalMapEditorScene;
class Project;
class ToolsSidebar;
class ZoomWidget;
class QMenu;
struct PointedPixel;

/// The middle of the window: the view of the sprites, the effect that is open on them, and the
/// commands on their pixels. Item selection and prompts are borrowed.
class NormalMapEditor : public QWidget
{
    Q_OBJECT

public:
    NormalMapEditor(ItemSelectionModel &bodies, WindowPrompts &prompts, QWidget *parent = nullptr);
    ~NormalMapEditor() override;

    /// Shows @p project, all of it; called before the former one goes.
    void setProject(Project *project);
    /// Ends an open stroke with its undo step.
    void finishGesture();
    bool hasOpenEffect() const;
    /// As EffectRouting does.
    bool settleEffect(WindowPrompts::AfterEffect next);
    /// Ends the open effect as if it had never been; nothing without one. To be called before the
    /// window goes.
    void discardEffect();
    /// Follows the sidebar's active tool, which outlives the editor's last event, and opens its
    /// effects.
    void setToolsSidebar(ToolsSidebar &sidebar);
    /// Zoom of the view and the widget become one.
    void setZoomWidget(ZoomWidget &zoom);
    /// "Deselect " and "Invert selection".
    void addDrawActions(QMenu &menu) const;
    QWidget &view() const;
    NormalMapEditorScene &scene() const { return *m_scene; }

    /// @p body as the lit texture shows it, the light where it stands. Null when that fails.
    QImage litImage(Body &body);

public Q_SLOTS:
    /// 0 texture, 1 lit surface, 2 lit texture, 3 normal map; others are kept, but not shown.
    void setDisplayMode(int index);
    void setAutoRotateLight(bool isOn);
    void setTextureOverlay(double factor);
    void zoomToFit();
    /// Shows the selected sprites; all with none selected.
    void zoomToSelection();
    /// All pixels of the selected bodies.
    void selectAllPixels();
    void clearSelection();
    void invertSelection();

Q_SIGNALS:
    /// An effect has opened, or closed. While it is open, what it works on must stay as it is.
    void effectOpenChanged(bool isOpen);
    void pathsDropped(const QStringList &paths);
    void pointedPixelChanged(const PointedPixel &pixel);
    /// A line for the status bar.
    void noticed(const QString &message);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void openEffect(Filter *effect);
    void followEffect(const Filter *effect);
    void followContent();

    ItemSelectionModel &m_bodies;
    PixelSelectionModel m_pixels;
    NormalMapEditorScene *m_scene;
    EditorGraphicsViewVesperine *m_view;
    EffectRouting *m_effects;
    Project *m_project = nullptr;
    QAction *m_deselect;
    QAction *m_invert;
    int m_displayMode = 2;
    bool m_isEmpty = true;
};
