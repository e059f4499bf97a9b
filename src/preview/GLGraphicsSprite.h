#pragma once

#include "preview/SpriteTexture.h"

#include <QGraphicsItem>
#include <QImage>

/// A sprite as the scene draws it: three images and a texture for each. Textures are made at the
/// first draw and belong to the OpenGL context of the view.
class GLGraphicsSprite : public QGraphicsItem
{
public:
    enum { Type = UserType + 1 };

    explicit GLGraphicsSprite(QGraphicsItem *parent = nullptr);
    ~GLGraphicsSprite() override;

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    /// Draws nothing: the scene draws all sprites itself in its background pass.
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

    const QImage &colorImage() const { return m_color.image(); }
    const QImage &normalImage() const { return m_normals.image(); }
    void setColorImage(const QImage &image);
    /// Only @p changed, in pixels, is uploaded again; a null rectangle means the whole image.
    void setNormalImage(const QImage &image, const QRect &changed = QRect());
    /// Alpha above one half where pixels are selected; null for no selection.
    void setSelectionImage(const QImage &image);
    bool hasSelection() const { return !m_selection.image().isNull(); }

    /// Binds colours, normals and selection to the texture units 0, 1 and 2 of @p context, which is
    /// current.
    virtual void bindTextures(const std::shared_ptr<BorrowedContext> &context);
    /// Frees the textures; the next draw makes them again.
    void releaseTextures();
    /// True once, when it is drawn from smaller textures, since the driver allows none of its size.
    bool takeScaledDownNotice();

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    SpriteTexture m_color;
    SpriteTexture m_normals;
    SpriteTexture m_selection;
    bool m_isScaledDownKnown = false;
};
