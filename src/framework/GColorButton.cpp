#include "framework/GColorButton.h"

#include "framework/ControlSizes.h"
#include "framework/MixedText.h"
#include "framework/Theme.h"
#include "framework/UiScale.h"

#include <QColorDialog>
#include <QPainter>
#include <QPainterPath>

namespace {
constexpr int cornerRadius = 3;
constexpr int checkSize = 6;

void fillChecked(QPainter &painter, const QRectF &area)
{
    painter.fillRect(area, QColor(0xC8, 0xC8, 0xC8));
    const int size = scaled(checkSize);
    for (int y = 0; y * size < area.height(); ++y) {
        for (int x = y % 2; x * size < area.width(); x += 2)
            painter.fillRect(QRectF(area.x() + x * size, area.y() + y * size, size, size),
                             QColor(0x80, 0x80, 0x80));
    }
}

QString described(const QColor &color)
{
    const QString name = color.name(QColor::HexRgb);
    return color.alpha() == 255
               ? name
               : GColorButton::tr("%1, alpha %2 %").arg(name).arg(qRound(color.alphaF() * 100));
}
} // namespace

GColorButton::GColorButton(QWidget *parent)
    : QToolButton(parent)
{
    setFixedHeight(scaled(controlHeight));
    setAttribute(Qt::WA_Hover);
    setToolTip(described(m_color));
    connect(this, &QToolButton::clicked, this, &GColorButton::choose);
    m_keys.watch(*this);
}

void GColorButton::setLabel(const QString &label)
{
    m_label = label;
    setAccessibleName(label);
}

void GColorButton::setMixed(bool isMixed)
{
    m_isMixed = isMixed;
    setToolTip(m_isMixed ? QString() : described(m_color));
    update();
}

QSize GColorButton::sizeHint() const
{
    return {scaled(valueColumnWidth), scaled(controlHeight)};
}

void GColorButton::setColor(const QColor &color)
{
    // Colours compare by their models too.
    const QColor next = color.toRgb();
    if (next == m_color && !m_isMixed)
        return;
    m_color = next;
    setMixed(false);
    Q_EMIT colorChanged(m_color);
}

void GColorButton::paintEvent(QPaintEvent *)
{
    const double scale = uiScaleFactor();
    const bool isLively = underMouse() || isDown();
    QRectF area(rect());
    const double line = (hasFocus() ? 2 : 1) * scale;
    area.adjust(line / 2, line / 2, -line / 2, -line / 2);
    QPainterPath shape;
    shape.addRoundedRect(area, cornerRadius * scale, cornerRadius * scale);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : 0.4);
    painter.setClipPath(shape);
    if (!m_isMixed && m_color.alpha() < 255)
        fillChecked(painter, area);
    painter.fillPath(shape, m_isMixed ? palette().color(QPalette::Base) : m_color);
    if (m_isMixed) {
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(area, Qt::AlignCenter, mixedText());
    }
    painter.setClipping(false);
    const ThemeColors colors = themeColors(palette());
    const QColor plain = isLively ? colors.quietText : colors.field;
    const QColor border = hasFocus() ? colors.accent : plain;
    painter.strokePath(shape, QPen(border, line));
}

void GColorButton::choose()
{
    const QColor former = m_color;
    const bool wasMixed = m_isMixed;
    auto *dialog = new QColorDialog(former, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    dialog->setOption(QColorDialog::ShowAlphaChannel, m_offersAlpha);
    dialog->setWindowTitle(m_label);
    connect(dialog, &QColorDialog::currentColorChanged, this, &GColorButton::setColor);
    connect(dialog, &QDialog::accepted, this, &GColorButton::editingFinished);
    connect(
        dialog, &QDialog::rejected, this, [this, former, wasMixed] { cancel(former, wasMixed); });
    dialog->open();
}

void GColorButton::cancel(const QColor &former, bool wasMixed)
{
    if (wasMixed)
        setMixed(true);
    else
        setColor(former);
    Q_EMIT editingCancelled();
}
