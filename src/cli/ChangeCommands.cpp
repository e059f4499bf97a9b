#include "base/Error.h"
#include "base/PlainText.h"
#include "cli/Commands.h"
#include "cli/OpenedProject.h"
#include "cli/SettingText.h"
#include "model/NormalMapImport.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"

#include <QFileInfo>

#include <functional>

namespace {
// Adds what can be added and saves; Partly when something could not, Failed and nothing is saved
// when nothing could.
ExitCode addAndSave(OpenedProject &opened,
                    const QStringList &sprites,
                    const QString &outputProject,
                    Console &console)
{
    const int before = opened.bodies().size();
    ExitCode added = ExitCode::Done;
    try {
        opened.controller().addSprites(sprites);
    } catch (const Error &error) {
        for (const QString &line : error.message().split(QLatin1Char('\n')))
            console.complain(line);
        added = ExitCode::Partly;
    }
    if (opened.bodies().size() == before) {
        console.complain(QStringLiteral("No sprite could be added, nothing is saved"));
        return ExitCode::Failed;
    }
    const ExitCode saved = opened.save(outputProject);
    return saved == ExitCode::Done ? added : saved;
}

// Opens, changes and saves. A change that throws is Failed or, where the words can't be meant,
// Usage; nothing is saved then.
ExitCode change(const ChangeOptions &options,
                Console &console,
                ExitCode refusal,
                const std::function<void(OpenedProject &)> &work)
{
    OpenedProject opened(console);
    if (!opened.open(options.project))
        return ExitCode::Unreadable;
    try {
        work(opened);
    } catch (const Error &error) {
        console.complain(error.message());
        return refusal;
    }
    return opened.save(options.outputProject);
}

Property &settingOf(const Project &project, const QString &key)
{
    if (!Project::settingKeys().contains(key))
        throw Error(QStringLiteral("There is no setting '%1', only %2")
                        .arg(key, Project::settingKeys().join(QStringLiteral(", "))));
    return project.field<Property>(key);
}
} // namespace

ExitCode runCreate(const CreateOptions &options, Console &console)
{
    if (!isProjectName(options.project, console))
        return ExitCode::Usage;
    if (!options.force && QFileInfo::exists(options.project)) {
        console.complain(
            QStringLiteral("'%1' exists already, use --force to replace it").arg(options.project));
        return ExitCode::Failed;
    }
    OpenedProject opened(console);
    return addAndSave(opened, options.sprites, options.project, console);
}

ExitCode runAdd(const ChangeOptions &options, Console &console)
{
    OpenedProject opened(console);
    if (!opened.open(options.project))
        return ExitCode::Unreadable;
    return addAndSave(opened, options.items, options.outputProject, console);
}

ExitCode runRemove(const ChangeOptions &options, Console &console)
{
    return change(options, console, ExitCode::Failed, [&options](OpenedProject &opened) {
        QVector<Body *> bodies;
        for (const QString &name : options.items)
            bodies.append(&opened.body(name));
        opened.controller().removeBodies(bodies);
    });
}

ExitCode runSet(const ChangeOptions &options, Console &console)
{
    return change(options, console, ExitCode::Usage, [&options](OpenedProject &opened) {
        for (const QString &item : options.items) {
            const int equals = item.indexOf(QLatin1Char('='));
            if (equals < 1)
                throw Error(QStringLiteral("'%1' is no setting, write KEY=VALUE").arg(item));
            setSettingText(settingOf(opened.controller().project(), item.left(equals)),
                           item.mid(equals + 1));
        }
    });
}

ExitCode runImport(const ImportOptions &options, Console &console)
{
    const ChangeOptions changed{options.project, options.outputProject, {}};
    return change(changed, console, ExitCode::Failed, [&options](OpenedProject &opened) {
        Body &body = opened.body(options.body);
        const QSize size = body.sprite().image().size();
        const ImportedNormalMap map = readNormalMap(options.image, size);
        if (map.size.isEmpty())
            throw Error(QStringLiteral("Failed to load ") + options.image);
        if (size.isEmpty())
            throw Error(
                QStringLiteral("The sprite of '%1' is missing, so that its size is not known")
                    .arg(body.name().value()));
        if (map.surface.isNull())
            throw Error(QStringLiteral("Normal map has wrong size!"));
        body.paintedNormalMap().setAngleImage(map.surface, QStringLiteral("Import normal map"));
    });
}

ExitCode runRepair(const RepairOptions &options, Console &console)
{
    OpenedProject opened(console);
    opened.prompts().searchFolder = options.searchFolder;
    opened.prompts().removesMissing = options.removeMissing;
    opened.prompts().resizedAnswer = options.resized;
    if (!options.searchFolder.isEmpty() && !QFileInfo(options.searchFolder).isDir()) {
        console.complain(QStringLiteral("'%1' is no folder").arg(options.searchFolder));
        return ExitCode::Usage;
    }
    if (!opened.open(options.project))
        return ExitCode::Unreadable;
    bool isChanged = false;
    for (const Body *body : opened.bodies()) {
        if (statusOf(*body) != BodyStatus::Changed)
            continue;
        console.data(QStringLiteral("Accepted changed sprite: ") + body->name().value());
        isChanged = true;
    }
    opened.controller().checkTextures();
    isChanged = isChanged || opened.controller().project().undoStack().isModified();
    if (isChanged || !options.outputProject.isEmpty()) {
        const ExitCode saved = opened.save(options.outputProject);
        if (saved != ExitCode::Done)
            return saved;
    }
    bool isWhole = true;
    for (const Body *body : opened.bodies()) {
        const BodyStatus status = statusOf(*body);
        if (status == BodyStatus::Ok || status == BodyStatus::Changed)
            continue;
        console.complain(QStringLiteral("Still %1: %2")
                             .arg(statusWord(status), body->name().value() + statusReason(*body)));
        isWhole = false;
    }
    return isWhole ? ExitCode::Done : ExitCode::Partly;
}
