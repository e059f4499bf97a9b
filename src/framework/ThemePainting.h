#pragma once

#include <QColor>
#include <QRect>
#include <QStyle>

class QIcon;
class QPainter;
class QPalette;
class QRectF;
class QStyleOption;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QStyleOptionTab;
class QStyleOptionViewItem;
class QWidget;

// How the parts of widgets look. Each function paints one part in the colours of the option's
// palette and changes nothing of the painter.

/// @p share of the way from the window's colour to the text's: hover, pressed, grooves.
QColor shade(const QPalette &palette, double share);

/// A box with round corners and a border inside its edge; invalid colours leave a part out.
void paintBox(QPainter &painter, const QRectF &rect, const QColor &fill, const QColor &border = {});
/// Where one types or chooses: a base with a border that shows focus and pointer.
void paintField(QPainter &painter, const QStyleOption &option);
void paintFocus(QPainter &painter, const QStyleOption &option, const QWidget *widget);
void paintToolButton(QPainter &painter, const QStyleOption &option);
void paintPushButton(QPainter &painter, const QStyleOption &option);
void paintTick(QPainter &painter, const QStyleOption &option, bool isRound);
/// A chevron; @p degrees turn it clockwise from pointing down.
void paintArrow(QPainter &painter, const QStyleOption &option, const QRect &rect, int degrees);
/// The title of a menu in the menu bar.
void paintMenuTitle(QPainter &painter, const QStyleOptionMenuItem &option, const QStyle &style);
void paintTab(QPainter &painter, const QStyleOptionTab &option);
void paintMenuSeparator(QPainter &painter, const QStyleOption &option);
void paintItemRow(QPainter &painter, const QStyleOptionViewItem &option);
void paintSlider(QPainter &painter,
                 const QStyleOptionSlider &option,
                 const QStyle &style,
                 const QWidget *widget);
/// The handle, on the ground of what it scrolls.
void paintScrollBar(QPainter &painter,
                    const QStyleOptionSlider &option,
                    const QStyle &style,
                    const QWidget *widget);
/// Where a part of a scroll bar is that has no arrows; the handle is at least @p shortest long.
QRect scrollBarPart(const QStyleOptionSlider &option, QStyle::SubControl part, int shortest);

/// The sign of a message box: a disc with @p mark.
QIcon signIcon(const QColor &disc, QChar mark);
