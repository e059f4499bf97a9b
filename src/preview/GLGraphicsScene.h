#pragma once

#include "preview/EditorScene.h"

#include <QColor>

class GLGraphicsLight;
class GLGraphicsSprite;

/// How the sprites are shown; the number is known to the shaders.
enum class DisplayMode { Texture = 1, LitSurface = 2, LitTexture = 3, NormalMap = 4 };

/// The light settings that are the same for the whole scene.
struct SceneLight
{
    QColor color = Qt::white; ///< its alpha is the intensity
    QColor ambient = QColor(0x80, 0x80, 0x80);
    float brightness = 100.0F; ///< percent
};

/// Draws all sprites with shaders, below the items that the toolkit paints. The view's viewport
/// needs to be an OpenGL widget.
class GLGraphicsScene : public EditorScene
{
    Q_OBJECT

public:
    explicit GLGraphicsScene(QObject *parent = nullptr);
    ~GLGraphicsScene() override;

    DisplayMode displayMode() const { return m_displayMode; }
    /// The light item shows in the lit modes only.
    virtual void setDisplayMode(DisplayMode mode);
    void setDisplayScaleFactor(float factor) override;
    /// 0 shows normal maps alone, 1 with the sprite's luminance over them.
    void setTextureOverlayFactor(float factor);
    void setSceneLight(const SceneLight &light);
    const SceneLight &sceneLight() const { return m_sceneLight; }

    GLGraphicsLight &light() const { return *m_light; }
    bool isAnimating() const { return m_isAnimating; }
    /// Redraws again and again while set, at least a millisecond apart.
    void setAnimating(bool isAnimating);

    /// @p sprite as the lit texture shows it in its own size, the light where it stands: in
    /// QImage::Format_ARGB32, transparent around. Null without an OpenGL context.
    QImage litImage(GLGraphicsSprite &sprite);

    /// Frees the textures and programs of the current context; they are made again when needed.
    void releaseGraphics();

public Q_SLOTS:
    void timedAdvance();
    void scheduleAdvance();

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    DisplayMode m_displayMode = DisplayMode::LitTexture;
    SceneLight m_sceneLight;
    GLGraphicsLight *m_light;
    bool m_isAnimating = false;
};
