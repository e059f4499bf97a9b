#include "tools/PaintToolHeightBrush.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "imaging/StrokePainting.h"
#include "tools/ToolPanel.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QRadioButton>
#include <QVector2D>

PaintToolHeightBrush::PaintToolHeightBrush(QObject *parent)
    : PaintToolBrushBasedOnNormalMap(themedIcon(QStringLiteral(":/painttoolicons/chisel.svg")),
                                     tr("Height brush"),
                                     tr("Height"),
                                     QStringLiteral("B"),
                                     HeightRow | HardnessRow | ContourRow,
                                     parent)
{
    action().setStatusTip(tr("Raises or lowers the surface where you paint."));
    createDirectionRow();
    addShortcut(QKeySequence(Qt::Key_X), [this] { toggleDirection(); });
    panel().addHelp(action().statusTip() + QLatin1Char('\n') + keysHelp() +
                    tr("\nX | toggle up/down"));
}

void PaintToolHeightBrush::createDirectionRow()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_up = new QRadioButton(tr("Up"));
    m_up->setObjectName(QStringLiteral("DirectionUp"));
    m_down = new QRadioButton(tr("Down"));
    m_down->setObjectName(QStringLiteral("DirectionDown"));
    for (QRadioButton *button : {m_up, m_down})
        layout->addWidget(button);
    layout->addStretch();
    m_up->setChecked(true);
    connect(m_up, &QRadioButton::toggled, this, [this](bool isUp) {
        m_isUp = isUp;
        settingsChanged();
    });
    panel().addRow(tr("Direction"), row);
}

void PaintToolHeightBrush::toggleDirection()
{
    (m_isUp ? m_down : m_up)->setChecked(true);
}

QRect PaintToolHeightBrush::startStroke(const QPoint &point)
{
    m_peak = strokePeak(strokeSettings().size, strokeSettings().height, m_isUp);
    return paint(point, point);
}

QRect PaintToolHeightBrush::paintSegment(const QPoint &point)
{
    return paint(lastPoint(), point);
}

QRect PaintToolHeightBrush::paint(const QPoint &from, const QPoint &to)
{
    // A share of the radius, also where the pen makes it smaller.
    const double share = strokeSize() / strokeSettings().size * strokeStrength();
    const FloatBrushFunc &brush = preparedBrush(float(m_peak * share));
    const auto paintSegment = m_peak > 0.0 ? paintSegmentMax : paintSegmentMin;
    return paintSegment(brush, QVector2D(from), QVector2D(to), stroke().layer());
}

SurfacePiece PaintToolHeightBrush::strokeResult(const QRect &changed)
{
    return raised(stroke().start(), stroke().layer(), changed);
}
