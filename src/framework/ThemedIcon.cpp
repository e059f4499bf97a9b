#include "framework/ThemedIcon.h"

#include "framework/ThemeColors.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPaintDevice>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

struct IconColors
{
    QColor text;
    QColor accent;
};

IconColors iconColors(QIcon::Mode mode, QIcon::State state)
{
    const QPalette palette = QGuiApplication::palette();
    const ThemeColors colors = themeColors(palette);
    if (mode == QIcon::Disabled) {
        const QColor &quiet = palette.color(QPalette::Disabled, QPalette::WindowText);
        return {quiet, quiet};
    }
    if (mode == QIcon::Selected || state == QIcon::On)
        return {colors.onAccent, colors.onAccent};
    return {palette.color(QPalette::WindowText), colors.accent};
}

class ThemedIconEngine : public QIconEngine
{
public:
    ThemedIconEngine(QString path, QString svg)
        : m_path(std::move(path))
        , m_svg(std::move(svg))
    {
    }

    QIconEngine *clone() const override { return new ThemedIconEngine(m_path, m_svg); }
    QString key() const override { return QStringLiteral("ThemedIcon"); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap image = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        image.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), image);
    }

    /// @p size in pixels of the device.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        if (size.isEmpty())
            return {};
        const IconColors colors = iconColors(mode, state);
        const QString key = QStringLiteral("themed:%1:%2x%3:%4:%5")
                                .arg(m_path)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(colors.text.name(), colors.accent.name());
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = render(size, colors);
            QPixmapCache::insert(key, pixmap);
        }
        return pixmap;
    }

private:
    QPixmap render(const QSize &size, const IconColors &colors) const
    {
        QString svg = m_svg;
        // By way of a placeholder: one theme's text colour must not pass for the accent.
        svg.replace(QLatin1String("#e8e8ea"), QLatin1String("%text%"), Qt::CaseInsensitive);
        svg.replace(QLatin1String("#f2b155"), colors.accent.name(), Qt::CaseInsensitive);
        svg.replace(QLatin1String("%text%"), colors.text.name());
        QSvgRenderer renderer(svg.toUtf8());
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        return pixmap;
    }

    QString m_path;
    QString m_svg;
};

} // namespace

QIcon themedIcon(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray svg = file.readAll();
    if (!QSvgRenderer(svg).isValid())
        return {};
    return QIcon(new ThemedIconEngine(path, QString::fromUtf8(svg)));
}
