#include "framework/KeysText.h"

#include "framework/UiScale.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {
constexpr int roomBetweenColumns = 12;
constexpr int roomBetweenLines = 3;
constexpr int usualWidth = 280;
constexpr int leastWidth = 120;
constexpr double widestKeys = 0.56; // of the whole width

int keysWidth(const QStringList &line, const QFontMetrics &metrics)
{
    // A line that is just as wide as its room is broken.
    return line.size() > 1 ? metrics.horizontalAdvance(line.first()) + 1 : 0;
}
} // namespace

KeysText::KeysText(const QString &text, QWidget *parent)
    : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

QVector<KeysText::Part> KeysText::partsFor(int width) const
{
    QVector<QStringList> lines;
    int column = 0;
    for (const QString &line : text().split(QLatin1Char('\n'))) {
        lines.append(line.split(QStringLiteral(" | ")));
        column = std::max(column, keysWidth(lines.last(), fontMetrics()));
    }
    column = std::min(column, int(width * widestKeys));
    const int second = column + scaled(roomBetweenColumns);

    QVector<Part> parts;
    int top = 0;
    const auto add = [&](const QString &text, int left, int right, bool isKeys) {
        const QRect room(left, top, std::max(right - left, 1), QWIDGETSIZE_MAX);
        const QRect place = fontMetrics().boundingRect(room, Qt::TextWordWrap, text);
        parts.append({text, QRect(left, top, right - left, place.height()), isKeys});
        return place.height();
    };
    for (const QStringList &line : std::as_const(lines)) {
        const bool hasKeys = line.size() > 1;
        const int first = add(line.first(), 0, hasKeys ? column : width, hasKeys);
        const int height =
            hasKeys ? std::max(first, add(line.last(), second, width, false)) : first;
        top += height + scaled(roomBetweenLines);
    }
    return parts;
}

QSize KeysText::sizeHint() const
{
    const int width = scaled(usualWidth);
    return {width, heightForWidth(width)};
}

QSize KeysText::minimumSizeHint() const
{
    return {scaled(leastWidth), 0};
}

int KeysText::heightForWidth(int width) const
{
    int bottom = 0;
    for (const Part &part : partsFor(width))
        bottom = std::max(bottom, part.place.y() + part.place.height());
    return bottom;
}

void KeysText::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    for (const Part &part : partsFor(width())) {
        const auto role = part.isKeys ? QPalette::WindowText : QPalette::PlaceholderText;
        painter.setPen(palette().color(role));
        painter.drawText(QStyle::visualRect(layoutDirection(), rect(), part.place),
                         int(Qt::TextWordWrap) | int(Qt::AlignLeading),
                         part.text);
    }
}
