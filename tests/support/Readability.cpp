#include "support/Readability.h"

#include "support/Widgets.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>

#include <cmath>

namespace {
double luminance(QRgb color)
{
    const auto part = [](int value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * part(qRed(color)) + 0.7152 * part(qGreen(color)) + 0.0722 * part(qBlue(color));
}

// How well the text of @p widget, which shows one colour on another, can be read: the contrast of
// the most frequent colour to the one that differs most from it.
double contrastOf(const QWidget &widget, const QImage &window)
{
    const QRect place(widget.mapTo(widget.window(), QPoint()), widget.size());
    const QImage image = window.copy(place).convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    QRgb ground = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (++counts[image.pixel(x, y)] > counts.value(ground))
                ground = image.pixel(x, y);
        }
    }
    double best = 1.0;
    for (auto color = counts.keyBegin(); color != counts.keyEnd(); ++color) {
        const double one = luminance(*color) + 0.05, other = luminance(ground) + 0.05;
        best = std::max({best, one / other, other / one});
    }
    return best;
}
} // namespace

QStringList readingFaultsOf(QWidget &window)
{
    QStringList faults;
    const QImage image = window.grab().toImage();
    const auto widgets = window.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const auto *interface = QAccessible::queryAccessibleInterface(widget);
        if (!widget->isVisible() || !interface)
            continue;
        const QString name = interface->text(QAccessible::Name);
        const QString kind = QString::fromLatin1(widget->metaObject()->className());
        if (name.isEmpty() && !widget->focusProxy() && (widget->focusPolicy() & Qt::TabFocus))
            faults.append("no name: "_s + kind);
        const auto *label = qobject_cast<QLabel *>(widget);
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        const bool hasText =
            (label && !label->text().isEmpty()) || (button && !button->text().isEmpty());
        if (!hasText || !widget->isEnabled() || widget->visibleRegion().isEmpty())
            continue;
        const double contrast = contrastOf(*widget, image);
        if (contrast < 4.5)
            faults.append("contrast %1: %2 %3"_s.arg(contrast).arg(kind, name));
    }
    return faults;
}
