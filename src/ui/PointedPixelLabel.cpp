#include "ui/PointedPixelLabel.h"

#include "base/PlainText.h"
#include "framework/UiScale.h"
#include "model/Body.h"
#include "model/properties/PropertyT.h"
#include "preview/PointedPixel.h"

#include <QLocale>

PointedPixelLabel::PointedPixelLabel(QWidget *parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("pointedPixel"));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setContentsMargins(0, 0, scaled(12), 0);
}

void PointedPixelLabel::showPixel(const PointedPixel &pixel)
{
    if (!pixel.body) {
        clear();
        return;
    }
    // A name may hold what looks like a placeholder, and be longer than the window is wide.
    const QString name = fontMetrics().elidedText(
        shownText(pixel.body->name().value()), Qt::ElideMiddle, scaled(200));
    setText(name + tr("   x %1  y %2   slope %3, %4   normal %5 %6 %7")
                       .arg(pixel.pixel.x())
                       .arg(pixel.pixel.y())
                       .arg(locale().toString(pixel.slope.x(), 'f', 2))
                       .arg(locale().toString(pixel.slope.y(), 'f', 2))
                       .arg(pixel.normal.red())
                       .arg(pixel.normal.green())
                       .arg(pixel.normal.blue()));
}
