#include "tools/PaintToolSelectWithPolygon.h"

#include "framework/GAction.h"
#include "framework/ThemedIcon.h"
#include "tools/ToolPanel.h"

namespace {
constexpr int closingDistance = 5; // along the sides of pixels
constexpr int cornersOfArea = 3;
} // namespace

PaintToolSelectWithPolygon::PaintToolSelectWithPolygon(QObject *parent)
    : PaintToolSelect(themedIcon(QStringLiteral(":/painttoolicons/polygon_select.svg")),
                      tr("Polygonal lasso"),
                      tr("Polygon"),
                      QStringLiteral("L"),
                      parent)
{
    action().setStatusTip(tr("Selects what is inside of a polygon that you click."));
    addModeSwitch();
    panel().addHelp(action().statusTip() + tr("\nclick | add a corner, or close on the first"
                                              "\ndouble click or Enter | close"
                                              "\nBackspace | remove the last corner"
                                              "\nEsc | cancel"
                                              "\nbegin with Shift | add to the selection"
                                              "\nbegin with Alt | subtract from the selection"));
}

void PaintToolSelectWithPolygon::deactivate()
{
    cancel();
    PaintToolSelect::deactivate();
}

void PaintToolSelectWithPolygon::updateTexture(QImage image)
{
    if (image.size() != texture().size())
        cancel();
    PaintToolSelect::updateTexture(std::move(image));
}

void PaintToolSelectWithPolygon::pressAt(const QPoint &pixel)
{
    const bool isFirst = m_polygon.isEmpty();
    if (isFirst) {
        begin();
    } else if (isClosing(pixel)) {
        close();
        return;
    }
    m_polygon.append(pixel);
    m_pointer = pixel;
    show();
    if (isFirst)
        Q_EMIT stepBackTextChanged();
}

void PaintToolSelectWithPolygon::moveTo(const QPoint &pixel, bool /*isHeld*/)
{
    if (m_polygon.isEmpty() || pixel == m_pointer)
        return;
    m_pointer = pixel;
    show();
}

// Its first press set a corner here, or closed the polygon already: a new one is not begun, which
// would clear what was just selected.
void PaintToolSelectWithPolygon::doubleClickAt(const QPoint & /*pixel*/)
{
    closeIfArea();
}

void PaintToolSelectWithPolygon::keyPress(int key, Qt::KeyboardModifiers modifiers)
{
    PaintToolSelect::keyPress(key, modifiers);
    if (key == Qt::Key_Escape)
        cancel();
    else if (key == Qt::Key_Backspace)
        stepBack();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter)
        closeIfArea();
}

void PaintToolSelectWithPolygon::begin()
{
    m_isSubtracting = mode() == SelectionMode::Subtract;
    if (!m_isSubtracting && mode() != SelectionMode::Add)
        clearSelection();
    m_preview.begin(m_isSubtracting);
}

bool PaintToolSelectWithPolygon::isClosing(const QPoint &pixel) const
{
    return (pixel - m_polygon.first()).manhattanLength() <= closingDistance;
}

void PaintToolSelectWithPolygon::closeIfArea()
{
    if (m_polygon.size() >= cornersOfArea)
        close();
}

void PaintToolSelectWithPolygon::close()
{
    const QPolygon polygon = m_polygon;
    cancel();
    select(combinedWithPolygon(selection(), polygon, texture().size(), m_isSubtracting));
}

void PaintToolSelectWithPolygon::cancel()
{
    const bool wasOpen = !m_polygon.isEmpty();
    m_polygon.clear();
    m_preview.clear();
    if (wasOpen)
        Q_EMIT stepBackTextChanged();
}

QString PaintToolSelectWithPolygon::stepBackText() const
{
    return m_polygon.isEmpty() ? QString() : tr("Remove last corner");
}

void PaintToolSelectWithPolygon::stepBack()
{
    if (m_polygon.size() <= 1) {
        cancel();
        return;
    }
    m_polygon.removeLast();
    show();
}

void PaintToolSelectWithPolygon::show()
{
    m_preview.show(m_polygon, m_pointer, isClosing(m_pointer));
}
