#include "ui/EffectRouting.h"

#include "framework/GAction.h"
#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "tools/effects/Filter.h"

EffectRouting::EffectRouting(NormalMapEditorScene &scene, WindowPrompts &prompts, QObject *parent)
    : QObject(parent)
    , m_scene(scene)
    , m_prompts(prompts)
{
}

Filter *EffectRouting::effect() const
{
    return m_effect;
}

void EffectRouting::open(Filter &effect, const EffectContext &context)
{
    if (m_effect)
        return;
    EffectContext usable = context;
    usable.bodies.clear();
    for (Body *body : context.bodies) {
        // A red placeholder in place of the sprite tells nothing of its shape.
        if (!effect.needsSprites() || body->sprite().hasOwnImage())
            usable.bodies.append(body);
    }
    if (const int leftOut = context.bodies.size() - usable.bodies.size(); leftOut > 0)
        Q_EMIT noticed(tr("Sprites left out, as their files are missing or have another size than "
                          "their surfaces: %1")
                           .arg(leftOut));
    if (usable.bodies.isEmpty())
        return;
    m_effect = &effect;
    connect(&effect, &Filter::temporaryNormalMapChanged, this, &EffectRouting::show);
    connect(&effect, &Filter::commitNormalMaps, this, &EffectRouting::commit);
    connect(&effect, &Filter::resetTemporaryNormalMaps, this, &EffectRouting::reset);
    connect(&effect, &Filter::filterClosed, this, &EffectRouting::finish);
    Q_EMIT effectChanged(&effect);
    usable.progress = [this](int done, int total) { return m_prompts.showProgress(done, total); };
    const PromptedTask task(m_prompts, plainActionText(effect.action().text()), true);
    effect.start(usable);
}

void EffectRouting::discard()
{
    if (m_effect)
        m_effect->discard();
}

bool EffectRouting::settle(WindowPrompts::AfterEffect next)
{
    if (!m_effect || !m_effect->hasPreview())
        return true;
    const QString name = plainActionText(m_effect->action().text());
    const auto answer = m_prompts.askOpenEffect(name, next);
    if (answer == WindowPrompts::EffectAnswer::Apply && m_effect)
        m_effect->apply();
    return answer != WindowPrompts::EffectAnswer::Cancel;
}

void EffectRouting::finish()
{
    m_effect->disconnect(this);
    m_effect = nullptr;
    Q_EMIT effectChanged(nullptr);
}

// Only bodies of the project have an item, others may have left it.
void EffectRouting::show(Body *body, const AngleImage &surface, const QRect &area)
{
    if (const SpriteItem *item = m_scene.spriteItem(body))
        item->processor().updateRect(surface, area);
}

void EffectRouting::commit(const QString &undoText)
{
    const QList<Body *> bodies = m_effect->bodies();
    const PromptedTask task(m_prompts, plainActionText(m_effect->action().text()), false);
    const UndoMacro macro(bodies.first()->undoStack(), undoText);
    for (int done = 0; done < bodies.size(); ++done) {
        m_prompts.showProgress(done, bodies.size());
        if (const SpriteItem *item = m_scene.spriteItem(bodies[done]))
            item->storeShown(undoText);
    }
}

void EffectRouting::reset()
{
    for (const Body *body : m_effect->bodies()) {
        if (const SpriteItem *item = m_scene.spriteItem(body))
            item->processor().updateAll();
    }
}
