#include "tools/StructurePreview.h"

#include "framework/UiScale.h"

#include <QPainter>

namespace {
constexpr int shownHeight = 112;
constexpr int margin = 12;
constexpr double corner = 3.0;
} // namespace

StructurePreview::StructurePreview(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&m_thread,
            &AsyncUpdateThreadBase::resultAvailable,
            this,
            qOverload<>(&StructurePreview::update));
}

QSize StructurePreview::sizeHint() const
{
    return {scaled(shownHeight), scaled(shownHeight)};
}

void StructurePreview::setStructure(const PaintToolStructureParams &structure)
{
    m_structure = structure;
    update();
}

void StructurePreview::setNote(const QString &note)
{
    m_note = note;
    update();
}

void StructurePreview::requestPicture()
{
    m_structure.size = size() * devicePixelRatioF();
    if (m_structure == m_requested)
        return;
    m_requested = m_structure;
    m_thread.requestUpdate(m_requested);
}

void StructurePreview::paintEvent(QPaintEvent * /*event*/)
{
    requestPicture();
    const bool showsPicture = !picture().isNull() && !m_structure.pattern.isNull();
    QBrush ground = palette().base();
    if (showsPicture) {
        ground = QBrush(picture());
        ground.setTransform(
            QTransform::fromScale(1 / devicePixelRatioF(), 1 / devicePixelRatioF()));
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()), scaled(1) * corner, scaled(1) * corner);
    if (showsPicture)
        return;
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int edge = scaled(margin);
    painter.drawText(
        rect().adjusted(edge, edge, -edge, -edge), Qt::AlignCenter | Qt::TextWordWrap, m_note);
}
