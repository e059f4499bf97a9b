#include "base/Error.h"
#include "cli/Commands.h"
#include "cli/LitBody.h"
#include "cli/OpenedProject.h"
#include "imaging/AngleImage.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

namespace {
// The first bodies with a sprite, or else a surface, in the light of a lamp above their upper left
// corner.
QVector<QImage> litBodies(const Project &project, Console &console)
{
    QVector<QImage> pictures;
    const Light lamp = thumbnailLamp(project);
    for (const Body *body : project.bodies().all()) {
        if (pictures.size() == mostThumbnailBodies)
            break;
        const QString trouble = loadForLight(*body);
        if (trouble.isEmpty())
            pictures.append(litBody(*body, lamp));
        else if (!body->sprite().isLoaded() && !body->surface().isNull())
            // A sandbox shows a thumbnailer the project without its sprites.
            pictures.append(litSurface(body->surface(), lamp));
        else
            console.tell(QStringLiteral("'%1' is left out: %2").arg(body->name().value(), trouble));
    }
    return pictures;
}

void writeThumbnail(const ThumbnailOptions &options, const Project &project, Console &console)
{
    const QVector<QImage> pictures = litBodies(project, console);
    if (pictures.isEmpty())
        throw Error(QStringLiteral("There is nothing to show: '%1' has no body with a sprite or a "
                                   "surface; put one in with add, or find missing ones with repair")
                        .arg(options.project));
    writePicture(project,
                 arrangedPictures(pictures, options.size),
                 options.output,
                 QByteArrayLiteral("png"));
}
} // namespace

ExitCode runThumbnail(const ThumbnailOptions &options, Console &console)
{
    OpenedProject opened(console);
    if (!opened.openWithoutSprites(options.project))
        return ExitCode::Unreadable;
    try {
        writeThumbnail(options, opened.controller().project(), console);
    } catch (const Error &error) {
        console.complain(error.message());
        return ExitCode::Failed;
    }
    console.path(GFileName(options.output).path());
    return ExitCode::Done;
}
