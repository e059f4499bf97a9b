#pragma once

#include <QWidget>

#include <array>

class Body;
class GAction;
class ItemSelectionModel;
class Project;
class PropertyStructEdit;
class ShapeTreeView;

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
class QSlider;
QT_END_NAMESPACE

/// The left panel: the list of sprites with the properties of the selected ones, the display modes
/// and what belongs to the present mode.
class SpritesSidebar : public QWidget
{
    Q_OBJECT

public:
    explicit SpritesSidebar(ItemSelectionModel &selection, QWidget *parent = nullptr);
    ~SpritesSidebar() override;

    /// Shows @p project (null for none); called before the former one goes.
    void setProject(Project *project);
    /// Sprites can neither be selected nor changed while they are locked.
    void setSpritesLocked(bool isLocked);
    ShapeTreeView &list() const { return *m_list; }
    /// 0 texture, 1 lit surface, 2 lit texture, 3 normal map.
    int displayMode() const;
    void setDisplayMode(int index);
    /// The display modes and the light's actions.
    void addViewActions(QMenu &menu) const;

Q_SIGNALS:
    /// The selected sprites got another image.
    void imageChosen();
    void displayModeChanged(int index);
    void autoRotateLightToggled(bool isOn);
    /// 0 to 1.
    void textureOverlayChanged(double factor);

private:
    void createDisplayModes();
    QWidget *createSpritePanel();
    QWidget *createDisplayModePanel();
    QWidget *createLightPanel();
    QWidget *createNormalMapPanel();
    QWidget *createAutoRotateRow();
    void showPanels(int mode);
    void showSprites(const QList<Body *> &bodies);

    ItemSelectionModel &m_selection;
    ShapeTreeView *m_list;
    std::array<GAction *, 4> m_displayModes{};
    GAction *m_autoRotate;
    PropertyStructEdit *m_spriteEdit = nullptr;
    PropertyStructEdit *m_lightEdit = nullptr;
    QWidget *m_spritePanel = nullptr;
    QWidget *m_lightPanel = nullptr;
    QWidget *m_normalMapPanel = nullptr;
};
