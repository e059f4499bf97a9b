#pragma once

#include "model/PixelSelectionModel.h"

#include <QWidget>

class EditorGraphicsViewVesperine;
class ItemSelectionModel;
class NormalMapEditorScene;
class Project;
class ToolsSidebar;
class ZoomWidget;
class QMenu;
struct PointedPixel;

/// The middle of the window: the view of the sprites, and the commands on their pixels. The item
/// selection is borrowed.
class NormalMapEditor : public QWidget
{
    Q_OBJECT

public:
    explicit NormalMapEditor(ItemSelectionModel &bodies, QWidget *parent = nullptr);
    ~NormalMapEditor() override;

    /// Shows @p project, all of it; called before the former one goes.
    void setProject(Project *project);
    /// Ends an open stroke with its undo step.
    void finishGesture();
    /// Follows the sidebar's active tool, which outlives the editor's last event.
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
    /// All pixels of the selected bodies.
    void selectAllPixels();
    void clearSelection();
    void invertSelection();

Q_SIGNALS:
    void pathsDropped(const QStringList &paths);
    void pointedPixelChanged(const PointedPixel &pixel);
    /// A line for the status bar.
    void noticed(const QString &message);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    ItemSelectionModel &m_bodies;
    PixelSelectionModel m_pixels;
    NormalMapEditorScene *m_scene;
    EditorGraphicsViewVesperine *m_view;
    QAction *m_deselect;
    QAction *m_invert;
    int m_displayMode = 2;
};
