#include "model/SurfaceFitting.h"

#include "imaging/PoolQueue.h"
#include "imaging/SurfaceResizing.h"
#include "model/Body.h"
#include "model/ProjectPrompts.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyT.h"

#include <QCoreApplication>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SurfaceFitting)
};

AngleImage fitted(const AngleImage &surface, const QSize &size, const ResizedAnswer &answer)
{
    switch (answer.action) {
    case ResizedAnswer::Action::Anchor:
        return anchoredTo(surface, size, answer.anchor);
    case ResizedAnswer::Action::Scale:
        return scaledTo(surface, size);
    default:
        return {size.width(), size.height()};
    }
}

struct FittingTexts
{
    QString macro;
    QString step;
    QString change; ///< followed by the body's name
};

FittingTexts fittingTexts(ResizedAnswer::Action action)
{
    switch (action) {
    case ResizedAnswer::Action::Anchor:
        return {Words::tr("anchor surfaces"),
                Words::tr("anchor surface"),
                Words::tr("Anchored normalmap: ")};
    case ResizedAnswer::Action::Scale:
        return {Words::tr("scale surfaces"),
                Words::tr("scale surface"),
                Words::tr("Scaled normalmap: ")};
    default:
        return {Words::tr("reset normalmaps"),
                Words::tr("reset normalmap"),
                Words::tr("Reset normalmap: ")};
    }
}

} // namespace

QStringList fitSurfaces(const QVector<Body *> &bodies,
                        const ResizedAnswer &answer,
                        const std::function<void(int done)> &progress)
{
    const FittingTexts texts = fittingTexts(answer.action);
    PoolQueue<AngleImage> surfaces(bodies.size(), [&](int index) {
        return [surface = bodies[index]->paintedNormalMap().angleImage(),
                size = bodies[index]->sprite().fileSize(),
                answer] { return fitted(surface, size, answer); };
    });
    QStringList changes;
    const UndoMacro macro(bodies.first()->undoStack(), texts.macro);
    for (const Body *body : bodies) {
        body->paintedNormalMap().setAngleImage(surfaces.next(), texts.step);
        changes.append(texts.change + body->name().value());
        progress(changes.size());
    }
    return changes;
}
