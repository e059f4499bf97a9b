#include "tools/PaintToolBrushBased.h"

#include "framework/GAction.h"
#include "imaging/CircularBrush.h"
#include "imaging/StrokePainting.h"
#include "imaging/StrokeResults.h"

#include <QKeySequence>
#include <QVector2D>
#include <QtMath>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace {
constexpr int opacityPerKey = 10;
constexpr auto frame = std::chrono::milliseconds(8);
constexpr Qt::KeyboardModifiers adjustModifiers = Qt::ControlModifier | Qt::AltModifier;

} // namespace

PaintToolBrushBased::PaintToolBrushBased(const QIcon &icon,
                                         const QString &label,
                                         const QString &shortLabel,
                                         const QString &shortcut,
                                         BrushPanel::BrushRows rows,
                                         QObject *parent)
    : PaintTool(icon, label, shortLabel, shortcut, parent)
    , m_brush(std::make_unique<BrushPanel>(panel(), rows))
    , m_contours{std::make_unique<CircularBrushCos>(),
                 std::make_unique<CircularBrushRamp>(),
                 std::make_unique<CircularBrushCircle>()}
{
    connect(m_brush.get(), &BrushPanel::changed, this, &PaintToolBrushBased::settingsChanged);
    connect(m_brush.get(), &BrushPanel::contourClicked, this, &PaintToolBrushBased::contourChanged);
    m_frame.setSingleShot(true);
    m_frame.setTimerType(Qt::PreciseTimer);
    connect(&m_frame, &QTimer::timeout, this, &PaintToolBrushBased::announcePending);
    createShortcuts();
}

PaintToolBrushBased::~PaintToolBrushBased() = default;

void PaintToolBrushBased::createShortcuts()
{
    addShortcut(QKeySequence(QStringLiteral("[")), [this] { m_brush->changeSize(-1); });
    addShortcut(QKeySequence(QStringLiteral("]")), [this] { m_brush->changeSize(1); });
    // Which of these is told depends on the keyboard.
    for (const char *keys : {"Shift+[", "Shift+{", "{"})
        addShortcut(QKeySequence(QLatin1String(keys)), [this] { m_brush->changeHardness(-1); });
    for (const char *keys : {"Shift+]", "Shift+}", "}"})
        addShortcut(QKeySequence(QLatin1String(keys)), [this] { m_brush->changeHardness(1); });
    for (int digit = 0; m_brush->hasOpacity() && digit <= 9; ++digit) {
        const int opacity = (digit == 0 ? 10 : digit) * opacityPerKey;
        addShortcut(QKeySequence(Qt::Key_0 + digit),
                    [this, opacity] { m_brush->setOpacity(opacity); });
    }
}

void PaintToolBrushBased::activate(const ToolContext &context, const AngleImage &image)
{
    PaintTool::activate(context, image);
    m_current = image;
    m_stroke.setSize(image.size());
    m_isOpen = false;
    m_isCommitted = false;
    Q_EMIT interactionModeChanged(InteractionMode::Tool);
    updateCursor();
}

void PaintToolBrushBased::deactivate()
{
    endStroke();
    m_isCommitted = false;
    m_showsLine = false;
    m_adjustment.reset();
    m_current = {};
    m_stroke.setSize({});
    PaintTool::deactivate();
}

void PaintToolBrushBased::mousePress(const ToolPointerEvent &event)
{
    if (m_isOpen || m_stroke.layer().isNull())
        return;
    if (event.changedButton == Qt::RightButton && event.modifiers == adjustModifiers)
        m_adjustment.emplace(event.position, m_brush->settings());
    if (event.changedButton != Qt::LeftButton || m_adjustment)
        return;
    const QPoint point = event.pixel();
    const bool wasErasing = m_isErasing;
    m_pressure = event.pressure;
    m_isErasing = event.isEraser;
    m_isOpen = true;
    if (!m_isCommitted || !event.modifiers.testFlag(Qt::ShiftModifier)) {
        beginStroke(point);
    } else {
        if (!m_isContinuable || wasErasing != m_isErasing)
            beginStroke(m_last);
        continueStroke(point);
    }
    m_isCommitted = false;
    setLinePreview(false);
    m_isPending = false;
    announce();
}

void PaintToolBrushBased::mouseMove(const ToolPointerEvent &event)
{
    m_pointer = event.position;
    if (m_adjustment) {
        adjustTo(event.position);
    } else if (m_isOpen && event.buttons.testFlag(Qt::LeftButton)) {
        m_pressure = event.pressure;
        continueStroke(event.pixel());
        announceInTime();
    } else if (event.buttons == Qt::NoButton) {
        setLinePreview(event.modifiers.testFlag(Qt::ShiftModifier));
    }
}

void PaintToolBrushBased::mouseRelease(const ToolPointerEvent &event)
{
    if (event.changedButton == Qt::RightButton && m_adjustment) {
        m_adjustment.reset();
        updateCursor();
    }
    if (event.changedButton == Qt::LeftButton)
        endStroke();
}

void PaintToolBrushBased::mouseDoubleClick(const ToolPointerEvent &event)
{
    mousePress(event);
}

void PaintToolBrushBased::keyPress(int key, Qt::KeyboardModifiers /*modifiers*/)
{
    if (key == Qt::Key_Escape)
        cancelStroke();
    if (key == Qt::Key_Shift && !m_isOpen)
        setLinePreview(true);
}

void PaintToolBrushBased::keyRelease(int key, Qt::KeyboardModifiers /*modifiers*/)
{
    if (key == Qt::Key_Shift)
        setLinePreview(false);
}

bool PaintToolBrushBased::turnWheel(double notches, Qt::KeyboardModifiers modifiers)
{
    m_turned += notches;
    const int steps = int(m_turned);
    m_turned -= steps;
    if (steps != 0 && modifiers & Qt::ShiftModifier)
        m_brush->changeHardness(steps);
    else if (steps != 0)
        m_brush->changeSize(steps);
    return true;
}

void PaintToolBrushBased::updateNormalMap(AngleImage normalmap)
{
    m_current = std::move(normalmap);
    m_isCommitted = false;
    setLinePreview(false);
    // What was painted so far is gone: an open stroke goes on from here.
    m_isPending = false;
    if (m_isOpen)
        m_stroke.begin(m_current);
}

void PaintToolBrushBased::updateSelection(FloatImage /*selection*/)
{
    m_isContinuable = false;
}

void PaintToolBrushBased::contourChanged(int contour)
{
    m_brush->setContour(contour);
}

void PaintToolBrushBased::beginStroke(const QPoint &point)
{
    m_strokeSettings = m_brush->settings();
    m_stroke.begin(m_current);
    m_last = point;
    m_stroke.add(m_isErasing ? paintCoverage(point, point) : startStroke(point));
}

void PaintToolBrushBased::continueStroke(const QPoint &point)
{
    m_stroke.add(m_isErasing ? paintCoverage(m_last, point) : paintSegment(point));
    m_last = point;
}

QRect PaintToolBrushBased::startStroke(const QPoint &point)
{
    return paintCoverage(point, point);
}

QRect PaintToolBrushBased::paintSegment(const QPoint &point)
{
    return paintCoverage(m_last, point);
}

QRect PaintToolBrushBased::paintCoverage(const QPoint &from, const QPoint &to)
{
    const double peak = m_strokeSettings.opacity / 100.0 * strokeStrength();
    return paintSegmentMax(
        preparedBrush(float(peak)), QVector2D(from), QVector2D(to), m_stroke.layer());
}

const FloatBrushFunc &PaintToolBrushBased::preparedBrush(float amplitude)
{
    FloatBrushFunc &brush = *m_contours.at(size_t(m_strokeSettings.contour));
    brush.sizeX = strokeSize();
    brush.sizeY = strokeSize();
    brush.softness = float(100 - m_strokeSettings.hardness) / 100.0F;
    brush.amplitude = amplitude;
    brush.update();
    return brush;
}

double PaintToolBrushBased::strokeSize() const
{
    const double share = m_strokeSettings.pressure == PenPressure::Size ? m_pressure : 1.0;
    return std::max(m_strokeSettings.size * share, 1.0);
}

double PaintToolBrushBased::strokeStrength() const
{
    return m_strokeSettings.pressure == PenPressure::Strength ? m_pressure : 1.0;
}

float PaintToolBrushBased::opacity() const
{
    return float(m_brush->settings().opacity) / 100.0F;
}

void PaintToolBrushBased::endStroke()
{
    if (!m_isOpen)
        return;
    announcePending();
    m_isOpen = false;
    Q_EMIT commitNormalMap(m_isErasing ? tr("Erase") : action().iconText());
    // Only now: the answer to the commit is a new image, which clears it.
    m_isCommitted = true;
    m_isContinuable = true;
    strokeEnded();
}

// A fast mouse moves a thousand times a second. Each move is painted, but what it makes of the
// surface can take longer to compute than there is time between two of them. Pieces that overlap
// are computed as one; those far apart would only make a larger one.
void PaintToolBrushBased::announceInTime()
{
    m_isPending = true;
    if (m_nextFrame.hasExpired() || m_stroke.isDirtyWide())
        announcePending();
    else if (!m_frame.isActive())
        m_frame.start(int(m_nextFrame.remainingTime()));
}

void PaintToolBrushBased::announcePending()
{
    if (!std::exchange(m_isPending, false))
        return;
    m_frame.stop();
    announce();
    m_nextFrame.setRemainingTime(frame);
}

void PaintToolBrushBased::cancelStroke()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    m_isPending = false;
    const SurfacePiece stored = untouched(m_current, m_stroke.layer().size(), m_stroke.shown());
    if (!stored.isEmpty())
        Q_EMIT temporaryNormalMapChanged(stored.cells, stored.area);
    strokeEnded();
}

void PaintToolBrushBased::replaceSurface(const AngleImage &surface, const QString &undoText)
{
    endStroke();
    m_isCommitted = false;
    Q_EMIT temporaryNormalMapChanged(surface, surface.rect());
    Q_EMIT commitNormalMap(undoText);
}

void PaintToolBrushBased::settingsChanged()
{
    m_isContinuable = false;
    updateCursor();
}

void PaintToolBrushBased::adjustTo(const QPointF &position)
{
    m_brush->setSize(m_adjustment->sizeAt(position));
    m_brush->setHardness(m_adjustment->hardnessAt(position));
    updateCursor();
}

void PaintToolBrushBased::setLinePreview(bool isShown)
{
    const bool shows = isShown && m_isCommitted && !m_isOpen;
    const bool isUpToDate = !shows && !m_showsLine;
    m_showsLine = shows;
    if (!isUpToDate)
        updateCursor();
}

void PaintToolBrushBased::updateCursor()
{
    using Circle = ScalableToolCursor::ShapeCircle;
    ScalableToolCursor cursor;
    // An adjusted brush is seen where the adjustment began.
    const QPointF centre = m_adjustment ? m_adjustment->start() - m_pointer : QPointF();
    const BrushSettings &settings = m_brush->settings();
    const double radius = settings.size * 0.5;
    const float core = (1.0F - float(100 - settings.hardness) / 100.0F) * float(radius);
    cursor.addShape(std::make_shared<Circle>(centre, radius));
    cursor.addShape(std::make_shared<Circle>(centre, double(core)));
    // From the middle of the pixel.
    const QPointF from = QPointF(m_last) + QPointF(0.5, 0.5) - m_pointer;
    if (m_showsLine)
        cursor.addShape(std::make_shared<ScalableToolCursor::ShapeLine>(from, QPointF()));
    const QPointF farthest = m_showsLine ? from : centre;
    const double reach = std::max(std::abs(farthest.x()), std::abs(farthest.y()));
    cursor.setExtent(settings.size + 2.0 * reach);
    Q_EMIT cursorChanged(cursor);
}

QString PaintToolBrushBased::keysHelp() const
{
    return m_brush->keysHelp();
}
