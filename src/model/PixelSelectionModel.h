#pragma once

#include "model/PixelSelection.h"

#include <QList>
#include <QObject>

#include <functional>

class GProject;

/// Which pixels of the current body are selected: part of the document's undo steps, but no change
/// of the document. Holds its body without owning it; who removes the body makes another one
/// current.
///
/// There is one selection, that of the current body; the null image means that nothing is selected.
class PixelSelectionModel : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    Body *body() const { return m_selection.body; }
    /// The weights of the current body's pixels, null when nothing is selected.
    const FloatImage &selection() const { return m_selection.mask; }

    /// Pushes an undo step that selects by @p mask on @p body, which becomes the current one. A
    /// mask without weight counts as null. Nothing happens when that is the selection already, or
    /// without a project. A mergeable step takes up the one that goes on from it.
    void
    setSelection(Body *body, const FloatImage &mask, const QString &text, bool mergeable = false);

    /// The gesture is over: what comes next is an undo step of its own.
    void finishGesture();

    // Each is one undo step over all of the bodies, none when nothing changes. The current body
    // comes last, so that its mask is what remains; the others have no selection to begin with.
    void clear(const QList<Body *> &bodies);
    void selectAll(const QList<Body *> &bodies);
    void invert(const QList<Body *> &bodies);

public Q_SLOTS:
    /// Serves @p project (may be null) from now on, with no current body. Called before the former
    /// project goes.
    void setProject(GProject *project);
    /// Makes @p body (may be null) the current one, with nothing selected and without an undo step.
    void setBody(Body *body);

Q_SIGNALS:
    void selectionChanged(Body *body, FloatImage selection);

private:
    void apply(const PixelSelection &selection);
    void push(const PixelSelection &selection, const QString &text, bool mergeable);
    /// @p changed gives the new mask from that of before.
    void changeEach(const QList<Body *> &bodies,
                    const QString &text,
                    const std::function<FloatImage(const PixelSelection &)> &changed);

    GProject *m_project = nullptr;
    PixelSelection m_selection;
};
