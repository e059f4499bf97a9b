#include "ui/SpriteDelegate.h"

#include "framework/ControlSizes.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"
#include "ui/SpriteListModel.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {
constexpr int thumbnailSide = 40;
constexpr int rowMargin = 4;
constexpr int edge = 12;
constexpr int statusSide = 24;
constexpr int corner = 3;

QColor mixed(const QColor &from, const QColor &to, double part)
{
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QFont detailFont(const QFont &font)
{
    QFont result = font;
    result.setPointSizeF(QFontInfo(font).pointSizeF() * 0.9);
    return result;
}

QRect thumbnailArea(const QRect &row)
{
    const int side = scaled(thumbnailSide);
    return {row.left() + scaled(edge), row.center().y() - side / 2 + 1, side, side};
}

// Small sprites grow in whole steps, so that their pixels stay crisp. Large ones are reduced
// quickly first: smooth scaling reads every pixel.
QImage fitted(const QImage &image, int side)
{
    const int longest = std::max(image.width(), image.height());
    if (longest <= side)
        return image.scaled(image.width() * (side / longest), image.height() * (side / longest));
    const auto sizeIn = [&image](int box) {
        return image.size().scaled(box, box, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    };
    const QImage reduced = longest > 4 * side ? image.scaled(sizeIn(4 * side)) : image;
    return reduced.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        .scaled(sizeIn(side), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void drawCheckerboard(QPainter &painter, int side, const QPalette &palette)
{
    const QColor &base = palette.color(QPalette::Active, QPalette::Base);
    const QColor &text = palette.color(QPalette::Active, QPalette::Text);
    const int cell = std::max(1, side / 8);
    painter.fillRect(0, 0, side, side, mixed(base, text, 0.20));
    for (int y = 0; y < side; y += cell) {
        for (int x = (y / cell % 2) * cell; x < side; x += 2 * cell)
            painter.fillRect(x, y, cell, cell, mixed(base, text, 0.10));
    }
}

void roundCorners(QPainter &painter, int side, double radius)
{
    QPainterPath rest;
    rest.addRect(0, 0, side, side);
    QPainterPath kept;
    kept.addRoundedRect(0, 0, side, side, radius, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillPath(rest.subtracted(kept), Qt::black);
}

QPixmap drawThumbnail(const QImage &image, const QPalette &palette, int side, double pixelRatio)
{
    QImage canvas(side, side, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    drawCheckerboard(painter, side, palette);
    if (!image.isNull()) {
        const QImage small = fitted(image, side);
        painter.drawImage((side - small.width()) / 2, (side - small.height()) / 2, small);
    }
    roundCorners(painter, side, scaled(corner) * pixelRatio);
    painter.end();
    QPixmap result = QPixmap::fromImage(canvas);
    result.setDevicePixelRatio(pixelRatio);
    return result;
}

void drawBackground(QPainter &painter, const QStyleOptionViewItem &option)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, option.widget);
    if (!(option.state & QStyle::State_HasFocus))
        return;
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    focus.rect = option.rect.adjusted(1, 1, -1, -1);
    style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, option.widget);
}

void drawLines(QPainter &painter,
               const QRect &area,
               const QStyleOptionViewItem &option,
               const QModelIndex &index)
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const auto color = [&](QPalette::ColorRole role) {
        return option.palette.color(isSelected ? QPalette::HighlightedText : role);
    };
    const auto draw = [&](const QRect &line, const QString &text) {
        const QFontMetrics metrics = painter.fontMetrics();
        painter.drawText(line,
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         metrics.elidedText(text, Qt::ElideRight, line.width()));
    };
    const QString detail = index.data(SpriteListModel::detailRole).toString();
    const int split = detail.isEmpty() ? area.height() : area.height() / 2;
    painter.setFont(option.font);
    painter.setPen(color(QPalette::Text));
    draw({area.topLeft(), QSize(area.width(), split)}, index.data().toString());
    painter.setFont(detailFont(option.font));
    painter.setPen(color(QPalette::PlaceholderText));
    draw({area.left(), area.top() + split, area.width(), area.height() - split}, detail);
}
} // namespace

QRect SpriteDelegate::textArea(const QRect &row) const
{
    QRect area = row.adjusted(scaled(edge + thumbnailSide + edge), 0, -scaled(edge), 0);
    const int height = scaled(thumbnailSide - 4);
    area.moveTop(row.center().y() + 1 - height / 2);
    area.setHeight(height);
    return area;
}

void SpriteDelegate::paint(QPainter *painter,
                           const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    painter->save();
    drawBackground(*painter, option);
    const QRect picture = thumbnailArea(option.rect);
    const auto image = index.data(SpriteListModel::imageRole).value<QImage>();
    painter->drawPixmap(picture.topLeft(),
                        thumbnail(image, option.palette, painter->device()->devicePixelRatioF()));
    const QString status = index.data(SpriteListModel::statusIconRole).toString();
    if (!status.isEmpty()) {
        const int gap = scaled((thumbnailSide - statusSide) / 2);
        themedIcon(status).paint(painter, picture.adjusted(gap, gap, -gap, -gap));
    }
    drawLines(*painter, textArea(option.rect), option, index);
    painter->restore();
}

QSize SpriteDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    const int lines =
        QFontMetrics(option.font).height() + QFontMetrics(detailFont(option.font)).height();
    const int height = std::max(scaled(thumbnailSide), lines) + 2 * scaled(rowMargin);
    return {scaled(2 * edge + thumbnailSide), height};
}

QWidget *SpriteDelegate::createEditor(QWidget *parent,
                                      const QStyleOptionViewItem &,
                                      const QModelIndex &) const
{
    auto *editor = new QLineEdit(parent);
    editor->setAccessibleName(tr("Sprite name"));
    return editor;
}

void SpriteDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    // A row may change while its name is being typed, as when its sprite is read again.
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (line && !line->isModified())
        line->setText(index.data(Qt::EditRole).toString());
}

void SpriteDelegate::updateEditorGeometry(QWidget *editor,
                                          const QStyleOptionViewItem &option,
                                          const QModelIndex &) const
{
    // Over the name, so that size and state stay readable.
    QRect area = textArea(option.rect);
    const int middle = area.top() + area.height() / 4;
    area.setHeight(scaled(controlHeight));
    area.moveTop(middle - area.height() / 2);
    editor->setGeometry(area.adjusted(-scaled(rowMargin + 1), 0, 0, 0));
}

QPixmap
SpriteDelegate::thumbnail(const QImage &image, const QPalette &palette, double pixelRatio) const
{
    const int side = qRound(scaled(thumbnailSide) * pixelRatio);
    const auto key = qMakePair(image.cacheKey(), qMakePair(side, palette.base().color().rgb()));
    if (const QPixmap *known = m_thumbnails.object(key))
        return *known;
    const QPixmap made = drawThumbnail(image, palette, side, pixelRatio);
    m_thumbnails.insert(key, new QPixmap(made));
    return made;
}
