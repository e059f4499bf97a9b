#include "tools/AnglePicker.h"

#include "framework/PanelLabels.h"
#include "framework/UiScale.h"
#include "imaging/AngleGlobe.h"
#include "tools/AngleGlobeView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int globeSize = 128;
constexpr int globeMargin = 10;
constexpr int outerSpacing = 3;
constexpr int buttonSpacing = 35;
constexpr int resetWidth = 45;
constexpr int resetHeight = 20;
} // namespace

AnglePicker::AnglePicker(QWidget *parent)
    : QWidget(parent)
    , m_globeSize(scaled(globeSize))
    , m_globe(new AngleGlobeView(m_globeSize, scaled(globeMargin), this))
    , m_numbers(createQuietText({}, this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(outerSpacing));
    layout->addWidget(m_globe);
    layout->addWidget(m_numbers);
    layout->addLayout(createButtons());
    layout->addStretch();

    m_globe->setObjectName(QStringLiteral("AngleGlobe"));
    m_globe->setAccessibleName(tr("Angle"));
    m_globe->setAccessibleDescription(
        tr("Arrow keys move the marker, with Shift farther. Home makes it flat."));
    m_globe->setToolTip(m_globe->accessibleDescription());
    m_numbers->setObjectName(QStringLiteral("Slope"));
    m_numbers->setFixedWidth(m_globe->width());
    m_numbers->setAlignment(Qt::AlignHCenter);
    setFocusProxy(m_globe);
    connect(m_globe, &AngleGlobeView::pointed, this, &AnglePicker::point);
    connect(m_globe, &AngleGlobeView::resetRequested, this, &AnglePicker::resetAngle);
    discreteValuesToggled(false);
    setPixelValue({});
}

QLayout *AnglePicker::createButtons()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(scaled(buttonSpacing));
    m_discrete = new QCheckBox(tr("discrete"));
    m_discrete->setObjectName(QStringLiteral("Discrete"));
    m_discrete->setToolTip(tr("Snaps to 12 directions, 30 degrees apart, and a few slopes"));
    auto *reset = new QPushButton(tr("Reset"));
    reset->setObjectName(QStringLiteral("ResetAngle"));
    reset->setFixedSize(scaled(resetWidth), scaled(resetHeight));
    connect(m_discrete, &QCheckBox::toggled, this, &AnglePicker::discreteValuesToggled);
    connect(reset, &QPushButton::clicked, this, &AnglePicker::resetAngle);
    row->addWidget(m_discrete);
    row->addWidget(reset);
    row->addStretch();
    return row;
}

void AnglePicker::setPixelValue(AngleImage::Pixel pixel)
{
    show(pixel, globePosition(pixel, m_globeSize));
}

void AnglePicker::discreteValuesToggled(bool discrete)
{
    m_lookup = globeSlopes(m_globeSize, discrete);
    m_globe->setDiscrete(discrete);
}

void AnglePicker::resetAngle()
{
    setPixelValue({});
    Q_EMIT pixelValueChanged({});
}

void AnglePicker::point(const QPointF &position)
{
    const QPoint at = globePixel(position, m_globeSize);
    const AngleImage::Pixel pixel = m_lookup.row(at.y())[at.x()];
    // What snaps is seen to snap.
    show(pixel, m_discrete->isChecked() ? globePosition(pixel, m_globeSize) : position);
    Q_EMIT pixelValueChanged(pixel);
}

void AnglePicker::show(AngleImage::Pixel pixel, const QPointF &position)
{
    m_globe->setMarker(position);
    constexpr double unit = 256.0;
    m_numbers->setText(tr("x %1  y %2")
                           .arg(locale().toString(pixel.sx / unit, 'f', 2),
                                locale().toString(pixel.sy / unit, 'f', 2)));
}
