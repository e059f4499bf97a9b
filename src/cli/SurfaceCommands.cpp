#include "base/Error.h"
#include "cli/Commands.h"
#include "cli/Effects.h"
#include "cli/OpenedProject.h"
#include "cli/PatternChoice.h"
#include "cli/TypedValues.h"
#include "imaging/PoolQueue.h"
#include "imaging/SlopeArithmetic.h"
#include "imaging/Smoothing.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"

namespace {
struct SurfaceChange
{
    QString undoText;
    bool needsSprite = false;
    /// The surface that takes the place of a body's own; called on the pool.
    std::function<AngleImage(const AngleImage &surface, const QImage &sprite)> compute;
};

// Why a change can't be made on a body; empty when it can.
QString troubleOf(const Body &body, const SurfaceChange &change)
{
    if (body.paintedNormalMap().isDamaged())
        return QStringLiteral("its surface is damaged");
    if (body.surface().isNull() || (change.needsSprite && !body.sprite().isLoaded()))
        return body.sprite().problem().isEmpty()
                   ? QStringLiteral("its sprite is missing")
                   : QStringLiteral("its sprite can't be read: ") + body.sprite().problem();
    if (change.needsSprite && body.sprite().isWrongSized())
        return QStringLiteral("its sprite has another size than its surface");
    return {};
}

// In list order, each once. Throws Error when there is no such body.
QVector<Body *> chosenBodies(const OpenedProject &opened, const QStringList &names)
{
    if (names.isEmpty())
        return opened.bodies();
    QVector<const Body *> named;
    for (const QString &name : names)
        named.append(&opened.body(name));
    QVector<Body *> chosen;
    for (Body *body : opened.bodies()) {
        if (named.contains(body))
            chosen.append(body);
    }
    return chosen;
}

void changeSurfaces(const QVector<Body *> &bodies, const SurfaceChange &change, Console &console)
{
    PoolQueue<AngleImage> surfaces(bodies.size(), [&](int index) {
        const Body &body = *bodies[index];
        return
            [compute = change.compute, surface = body.surface(), sprite = body.sprite().image()] {
                return compute(surface, sprite);
            };
    });
    for (int i = 0; i < bodies.size(); ++i) {
        bodies[i]->paintedNormalMap().setAngleImage(surfaces.next(), change.undoText);
        bodies[i]->paintedNormalMap().dataFile(); // made anew, which lets go of the loaded one
        console.showProgress(i + 1, bodies.size());
    }
}

ExitCode runChange(const SurfaceOptions &options, Console &console, const SurfaceChange &change)
{
    const QString target =
        options.outputProject.isEmpty() ? options.project : options.outputProject;
    if (!isProjectName(target, console))
        return ExitCode::Usage;
    OpenedProject opened(console);
    if (!opened.open(options.project))
        return ExitCode::Unreadable;
    // Nobody takes a step back here, so that former surfaces need not be kept.
    opened.controller().project().undoStack().setUndoLimit(1);
    QVector<Body *> bodies;
    bool leavesSome = false;
    for (Body *body : chosenBodies(opened, options.bodies)) {
        const QString trouble = troubleOf(*body, change);
        if (trouble.isEmpty()) {
            bodies.append(body);
            continue;
        }
        console.complain(
            QStringLiteral("'%1' is left alone: %2").arg(body->name().value(), trouble));
        leavesSome = true;
    }
    if (bodies.isEmpty() && leavesSome) {
        console.complain(QStringLiteral("No surface could be changed, nothing is saved"));
        return ExitCode::Failed;
    }
    changeSurfaces(bodies, change, console);
    for (const Body *body : opened.bodies()) {
        if (body->sprite().isChanged())
            console.tell(QStringLiteral("Accepted changed sprite: ") + body->name().value());
    }
    const ExitCode saved = opened.save(options.outputProject);
    return saved == ExitCode::Done && leavesSome ? ExitCode::Partly : saved;
}

// What @p make throws is about the words of the options, all later errors are not.
ExitCode run(const SurfaceOptions &options,
             Console &console,
             const std::function<SurfaceChange(const TypedValues &)> &make)
{
    ExitCode refusal = ExitCode::Usage;
    try {
        const SurfaceChange change = make(TypedValues(options.values));
        refusal = ExitCode::Failed;
        return runChange(options, console, change);
    } catch (const Error &error) {
        console.complain(error.message());
        return refusal;
    }
}

SurfaceChange blending(const QString &undoText, AngleImage::Pixel slope, const TypedValues &values)
{
    const double opacity = values.number(QStringLiteral("opacity"), 1.0, 100.0, 100.0);
    const auto weight = float(opacity / 100.0);
    return {undoText, false, [slope, weight](AngleImage surface, const QImage &) {
                blendSlope(surface, FloatImage(surface.width(), surface.height(), weight), slope);
                return surface;
            }};
}

AngleImage::Pixel slopeOf(const QString &text)
{
    const QString option = QStringLiteral("--slope");
    const QStringList texts = text.split(QLatin1Char(','));
    if (texts.size() != 2)
        throw Error(QStringLiteral("'%1' is no value for %2: it takes X,Y").arg(text, option));
    const QStringList names{QStringLiteral("x"), QStringLiteral("y")};
    const TypedValues slopes(option, names, texts);
    const auto slope = [&slopes](const QString &name) {
        return toStoredSlope(float(slopes.number(name, -128.0, 127.0, 0.0)));
    };
    return {slope(names[0]), slope(names[1])};
}
} // namespace

ExitCode runBevel(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [&options](const TypedValues &values) -> SurfaceChange {
        const RimParams params = bevelParams(values, options.isDown, options.isTile);
        return {
            QStringLiteral("create rim"), true, [params](const auto &surface, const auto &sprite) {
                return beveled(params, surface, sprite);
            }};
    });
}

ExitCode runEmboss(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [&options](const TypedValues &values) -> SurfaceChange {
        const EmbossParams params = embossParams(values, options.isDown);
        return {QStringLiteral("create embossing"),
                true,
                [params](const auto &surface, const auto &sprite) {
                    return embossed(params, surface, sprite);
                }};
    });
}

ExitCode runSmooth(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [](const TypedValues &values) -> SurfaceChange {
        const double radius = values.number(QStringLiteral("radius"), 0.5, 50.0, 1.0);
        return {QStringLiteral("Blur all"), false, [radius](const auto &surface, const auto &) {
                    return smoothened(surface, radius);
                }};
    });
}

ExitCode runStructure(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [&options](const TypedValues &values) -> SurfaceChange {
        PaintToolStructureParams params = structureParams(values);
        params.pattern =
            patternPicture(options.values[QStringLiteral("pattern")], QStringLiteral("--pattern"));
        return {
            QStringLiteral("Add structure"), false, [params](const auto &surface, const auto &) {
                return structured(params, surface);
            }};
    });
}

ExitCode runErase(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [](const TypedValues &values) {
        return blending(QStringLiteral("Erase all"), {}, values);
    });
}

ExitCode runFill(const SurfaceOptions &options, Console &console)
{
    return run(options, console, [&options](const TypedValues &values) {
        return blending(
            QStringLiteral("Fill"), slopeOf(options.values[QStringLiteral("slope")]), values);
    });
}
