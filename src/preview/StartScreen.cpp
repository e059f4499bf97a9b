#include "preview/StartScreen.h"

#include <QImageReader>

namespace {

QString colorsPath()
{
    return QStringLiteral(":/startscreen.png");
}

} // namespace

StartScreen::StartScreen()
    : m_colors([] { return QImage(colorsPath()); })
    , m_normals([] { return QImage(QStringLiteral(":/startscreen_n.png")); })
{
    setAcceptedMouseButtons(Qt::NoButton);
    // Its place is needed before its pixels are.
    setColorImage(QImage(QImageReader(colorsPath()).size(), QImage::Format_ARGB32));
    setPos(-boundingRect().center());
}

void StartScreen::bindTextures(const std::shared_ptr<BorrowedContext> &context)
{
    if (m_colors.isValid()) {
        setColorImage(m_colors.take());
        setNormalImage(m_normals.take());
    }
    GLGraphicsSprite::bindTextures(context);
}
