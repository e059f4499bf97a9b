#include "preview/ZoomWidget.h"

#include "framework/GAction.h"
#include "framework/NumberKeys.h"
#include "framework/ThemedIcon.h"
#include "preview/EditorGraphicsView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

#include <algorithm>
#include <array>

namespace {
constexpr std::array levels = {
    10, 20, 25, 33, 50, 75, 100, 150, 200, 300, 400, 500, 600, 700, 800, 900, 1000};

// What is shown counts: 33.4 % is the level 33 %, from which a step leads away.
int percentOf(double zoom)
{
    return qRound(zoom * 100.0);
}

/// Takes "150" for "150%".
class PercentValidator : public QRegularExpressionValidator
{
public:
    explicit PercentValidator(QObject *parent)
        : QRegularExpressionValidator(QRegularExpression(QStringLiteral("(\\d+)%")), parent)
    {
    }

    void fixup(QString &input) const override
    {
        if (!input.isEmpty() && !input.endsWith(QLatin1Char('%')))
            input += QLatin1Char('%');
    }
};

/// Or becomes one, as the line completes what it can when it is left.
bool isPercentage(const QLineEdit &edit)
{
    int cursor = 0;
    QString text = edit.text();
    edit.validator()->fixup(text);
    return edit.validator()->validate(text, cursor) == QValidator::Acceptable;
}

QIcon zoomIcon(const QString &name)
{
    return themedIcon(QStringLiteral(":/icons/zoom_%1.svg").arg(name));
}

QString zoomToolTip()
{
    // The keys are named as users of the first version know them, exchanged ones included.
    return ZoomWidget::tr("<table><tr><td><b>Zoom</b></td><td></td></tr>"
                          "<tr><td>Strg +</td><td>&nbsp;&nbsp;in</td></tr>"
                          "<tr><td>Strg -</td><td>&nbsp;&nbsp;out</td></tr>"
                          "<tr><td>Strg 0</td><td>&nbsp;&nbsp;fit</td></tr>"
                          "<tr><td>Strg 1</td><td>&nbsp;&nbsp;1:1</td></tr>"
                          "<tr><td>Alt+Wheel</td><td>&nbsp;&nbsp;continuous</td></tr>"
                          "<tr><td></td><td></td></tr>"
                          "<tr><td><b>Pan</b></td><td></td></tr>"
                          "<tr><td>Space</td><td>&nbsp;&nbsp;pan view</td></tr></table>");
}
} // namespace

ZoomWidget::ZoomWidget(QWidget *parent)
    : QWidget(parent)
    , m_edit(new QLineEdit(this))
    , m_in(new GAction(zoomIcon(QStringLiteral("in")), tr("Zoom In"), this))
    , m_out(new GAction(zoomIcon(QStringLiteral("out")), tr("Zoom Out"), this))
    , m_oneToOne(new GAction(zoomIcon(QStringLiteral("one")), tr("Zoom 1:1"), this))
    , m_fit(new GAction(zoomIcon(QStringLiteral("fit")), tr("Zoom Fit"), this))
    , m_selection(new GAction(tr("Zoom to Selection"), this))
{
    setToolTip(zoomToolTip());
    auto *label = new QLabel(tr("Zoom:"), this);
    label->setBuddy(m_edit);
    m_edit->setAccessibleName(tr("Zoom in percent"));
    m_edit->setValidator(new PercentValidator(m_edit));
    m_edit->setAlignment(Qt::AlignRight);
    m_edit->setFixedWidth(m_edit->fontMetrics().horizontalAdvance(QStringLiteral("000000%")) + 8);
    m_edit->installEventFilter(this);
    connect(m_edit, &QLineEdit::editingFinished, this, &ZoomWidget::takeText);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(label);
    layout->addWidget(m_edit);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    m_in->setObjectName(QStringLiteral("zoomIn"));
    m_out->setObjectName(QStringLiteral("zoomOut"));
    m_oneToOne->setObjectName(QStringLiteral("zoomOneToOne"));
    m_fit->setObjectName(QStringLiteral("zoomFit"));
    m_selection->setObjectName(QStringLiteral("zoomToSelection"));
    m_in->setShortcuts(QKeySequence::ZoomIn);
    m_out->setShortcuts(QKeySequence::ZoomOut);
    m_oneToOne->setShortcut(QKeySequence(QStringLiteral("Ctrl+0")));
    m_fit->setShortcut(QKeySequence(QStringLiteral("Ctrl+1")));
    m_selection->setShortcut(QKeySequence(QStringLiteral("Ctrl+2")));
    connect(m_in, &QAction::triggered, this, &ZoomWidget::zoomIn);
    connect(m_out, &QAction::triggered, this, &ZoomWidget::zoomOut);
    connect(m_oneToOne, &QAction::triggered, this, [this] { Q_EMIT zoomRequested(1.0); });
    connect(m_fit, &QAction::triggered, this, &ZoomWidget::fitRequested);
    connect(m_selection, &QAction::triggered, this, &ZoomWidget::selectionRequested);
    showZoom();
}

void ZoomWidget::setZoom(double zoom)
{
    m_zoom = zoom;
    showZoom();
}

void ZoomWidget::zoomIn()
{
    const auto *const above = std::upper_bound(levels.begin(), levels.end(), percentOf(m_zoom));
    if (above != levels.end())
        Q_EMIT zoomRequested(*above / 100.0);
}

void ZoomWidget::zoomOut()
{
    const auto *const notBelow = std::lower_bound(levels.begin(), levels.end(), percentOf(m_zoom));
    if (notBelow != levels.begin())
        Q_EMIT zoomRequested(*std::prev(notBelow) / 100.0);
}

void ZoomWidget::takeText()
{
    const double typed = m_edit->text().remove(QLatin1Char('%')).toDouble() / 100.0;
    const double zoom =
        std::clamp(typed, EditorGraphicsView::minimumZoom, EditorGraphicsView::maximumZoom);
    // Leaving the field untouched must not round a continuous zoom to a whole percentage.
    const bool isNew = m_edit->text() != shownText();
    showZoom();
    m_edit->clearFocus();
    if (isNew)
        Q_EMIT zoomRequested(zoom);
}

QString ZoomWidget::shownText() const
{
    return QStringLiteral("%1%").arg(percentOf(m_zoom));
}

void ZoomWidget::showZoom()
{
    m_edit->setText(shownText());
}

// Escape, and leaving with what is no percentage, bring the zoom back.
bool ZoomWidget::eventFilter(QObject *watched, QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (isOverride && passesNumberField(static_cast<QKeyEvent &>(*event), m_edit->isModified())) {
        event->ignore();
        return true;
    }
    const bool isEscape = event->type() == QEvent::KeyPress &&
                          static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    const bool isUnfit = event->type() == QEvent::FocusOut && !isPercentage(*m_edit);
    if (isEscape || isUnfit)
        showZoom();
    if (isEscape)
        m_edit->clearFocus();
    return isEscape || QWidget::eventFilter(watched, event);
}
