#include "preview/GLGraphicsSprite.h"

GLGraphicsSprite::GLGraphicsSprite(QGraphicsItem *parent)
    : QGraphicsItem(parent)
{
}

GLGraphicsSprite::~GLGraphicsSprite() = default;

QRectF GLGraphicsSprite::boundingRect() const
{
    return colorImage().rect();
}

void GLGraphicsSprite::paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) {}

void GLGraphicsSprite::setColorImage(const QImage &image)
{
    if (image.size() != colorImage().size())
        prepareGeometryChange();
    m_color.setImage(image);
}

void GLGraphicsSprite::setNormalImage(const QImage &image, const QRect &changed)
{
    m_normals.setImage(image, changed);
}

void GLGraphicsSprite::setSelectionImage(const QImage &image)
{
    m_selection.setImage(image);
}

void GLGraphicsSprite::bindTextures(const std::shared_ptr<BorrowedContext> &context)
{
    m_color.bind(context, 0);
    m_normals.bind(context, 1);
    m_selection.bind(context, 2);
}

void GLGraphicsSprite::releaseTextures()
{
    m_color.release();
    m_normals.release();
    m_selection.release();
}

bool GLGraphicsSprite::takeScaledDownNotice()
{
    const bool isNew = m_color.isScaledDown() && !m_isScaledDownKnown;
    m_isScaledDownKnown = m_color.isScaledDown();
    return isNew;
}

QVariant GLGraphicsSprite::itemChange(GraphicsItemChange change, const QVariant &value)
{
    // Outside a scene it would not hear that the context ends.
    if (change == ItemSceneChange)
        releaseTextures();
    return QGraphicsItem::itemChange(change, value);
}
