#include "model/PixelSelectionModel.h"

#include "imaging/SelectionMasks.h"
#include "model/Body.h"
#include "model/Sprite.h"
#include "model/properties/GProject.h"
#include "model/properties/GenericUndoCommand.h"

namespace {
// The size of the body's surface, which need not be made for it.
QSize sizeOf(const Body &body)
{
    const QSize painted = body.paintedSize();
    return painted.isEmpty() ? body.sprite().image().size() : painted;
}
} // namespace

void PixelSelectionModel::setSelection(Body *body,
                                       const FloatImage &mask,
                                       const QString &text,
                                       bool mergeable)
{
    push({body, withoutEmpty(mask)}, text, mergeable);
}

void PixelSelectionModel::finishGesture()
{
    if (m_project)
        m_project->undoStack().closeStep();
}

void PixelSelectionModel::clear(const QList<Body *> &bodies)
{
    changeEach(
        bodies, tr("clear pixel selection"), [](const PixelSelection &) { return FloatImage(); });
}

void PixelSelectionModel::selectAll(const QList<Body *> &bodies)
{
    changeEach(bodies, tr("select all pixels"), [](const PixelSelection &before) {
        return fullSelection(sizeOf(*before.body));
    });
}

void PixelSelectionModel::invert(const QList<Body *> &bodies)
{
    changeEach(bodies, tr("invert pixel selection"), [](const PixelSelection &before) {
        return inverted(before.mask);
    });
}

void PixelSelectionModel::setProject(GProject *project)
{
    apply({});
    m_project = project;
}

void PixelSelectionModel::setBody(Body *body)
{
    if (body != m_selection.body)
        apply({body, {}});
}

// Masks need not be compared again: nothing but a step makes one, and a step changes it.
void PixelSelectionModel::apply(const PixelSelection &selection)
{
    if (selection.body == m_selection.body && selection.mask.isNull() && m_selection.mask.isNull())
        return;
    m_selection = selection;
    Q_EMIT selectionChanged(m_selection.body, m_selection.mask);
}

void PixelSelectionModel::push(const PixelSelection &selection, const QString &text, bool mergeable)
{
    if (selection == m_selection || !m_project)
        return;
    pushUndoStep(m_project->undoStack(),
                 *this,
                 &PixelSelectionModel::apply,
                 m_selection,
                 selection,
                 text,
                 mergeable);
}

void PixelSelectionModel::changeEach(
    const QList<Body *> &bodies,
    const QString &text,
    const std::function<FloatImage(const PixelSelection &)> &changed)
{
    QList<Body *> order = bodies;
    if (m_selection.body && order.removeAll(m_selection.body) > 0)
        order.append(m_selection.body);
    QList<PixelSelection> selections;
    for (Body *body : std::as_const(order))
        selections.append({body, body == m_selection.body ? m_selection.mask : FloatImage()});
    for (PixelSelection &selection : selections)
        selection.mask = changed(selection);
    // Only the last one remains: steps that lead back to it would change nothing.
    if (!m_project || selections.isEmpty() || selections.last() == m_selection)
        return;
    const UndoMacro macro(m_project->undoStack(), text);
    for (const PixelSelection &selection : std::as_const(selections))
        push(selection, text, false);
}
