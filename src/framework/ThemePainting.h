#pragma once

#include <QColor>

class QPainter;
class QPalette;
class QRect;
class QRectF;
class QStyle;
class QStyleOption;
class QStyleOptionSlider;
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
void paintFocus(QPainter &painter, const QStyleOption &option);
void paintToolButton(QPainter &painter, const QStyleOption &option);
void paintPushButton(QPainter &painter, const QStyleOption &option);
void paintTick(QPainter &painter, const QStyleOption &option, bool isRound);
/// A chevron; @p degrees turn it clockwise from pointing down.
void paintArrow(QPainter &painter, const QStyleOption &option, const QRect &rect, int degrees);
void paintItemRow(QPainter &painter, const QStyleOptionViewItem &option);
void paintSlider(QPainter &painter,
                 const QStyleOptionSlider &option,
                 const QStyle &style,
                 const QWidget *widget);
/// The handle of a scroll bar in @p handle.
void paintScrollHandle(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle);
