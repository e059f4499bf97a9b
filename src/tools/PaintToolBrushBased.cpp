#include "tools/PaintToolBrushBased.h"

#include "framework/GAction.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/SliderScale.h"
#include "framework/ThemedIcon.h"
#include "framework/UiScale.h"
#include "imaging/CircularBrush.h"
#include "imaging/StrokePainting.h"
#include "imaging/StrokeResults.h"
#include "tools/ToolPanel.h"

#include <QAction>
#include <QActionGroup>
#include <QButtonGroup>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QToolButton>
#include <QVector2D>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {
constexpr double sizePerNotch = 1.1;
constexpr int hardnessPerNotch = 5;
constexpr int opacityPerKey = 10;
constexpr Qt::KeyboardModifiers adjustModifiers = Qt::ControlModifier | Qt::AltModifier;

QPoint pixelAt(const QPointF &position)
{
    return {qFloor(position.x()), qFloor(position.y())};
}

QString percent()
{
    return QStringLiteral("%");
}

/// The buttons of contours, one of which is pressed. Owned by the row.
struct ContourButtons
{
    QButtonGroup *buttons;
    QActionGroup *actions;
};

ContourButtons createContourButtons(QWidget &row)
{
    // In the colours of the theme, as the contours' own icons are not.
    const QString icons[] = {
        QStringLiteral("cos"), QStringLiteral("linear"), QStringLiteral("round")};
    const ContourButtons contours{new QButtonGroup(&row), new QActionGroup(&row)};
    auto *layout = new QHBoxLayout(&row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(4));
    for (const QString &icon : icons) {
        const int index = contours.actions->actions().size();
        const QString path = QStringLiteral(":/painttoolicons/brush_shape_%1.svg").arg(icon);
        auto *action = new QAction(
            themedIcon(path), PaintToolBrushBased::tr("Brush contour %1").arg(index + 1), &row);
        action->setCheckable(true);
        action->setData(index);
        contours.actions->addAction(action);
        auto *button = new QToolButton;
        button->setDefaultAction(action);
        button->setIconSize(QSize(24, 24) * uiScaleFactor());
        button->setAutoRaise(true);
        button->setAccessibleName(action->text());
        contours.buttons->addButton(button, index);
        layout->addWidget(button);
    }
    layout->addStretch();
    contours.actions->actions().first()->setChecked(true);
    return contours;
}
} // namespace

PaintToolBrushBased::PaintToolBrushBased(const QIcon &icon,
                                         const QString &label,
                                         const QString &shortLabel,
                                         const QString &shortcut,
                                         BrushRows rows,
                                         QObject *parent)
    : PaintTool(icon, label, shortLabel, shortcut, parent)
    , m_rows(rows)
    , m_contours{std::make_unique<CircularBrushCos>(),
                 std::make_unique<CircularBrushRamp>(),
                 std::make_unique<CircularBrushCircle>()}
{
    createRows(rows);
    createShortcuts();
}

PaintToolBrushBased::~PaintToolBrushBased() = default;

void PaintToolBrushBased::createRows(BrushRows rows)
{
    const auto change = [this](auto &field) {
        return [this, &field](auto value) {
            field = value;
            settingsChanged();
        };
    };
    // Small brushes are chosen by the pixel, large ones by feel.
    m_sizeEdit = panel().addIntegerRow(tr("Brush size"),
                                       QStringLiteral("BrushSize"),
                                       SliderScale({1, 20, 40, 100, 500}),
                                       m_settings.size,
                                       tr("px"));
    connect(m_sizeEdit, &GIntEdit::valueChanged, this, change(m_settings.size));
    if (rows & HeightRow) {
        const auto *edit = panel().addDoubleRow(tr("Height"),
                                                QStringLiteral("Height"),
                                                SliderScale(0.1, 10.0, 200.0),
                                                m_settings.height,
                                                percent());
        connect(edit, &GDoubleEdit::valueChanged, this, change(m_settings.height));
    }
    if (rows & OpacityRow) {
        m_opacityEdit = panel().addIntegerRow(tr("Opacity"),
                                              QStringLiteral("Opacity"),
                                              SliderScale(1, 100),
                                              m_settings.opacity,
                                              percent());
        connect(m_opacityEdit, &GIntEdit::valueChanged, this, change(m_settings.opacity));
    }
    if (rows & HardnessRow) {
        m_hardnessEdit = panel().addIntegerRow(tr("Hardness"),
                                               QStringLiteral("Hardness"),
                                               SliderScale(0, 100),
                                               m_settings.hardness,
                                               percent());
        connect(m_hardnessEdit, &GIntEdit::valueChanged, this, change(m_settings.hardness));
    }
    if (rows & ContourRow)
        createContourRow();
    createPressureRow();
}

void PaintToolBrushBased::createContourRow()
{
    auto *row = new QWidget;
    row->setObjectName(QStringLiteral("Contour"));
    const auto [buttons, actions] = createContourButtons(*row);
    panel().addRow(tr("Contour"), row);
    connect(buttons, &QButtonGroup::idClicked, this, &PaintToolBrushBased::contourChanged);
    const auto choose = [this, actions = actions](const QVariant &kept) {
        if (QAction *action = actions->actions().value(kept.toInt())) {
            action->setChecked(true);
            contourChanged(action->data().toInt());
        }
    };
    panel().keepSetting({row->objectName(), [this] { return m_contour; }, choose});
}

void PaintToolBrushBased::createPressureRow()
{
    QStringList choices{tr("Off"), tr("Size")};
    if (m_rows & OpacityRow)
        choices.append(tr("Opacity"));
    if (m_rows & HeightRow)
        choices.append(tr("Height"));
    auto *box = panel().addChoiceRow(tr("Pen pressure"), QStringLiteral("PenPressure"), choices);
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        m_pressureUse = PenPressure(index);
    });
    box->setCurrentIndex(box->count() - 1);
}

void PaintToolBrushBased::createShortcuts()
{
    addShortcut(QKeySequence(QStringLiteral("[")), [this] { changeSize(-1); });
    addShortcut(QKeySequence(QStringLiteral("]")), [this] { changeSize(1); });
    // Which of these is told depends on the keyboard.
    for (const char *keys : {"Shift+[", "Shift+{", "{"})
        addShortcut(QKeySequence(QLatin1String(keys)), [this] { changeHardness(-1); });
    for (const char *keys : {"Shift+]", "Shift+}", "}"})
        addShortcut(QKeySequence(QLatin1String(keys)), [this] { changeHardness(1); });
    for (int digit = 0; m_opacityEdit && digit <= 9; ++digit) {
        const int opacity = (digit == 0 ? 10 : digit) * opacityPerKey;
        addShortcut(QKeySequence(Qt::Key_0 + digit),
                    [this, opacity] { m_opacityEdit->setValue(opacity); });
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
        m_adjustment.emplace(event.position, m_settings);
    if (event.changedButton != Qt::LeftButton || m_adjustment)
        return;
    const QPoint point = pixelAt(event.position);
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
    announce();
}

void PaintToolBrushBased::mouseMove(const ToolPointerEvent &event)
{
    m_pointer = event.position;
    if (m_adjustment) {
        adjustTo(event.position);
    } else if (m_isOpen && event.buttons.testFlag(Qt::LeftButton)) {
        m_pressure = event.pressure;
        continueStroke(pixelAt(event.position));
        announce();
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
    if (modifiers & Qt::ShiftModifier)
        changeHardness(notches);
    else
        changeSize(notches);
    return true;
}

void PaintToolBrushBased::updateNormalMap(AngleImage normalmap)
{
    m_current = std::move(normalmap);
    m_isCommitted = false;
    // What was painted so far is gone: an open stroke goes on from here.
    if (m_isOpen)
        m_stroke.begin(m_current);
}

void PaintToolBrushBased::updateSelection(FloatImage /*selection*/)
{
    m_isContinuable = false;
}

void PaintToolBrushBased::contourChanged(int contour)
{
    m_contour = contour;
    settingsChanged();
}

void PaintToolBrushBased::beginStroke(const QPoint &point)
{
    m_strokeSettings = m_settings;
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
    FloatBrushFunc &brush = *m_contours.at(size_t(m_contour));
    brush.sizeX = strokeSize();
    brush.sizeY = strokeSize();
    brush.softness = float(100 - m_strokeSettings.hardness) / 100.0F;
    brush.amplitude = amplitude;
    brush.update();
    return brush;
}

double PaintToolBrushBased::strokeSize() const
{
    const double share = m_pressureUse == PenPressure::Size ? m_pressure : 1.0;
    return std::max(m_strokeSettings.size * share, 1.0);
}

double PaintToolBrushBased::strokeStrength() const
{
    return m_pressureUse == PenPressure::Strength ? m_pressure : 1.0;
}

float PaintToolBrushBased::opacity() const
{
    return float(m_settings.opacity) / 100.0F;
}

void PaintToolBrushBased::endStroke()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    Q_EMIT commitNormalMap(m_isErasing ? tr("Erase") : action().iconText());
    // Only now: the answer to the commit is a new image, which clears it.
    m_isCommitted = true;
    m_isContinuable = true;
    strokeEnded();
}

void PaintToolBrushBased::cancelStroke()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
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

void PaintToolBrushBased::changeSize(double notches)
{
    const int size = m_settings.size;
    const int wanted = qRound(size * std::pow(sizePerNotch, notches));
    // Small brushes would stay as they are.
    m_sizeEdit->setValue(notches > 0 ? std::max(wanted, size + 1) : std::min(wanted, size - 1));
}

void PaintToolBrushBased::changeHardness(double notches)
{
    if (m_hardnessEdit)
        m_hardnessEdit->setValue(m_settings.hardness + qRound(notches * hardnessPerNotch));
}

void PaintToolBrushBased::adjustTo(const QPointF &position)
{
    m_sizeEdit->setValue(m_adjustment->sizeAt(position));
    if (m_hardnessEdit)
        m_hardnessEdit->setValue(m_adjustment->hardnessAt(position));
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
    const double radius = m_settings.size * 0.5;
    const float core = (1.0F - float(100 - m_settings.hardness) / 100.0F) * float(radius);
    cursor.addShape(std::make_shared<Circle>(centre, radius));
    cursor.addShape(std::make_shared<Circle>(centre, double(core)));
    const QPointF from = QPointF(m_last) - m_pointer;
    if (m_showsLine)
        cursor.addShape(std::make_shared<ScalableToolCursor::ShapeLine>(from, QPointF()));
    const QPointF farthest = m_showsLine ? from : centre;
    const double reach = std::max(std::abs(farthest.x()), std::abs(farthest.y()));
    cursor.setExtent(m_settings.size + 2.0 * reach);
    Q_EMIT cursorChanged(cursor);
}

QString PaintToolBrushBased::keysHelp() const
{
    QStringList lines{tr("[ ] or Ctrl + wheel | brush size")};
    if (m_hardnessEdit)
        lines.append(tr("Shift and these | hardness"));
    if (m_opacityEdit)
        lines.append(tr("1 to 9, 0 | opacity"));
    lines.append(tr("Ctrl + Alt + right drag | size and hardness"));
    lines.append(tr("Shift | straight line from the last stroke"));
    lines.append(tr("Esc | take the stroke back"));
    return lines.join(QLatin1Char('\n'));
}
