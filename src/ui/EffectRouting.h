#pragma once

#include "imaging/AngleImage.h"
#include "ui/WindowPrompts.h"

#include <QObject>
#include <QPointer>
#include <QRect>

class Body;
class Filter;
class NormalMapEditorScene;
struct EffectContext;

/// Between the open effect and the bodies that it works on: shows what it announces in the scene,
/// and makes one undo step of what is shown. Scene, prompts and effects are borrowed.
class EffectRouting : public QObject
{
    Q_OBJECT

public:
    EffectRouting(NormalMapEditorScene &scene, WindowPrompts &prompts, QObject *parent = nullptr);

    /// Null for none.
    Filter *effect() const;
    /// Starts @p effect on those bodies of @p context that it can work on; not at all without any.
    /// It may have closed when this returns.
    void open(Filter &effect, const EffectContext &context);
    /// Ends the open effect as if it had never been; nothing without one.
    void discard();
    /// Before @p next is done, which its preview is not part of: lets the user apply the open
    /// effect, or go on without. It stays open then. False when nothing shall be done.
    bool settle(WindowPrompts::AfterEffect next);

Q_SIGNALS:
    /// Before it starts, and after it has closed, with null.
    void effectChanged(Filter *effect);
    /// A line for the status bar.
    void noticed(const QString &message);

private:
    void show(Body *body, const AngleImage &surface, const QRect &area);
    void commit(const QString &undoText);
    void reset();
    void finish();

    NormalMapEditorScene &m_scene;
    WindowPrompts &m_prompts;
    QPointer<Filter> m_effect;
};
