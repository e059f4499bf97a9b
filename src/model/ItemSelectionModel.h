#pragma once

#include "model/Body.h" // whole for the signal's lists

#include <QList>
#include <QObject>
#include <QSet>

class Project;

/// Which bodies are selected: part of the document's undo steps, but no change of the document.
/// Holds its bodies without owning them; who removes a body takes it out of the selection.
class ItemSelectionModel : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The selected bodies in the order of the project's list.
    QList<Body *> selection() const { return ordered(m_selection); }
    /// Pushes an undo step that selects @p bodies, unless they are selected already. Without a
    /// project nothing happens.
    void setSelection(const QList<Body *> &bodies);

public Q_SLOTS:
    /// Serves @p project (may be null) from now on, with nothing selected. Called before the former
    /// project goes.
    void setProject(Project *project);

Q_SIGNALS:
    void bodySelectionChanged(QList<Body *> oldSelection, QList<Body *> newSelection);

private:
    void apply(const QSet<Body *> &selection);
    QList<Body *> ordered(const QSet<Body *> &selection) const;

    Project *m_project = nullptr;
    QSet<Body *> m_selection;
};
