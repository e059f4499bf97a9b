#pragma once

#include "preview/DisplayMode.h"
#include "preview/EditorScene.h"
#include "preview/SceneLight.h"

#include <memory>

class GLGraphicsLight;
class GLGraphicsSprite;
class SceneRenderer;

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
    /// Redraws again and again while set, at least a millisecond apart; seldom in a window
    /// that does not show.
    void setAnimating(bool isAnimating);

    /// @p sprite as the lit texture shows it in its own size, the light where it stands: in
    /// QImage::Format_ARGB32, transparent around. Null without an OpenGL context.
    QImage litImage(GLGraphicsSprite &sprite);

    /// Frees the textures and programs of the current context; they are made again when needed.
    void releaseGraphics();

public Q_SLOTS:
    void timedAdvance();
    void scheduleAdvance();

Q_SIGNALS:
    /// @p sprite is larger than a texture may be, which is @p limit pixels wide and high, and drawn
    /// from a smaller one; told once for each sprite.
    void spriteScaledDown(GLGraphicsSprite *sprite, int limit);

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    bool isSeen() const;
    void useCurrentContext();
    void drawFrame(const QPainter &painter);
    QVector<GLGraphicsSprite *> sprites() const;
    void nameScaledDown(GLGraphicsSprite &sprite);

    DisplayMode m_displayMode = DisplayMode::LitTexture;
    SceneLight m_sceneLight;
    float m_textureOverlayFactor = 0.0F;
    GLGraphicsLight *m_light;
    bool m_isAnimating = false;
    bool m_isAdvanceScheduled = false;
    std::unique_ptr<SceneRenderer> m_renderer;
    QMetaObject::Connection m_contextEnd;
    bool m_hasFailed = false;
};
