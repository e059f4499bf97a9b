#pragma once

#include <QImage>

#include <memory>

class BorrowedContext;
class QOpenGLTexture;

/// An image and its texture, which is made and brought up to date when it is bound.
class SpriteTexture
{
public:
    SpriteTexture();
    ~SpriteTexture();
    SpriteTexture(const SpriteTexture &) = delete;
    SpriteTexture &operator=(const SpriteTexture &) = delete;

    const QImage &image() const { return m_image; }
    /// Only @p changed, in pixels, is uploaded again; a null rectangle means the whole image. A
    /// null image is one transparent pixel to the shaders.
    void setImage(const QImage &image, const QRect &changed = QRect());
    /// Called with the context of @p context current.
    void bind(const std::shared_ptr<BorrowedContext> &context, uint unit);
    /// Frees the texture; the next bind() makes it again.
    void release();
    /// True when the texture is smaller than the image, since the driver allows no larger one.
    bool isScaledDown() const;

private:
    void upload();
    void create(const QImage &shown);

    QImage m_image;
    QRect m_changed;
    std::shared_ptr<BorrowedContext> m_context;
    std::unique_ptr<QOpenGLTexture> m_texture;
};
