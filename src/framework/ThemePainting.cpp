#include "framework/ThemePainting.h"

#include "framework/ThemeColors.h"
#include "framework/UiScale.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QRadioButton>
#include <QStyleOption>

namespace {

constexpr double cornerRadius = 3.0;

/// Keeps the painter's state for a scope, with smooth edges.
class Painting
{
public:
    explicit Painting(QPainter &painter)
        : m_painter(painter)
    {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
    }
    ~Painting() { m_painter.restore(); }
    Painting(const Painting &) = delete;
    Painting &operator=(const Painting &) = delete;

private:
    QPainter &m_painter;
};

bool has(const QStyleOption &option, QStyle::StateFlag flag)
{
    return option.state.testFlag(flag);
}

bool isHovered(const QStyleOption &option)
{
    return has(option, QStyle::State_Enabled) && has(option, QStyle::State_MouseOver);
}

QColor accentOf(const QStyleOption &option)
{
    if (!has(option, QStyle::State_Enabled))
        return shade(option.palette, 0.13);
    const QColor accent = themeColors(option.palette).accent;
    if (has(option, QStyle::State_Sunken))
        return accent.darker(112);
    return has(option, QStyle::State_MouseOver) ? accent.lighter(108) : accent;
}

QPen roundPen(const QColor &color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void paintSign(QPainter &painter, const QRectF &rect, const QColor &disc, QChar mark)
{
    const Painting painting(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(disc);
    const double inset = rect.width() / 16;
    painter.drawEllipse(rect.adjusted(inset, inset, -inset, -inset));
    QFont font = painter.font();
    font.setPixelSize(qMax(1, qRound(rect.height() * 0.62)));
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(disc.lightness() > 140 ? QColor(Qt::black) : QColor(Qt::white));
    painter.drawText(rect, Qt::AlignCenter, QString(mark));
}

} // namespace

QColor shade(const QPalette &palette, double share)
{
    const QColor &from = palette.color(QPalette::Active, QPalette::Window);
    const QColor &to = palette.color(QPalette::Active, QPalette::WindowText);
    const auto mixed = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mixed(from.red(), to.red()),
            mixed(from.green(), to.green()),
            mixed(from.blue(), to.blue())};
}

void paintBox(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &border)
{
    const Painting painting(painter);
    painter.setPen(border.isValid() ? QPen(border, 1.0) : QPen(Qt::NoPen));
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    const double inset = border.isValid() ? 0.5 : 0.0;
    const double radius = cornerRadius * uiScaleFactor() - inset;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
}

void paintField(QPainter &painter, const QStyleOption &option)
{
    const ThemeColors colors = themeColors(option.palette);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool hasFocus = isEnabled && has(option, QStyle::State_HasFocus);
    QColor border = isEnabled ? colors.field : shade(option.palette, 0.2);
    if (hasFocus)
        border = colors.accent;
    else if (isHovered(option))
        border = colors.quietText;
    paintBox(painter, option.rect, option.palette.color(QPalette::Base), border);
}

void paintFocus(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const ThemeColors colors = themeColors(option.palette);
    // Of these only the tick has the accent, and the frame is around the text.
    const bool isTicked =
        qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget);
    const bool isOnAccent =
        has(option, QStyle::State_Selected) || (has(option, QStyle::State_On) && !isTicked);
    paintBox(painter, option.rect, {}, isOnAccent ? colors.onAccent : colors.accent);
}

void paintToolButton(QPainter &painter, const QStyleOption &option)
{
    QColor fill;
    if (has(option, QStyle::State_On))
        fill = accentOf(option);
    else if (has(option, QStyle::State_Sunken))
        fill = shade(option.palette, 0.2);
    else if (isHovered(option))
        fill = shade(option.palette, 0.11);
    else if (!has(option, QStyle::State_AutoRaise))
        fill = option.palette.color(QPalette::Button);
    if (fill.isValid())
        paintBox(painter, option.rect, fill);
}

void paintPushButton(QPainter &painter, const QStyleOption &option)
{
    const ThemeColors colors = themeColors(option.palette);
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isDefault = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
    QColor fill = shade(option.palette, isEnabled ? 0.09 : 0.03);
    if (has(option, QStyle::State_On) || (isDefault && isEnabled))
        fill = accentOf(option);
    else if (has(option, QStyle::State_Sunken))
        fill = shade(option.palette, 0.24);
    else if (isHovered(option))
        fill = shade(option.palette, 0.16);
    const QColor border = isEnabled ? colors.field : shade(option.palette, 0.15);
    paintBox(painter, option.rect, fill, isDefault && isEnabled ? fill : border);
}

void paintTick(QPainter &painter, const QStyleOption &option, bool isRound)
{
    const Painting painting(painter);
    const ThemeColors colors = themeColors(option.palette);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isOn = has(option, QStyle::State_On);
    const bool isPartly = has(option, QStyle::State_NoChange);
    const QColor fill = isOn || isPartly ? accentOf(option) : option.palette.color(QPalette::Base);
    const QColor outline = isEnabled ? (isHovered(option) ? colors.quietText : colors.field)
                                     : shade(option.palette, 0.2);
    const double side = qMin(option.rect.width(), option.rect.height()) - 1.0;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(option.rect).center());
    painter.setPen(QPen(isOn || isPartly ? fill : outline, 1.0));
    painter.setBrush(fill);
    const double radius = isRound ? side / 2 : cornerRadius * uiScaleFactor() - 0.5;
    painter.drawRoundedRect(box, radius, radius);

    const QColor mark = isEnabled ? colors.onAccent : option.palette.color(QPalette::WindowText);
    const auto at = [&box, side](double x, double y) {
        return box.topLeft() + QPointF(x, y) * side;
    };
    if (isPartly) {
        painter.setPen(roundPen(mark, side / 7));
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    } else if (isOn && isRound) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawEllipse(box.center(), side * 0.22, side * 0.22);
    } else if (isOn) {
        painter.setPen(roundPen(mark, side / 7));
        painter.setBrush(Qt::NoBrush);
        const QPointF points[] = {at(0.24, 0.53), at(0.43, 0.72), at(0.77, 0.3)};
        painter.drawPolyline(points, 3);
    }
}

void paintArrow(QPainter &painter, const QStyleOption &option, const QRect &rect, int degrees)
{
    const Painting painting(painter);
    const bool isOnAccent = has(option, QStyle::State_Selected);
    const double reach = qMin(3.5 * uiScaleFactor(), qMin(rect.width(), rect.height()) * 0.4);
    painter.setPen(roundPen(
        option.palette.color(isOnAccent ? QPalette::HighlightedText : QPalette::WindowText),
        1.4 * uiScaleFactor()));
    painter.translate(QRectF(rect).center());
    painter.rotate(degrees);
    const QPointF points[] = {{-reach, -reach / 2}, {0, reach / 2}, {reach, -reach / 2}};
    painter.drawPolyline(points, 3);
}

void paintMenuTitle(QPainter &painter, const QStyleOptionMenuItem &option, const QStyle &style)
{
    painter.fillRect(option.rect, option.palette.window());
    const bool isOpen = has(option, QStyle::State_Selected) || has(option, QStyle::State_Sunken);
    if (isOpen && has(option, QStyle::State_Enabled))
        paintBox(painter, option.rect, shade(option.palette, 0.14));
    style.drawItemText(&painter,
                       option.rect,
                       Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip |
                           Qt::TextSingleLine,
                       option.palette,
                       has(option, QStyle::State_Enabled),
                       option.text,
                       QPalette::WindowText);
}

void paintTab(QPainter &painter, const QStyleOptionTab &option)
{
    if (isHovered(option))
        painter.fillRect(option.rect, shade(option.palette, 0.08));
    const bool isSelected = has(option, QStyle::State_Selected);
    const int thickness = isSelected ? scaled(2) : 1;
    QRect line(0, 0, option.rect.width(), thickness);
    line.moveBottomLeft(option.rect.bottomLeft());
    const ThemeColors colors = themeColors(option.palette);
    painter.fillRect(line, isSelected ? colors.accent : colors.line);
}

void paintMenuSeparator(QPainter &painter, const QStyleOption &option)
{
    painter.fillRect(option.rect, option.palette.base());
    QRect line(0, 0, option.rect.width(), 1);
    line.moveCenter(option.rect.center());
    painter.fillRect(line, shade(option.palette, 0.16));
}

void paintItemRow(QPainter &painter, const QStyleOptionViewItem &option)
{
    if (has(option, QStyle::State_Selected))
        painter.fillRect(option.rect, option.palette.brush(QPalette::Highlight));
    else if (isHovered(option))
        painter.fillRect(option.rect, shade(option.palette, 0.08));
    else if (option.backgroundBrush.style() != Qt::NoBrush)
        painter.fillRect(option.rect, option.backgroundBrush);
}

void paintSlider(QPainter &painter,
                 const QStyleOptionSlider &option,
                 const QStyle &style,
                 const QWidget *widget)
{
    const Painting painting(painter);
    const bool isEnabled = has(option, QStyle::State_Enabled);
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const QRectF handle =
        style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, widget);
    QRectF groove =
        style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, widget);
    const double thickness = scaled(4);
    const QPointF middle = groove.center();
    groove.setSize(isHorizontal ? QSizeF(groove.width(), thickness)
                                : QSizeF(thickness, groove.height()));
    groove.moveCenter(middle);
    QRectF filled = groove;
    if (isHorizontal)
        option.upsideDown ? filled.setLeft(handle.center().x())
                          : filled.setRight(handle.center().x());
    else
        option.upsideDown ? filled.setTop(handle.center().y())
                          : filled.setBottom(handle.center().y());

    const ThemeColors colors = themeColors(option.palette);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled ? colors.field : shade(option.palette, 0.2));
    painter.drawRoundedRect(groove, thickness / 2, thickness / 2);
    painter.setBrush(isEnabled ? colors.accent : shade(option.palette, 0.3));
    painter.drawRoundedRect(filled, thickness / 2, thickness / 2);

    double radius = scaled(6);
    if (isEnabled && has(option, QStyle::State_HasFocus)) {
        painter.setPen(QPen(colors.accent, 1.0));
        painter.setBrush(option.palette.window());
        painter.drawEllipse(handle.center(), radius + 1.5, radius + 1.5);
        painter.setPen(Qt::NoPen);
        radius -= 1.0;
    }
    const bool isHeld = option.activeSubControls.testFlag(QStyle::SC_SliderHandle) &&
                        has(option, QStyle::State_Sunken);
    const QColor body =
        isHeld || isHovered(option) ? colors.accent : option.palette.color(QPalette::WindowText);
    painter.setBrush(isEnabled ? body : shade(option.palette, 0.4));
    painter.drawEllipse(handle.center(), radius, radius);
}

void paintScrollBar(QPainter &painter,
                    const QStyleOptionSlider &option,
                    const QStyle &style,
                    const QWidget *widget)
{
    const Painting painting(painter);
    const QWidget *container = widget ? widget->parentWidget() : nullptr;
    if (const auto *area = qobject_cast<const QAbstractScrollArea *>(
            container ? container->parentWidget() : nullptr))
        painter.fillRect(option.rect, option.palette.brush(area->viewport()->backgroundRole()));

    const bool isHeld = has(option, QStyle::State_Sunken) &&
                        option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const ThemeColors colors = themeColors(option.palette);
    const QRect handle =
        style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
    const QRectF body = QRectF(handle).adjusted(2, 2, -2, -2);
    const double radius = qMin(body.width(), body.height()) / 2;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isHeld || isHovered(option) ? colors.quietText : colors.field);
    painter.drawRoundedRect(body, radius, radius);
}

QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part, int shortest)
{
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int length = isHorizontal ? option.rect.width() : option.rect.height();
    const qint64 range = qint64(option.maximum) - option.minimum;
    int handle = length;
    if (range > 0) {
        const qint64 wanted = qint64(option.pageStep) * length / (range + option.pageStep);
        handle = qMin(length, qMax(shortest, static_cast<int>(wanted)));
    }
    const int start = QStyle::sliderPositionFromValue(
        option.minimum, option.maximum, option.sliderPosition, length - handle, option.upsideDown);
    int from = 0;
    int size = 0;
    if (part == QStyle::SC_ScrollBarGroove) {
        size = length;
    } else if (part == QStyle::SC_ScrollBarSlider) {
        from = start;
        size = handle;
    } else if (part == QStyle::SC_ScrollBarSubPage) {
        size = start;
    } else if (part == QStyle::SC_ScrollBarAddPage) {
        from = start + handle;
        size = length - from;
    }
    const QRect rect = isHorizontal ? QRect(from, 0, size, option.rect.height())
                                    : QRect(0, from, option.rect.width(), size);
    return QStyle::visualRect(
        option.direction, option.rect, rect.translated(option.rect.topLeft()));
}

QIcon signIcon(const QColor &disc, QChar mark)
{
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64, 96, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paintSign(painter, pixmap.rect(), disc, mark);
        icon.addPixmap(pixmap);
    }
    return icon;
}
