#pragma once

#include <QWidget>

class GAction;
class ItemSelectionModel;
class Project;
class ShapeTreeView;
class QAction;
class QMenu;

/// The left panel: the list of sprites with the properties of the selected ones, the display modes
/// and what belongs to the present mode.
class SpritesSidebar : public QWidget
{
    Q_OBJECT

public:
    explicit SpritesSidebar(ItemSelectionModel &selection, QWidget *parent = nullptr);
    ~SpritesSidebar() override;

    void setProject(Project *project);
    ShapeTreeView &list() const { return *m_list; }
    /// 0 texture, 1 lit surface, 2 lit texture, 3 normal map.
    int displayMode() const;
    void setDisplayMode(int index);
    /// The display modes and the light's actions.
    void addViewActions(QMenu &menu) const;

Q_SIGNALS:
    void displayModeChanged(int index);
    void autoRotateLightToggled(bool isOn);
    /// 0 to 1.
    void textureOverlayChanged(double factor);

private:
    ShapeTreeView *m_list = nullptr;
};
