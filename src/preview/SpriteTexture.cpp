#include "preview/SpriteTexture.h"

#include "preview/BorrowedContext.h"

#include <QOpenGLFunctions>
#include <QOpenGLPixelTransferOptions>
#include <QOpenGLTexture>

namespace {

QImage transparentPixel()
{
    QImage pixel(1, 1, QImage::Format_RGBA8888);
    pixel.fill(Qt::transparent);
    return pixel;
}

// The largest that is not above what the driver takes, in the same shape.
QImage fitting(const QImage &image)
{
    GLint limit = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
    if (image.width() <= limit && image.height() <= limit)
        return image;
    const QSize size = image.size().scaled(limit, limit, Qt::KeepAspectRatio).expandedTo({1, 1});
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// Alpha alone is uploaded as it is.
bool isAlpha(const QImage &image)
{
    return image.format() == QImage::Format_Alpha8;
}

QOpenGLTexture::PixelFormat pixelFormat(const QImage &image)
{
    return isAlpha(image) ? QOpenGLTexture::Alpha : QOpenGLTexture::RGBA;
}

void setPixels(QOpenGLTexture &texture, const QImage &image, const QPoint &place)
{
    // Rows begin at multiples of four bytes, whatever was drawn before.
    QOpenGLPixelTransferOptions rows;
    rows.setAlignment(4);
    const QImage pixels = isAlpha(image) ? image : image.convertToFormat(QImage::Format_RGBA8888);
    texture.setData(place.x(),
                    place.y(),
                    0,
                    pixels.width(),
                    pixels.height(),
                    1,
                    pixelFormat(image),
                    QOpenGLTexture::UInt8,
                    pixels.constBits(),
                    &rows);
}

} // namespace

SpriteTexture::SpriteTexture() = default;

SpriteTexture::~SpriteTexture()
{
    release();
}

void SpriteTexture::setImage(const QImage &image, const QRect &changed)
{
    const bool isWhole = changed.isNull() || image.size() != m_image.size();
    m_changed |= isWhole ? image.rect() : changed & image.rect();
    if (image.size() != m_image.size() || isAlpha(image) != isAlpha(m_image))
        release();
    m_image = image;
}

void SpriteTexture::bind(const std::shared_ptr<BorrowedContext> &context, uint unit)
{
    if (m_context != context)
        release();
    m_context = context;
    upload();
    m_texture->bind(unit);
}

void SpriteTexture::release()
{
    if (m_texture)
        m_context->run([this] { m_texture->destroy(); });
    m_texture.reset();
    m_context.reset();
}

bool SpriteTexture::isScaledDown() const
{
    return m_texture && !m_image.isNull() &&
           QSize(m_texture->width(), m_texture->height()) != m_image.size();
}

void SpriteTexture::upload()
{
    if (!m_texture)
        create(m_image.isNull() ? transparentPixel() : fitting(m_image));
    else if (!m_changed.isEmpty() && isScaledDown())
        setPixels(*m_texture, fitting(m_image), {});
    else if (m_changed == m_image.rect())
        setPixels(*m_texture, m_image, {});
    else if (!m_changed.isEmpty())
        setPixels(*m_texture, m_image.copy(m_changed), m_changed.topLeft());
    m_changed = {};
}

void SpriteTexture::create(const QImage &shown)
{
    const QOpenGLContext &context = *m_context->context();
    const bool hasSizedFormats = !context.isOpenGLES() || context.format().majorVersion() > 2;
    m_texture = std::make_unique<QOpenGLTexture>(QOpenGLTexture::Target2D);
    const auto colors = hasSizedFormats ? QOpenGLTexture::RGBA8_UNorm : QOpenGLTexture::RGBAFormat;
    m_texture->setFormat(isAlpha(shown) ? QOpenGLTexture::AlphaFormat : colors);
    m_texture->setSize(shown.width(), shown.height());
    m_texture->setMipLevels(1);
    m_texture->setAutoMipMapGenerationEnabled(false);
    m_texture->allocateStorage(pixelFormat(shown), QOpenGLTexture::UInt8);
    // Sprite pixels stay sharp squares.
    m_texture->setMinMagFilters(QOpenGLTexture::Linear, QOpenGLTexture::Nearest);
    m_texture->setWrapMode(QOpenGLTexture::MirroredRepeat);
    setPixels(*m_texture, shown, {});
}
