#include "ui/SpriteReloading.h"

#include "framework/GAction.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/ProjectController.h"
#include "model/Sprite.h"
#include "model/SpriteLoading.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/NormalMapEditorScene.h"
#include "ui/NormalMapEditor.h"
#include "ui/WindowPrompts.h"

#include <QApplication>

namespace {
constexpr int patience = 100; // milliseconds until it looks again whether it may go on

QString named(const QVector<Body *> &bodies)
{
    constexpr int mostNames = 3;
    if (bodies.size() > mostNames)
        return QString::number(bodies.size());
    QStringList names;
    for (const Body *body : bodies)
        names.append(body->name().value());
    return names.join(QStringLiteral(", "));
}
} // namespace

SpriteReloading::SpriteReloading(ProjectController &controller,
                                 WindowPrompts &prompts,
                                 NormalMapEditor &editor,
                                 QObject *parent)
    : QObject(parent)
    , m_controller(controller)
    , m_prompts(prompts)
    , m_editor(editor)
    , m_reload(new GAction(tr("Reload sprites"), this))
{
    m_reload->setObjectName(QStringLiteral("reloadSprites"));
    m_reload->setStatusTip(tr("Read all sprites from their files again"));
    m_reload->setShortcut(QKeySequence(QStringLiteral("Ctrl+R")));
    m_waiting.setSingleShot(true);
    connect(m_reload, &QAction::triggered, this, &SpriteReloading::reloadAll);
    connect(&m_waiting, &QTimer::timeout, this, &SpriteReloading::goOn);
    connect(&m_watcher, &SpriteWatcher::changed, this, &SpriteReloading::goOn);
    connect(&m_watcher, &SpriteWatcher::settled, this, &SpriteReloading::goOn);
    connect(qGuiApp,
            &QGuiApplication::applicationStateChanged,
            this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive)
                    m_watcher.check();
            });
}

void SpriteReloading::setProject(Project *project)
{
    m_waiting.stop();
    m_resized.clear();
    m_isReloading = false;
    m_watcher.setProject(project);
}

void SpriteReloading::reloadAll()
{
    m_isReloading = true;
    m_hasReloaded = false;
    m_watcher.readAll();
}

void SpriteReloading::askAbout(const QVector<Body *> &bodies)
{
    m_resized += bodies;
    m_waiting.start(0);
}

// A batch of changes is shown as it is read, but asked about once, when all of it is.
void SpriteReloading::goOn()
{
    if (!m_watcher.hasChanges() && m_resized.isEmpty() && !m_isReloading)
        return;
    if (!isFree()) {
        m_waiting.start(patience);
        return;
    }
    showChanges();
    if (!m_watcher.isIdle())
        return;
    finishReload();
    ask();
}

bool SpriteReloading::isFree() const
{
    return QApplication::mouseButtons() == Qt::NoButton && !QApplication::activeModalWidget() &&
           !QApplication::activePopupWidget() && !m_editor.hasOpenEffect() &&
           !m_editor.scene().isGestureOpen();
}

void SpriteReloading::showChanges()
{
    const auto bodies = ::reloadSprites(m_controller.project(), m_watcher.takeChanges());
    if (bodies.isEmpty())
        return;
    m_hasReloaded = true;
    QVector<Body *> shown;
    QVector<Body *> missing;
    QVector<Body *> resized;
    for (Body *body : bodies) {
        const Sprite &sprite = body->sprite();
        (sprite.hasOwnImage() ? shown : sprite.isLoaded() ? resized : missing).append(body);
    }
    QStringList messages;
    if (!shown.isEmpty())
        messages.append(tr("Sprites reloaded: ") + named(shown));
    if (!missing.isEmpty())
        messages.append(tr("Sprites missing: ") + named(missing));
    if (!resized.isEmpty())
        messages.append(tr("Size of sprites changed: ") + named(resized));
    m_resized += resized;
    Q_EMIT reloaded();
    Q_EMIT noticed(messages.join(QStringLiteral(" · ")));
}

// The user may have changed his mind about those of another size.
void SpriteReloading::finishReload()
{
    if (!m_isReloading)
        return;
    m_isReloading = false;
    m_resized = m_controller.project().bodies().all();
    if (!m_hasReloaded)
        Q_EMIT noticed(tr("No sprite has changed"));
}

// Not over the window of another program, in which the sprite may just have been saved.
void SpriteReloading::ask()
{
    if (QGuiApplication::applicationState() != Qt::ApplicationActive)
        return;
    QVector<Body *> resized;
    for (Body *body : m_controller.project().bodies().all()) {
        if (m_resized.contains(body))
            resized.append(body);
    }
    m_resized.clear();
    const PromptedTask task(m_prompts, tr("Fitting surfaces"), false);
    const QStringList changes = m_controller.resolveResized(resized);
    if (changes.isEmpty())
        return;
    Q_EMIT reloaded();
    Q_EMIT noticed(changes.join(QStringLiteral(" · ")));
}
