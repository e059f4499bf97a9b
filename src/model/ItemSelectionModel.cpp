#include "model/ItemSelectionModel.h"

#include "model/Project.h"
#include "model/properties/GenericUndoCommand.h"

void ItemSelectionModel::setSelection(const QList<Body *> &bodies)
{
    const QSet<Body *> selection(bodies.begin(), bodies.end());
    if (selection == m_selection || !m_project)
        return;
    pushUndoStep(m_project->undoStack(),
                 *this,
                 &ItemSelectionModel::apply,
                 m_selection,
                 selection,
                 tr("selection changed"),
                 true);
}

void ItemSelectionModel::setProject(Project *project)
{
    apply({});
    m_project = project;
}

void ItemSelectionModel::apply(const QSet<Body *> &selection)
{
    if (selection == m_selection)
        return;
    const QList<Body *> oldSelection = this->selection();
    m_selection = selection;
    Q_EMIT bodySelectionChanged(oldSelection, this->selection());
}

QList<Body *> ItemSelectionModel::ordered(const QSet<Body *> &selection) const
{
    QList<Body *> result;
    if (!m_project)
        return result;
    for (Body *body : m_project->bodies().all()) {
        if (selection.contains(body))
            result.append(body);
    }
    // A removed body stands in the selection until the macro that removes it ends.
    QSet<Body *> rest = selection;
    for (Body *body : std::as_const(result))
        rest.remove(body);
    return result + rest.values();
}
