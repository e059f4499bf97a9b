#include "base/Error.h"
#include "cli/Commands.h"
#include "cli/LitBody.h"
#include "cli/OpenedProject.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int mostBodies = 4;

// The pixels of a small sprite stay squares of one size; a large one is shrunk smoothly.
QImage fitted(const QImage &image, const QSize &cell)
{
    const int factor = std::min(cell.width() / image.width(), cell.height() / image.height());
    if (factor >= 1)
        return image.scaled(image.size() * factor);
    const QSize size = image.size().scaled(cell, Qt::KeepAspectRatio).expandedTo({1, 1});
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// One picture alone, or two in a row, each in the middle of its cell.
QImage arranged(const QVector<QImage> &pictures, int side)
{
    const int columns = std::min(int(pictures.size()), 2);
    const int rows = (int(pictures.size()) + 1) / 2;
    const int gap = side / 32;
    const QSize cell((side - gap * (columns - 1)) / columns, (side - gap * (rows - 1)) / rows);
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    for (int i = 0; i < pictures.size(); ++i) {
        const bool isAlone = i % 2 == 0 && i + 1 == pictures.size();
        const int left = isAlone ? (side - cell.width()) / 2 : i % 2 * (cell.width() + gap);
        const QRect place({left, i / 2 * (cell.height() + gap)}, cell);
        const QImage picture = fitted(pictures[i], cell);
        QRect middle = picture.rect();
        middle.moveCenter(place.center());
        painter.drawImage(middle.topLeft(), picture);
    }
    return result;
}

// The first bodies with a sprite, in the light of a lamp above their upper left corner.
QVector<QImage> litBodies(const Project &project, Console &console)
{
    QVector<QImage> pictures;
    const QVector3D place(0.0F, 0.0F, float(project.lightHeight().value()));
    const Light lamp = lampOf(project, place);
    for (const Body *body : project.bodies().all()) {
        if (pictures.size() == mostBodies)
            break;
        const QString trouble = loadForLight(*body);
        if (trouble.isEmpty())
            pictures.append(litBody(*body, lamp));
        else
            console.tell(QStringLiteral("'%1' is left out: %2").arg(body->name().value(), trouble));
    }
    return pictures;
}

void writeThumbnail(const ThumbnailOptions &options, const Project &project, Console &console)
{
    const QVector<QImage> pictures = litBodies(project, console);
    if (pictures.isEmpty())
        throw Error(QStringLiteral("There is nothing to show: '%1' has no body with a sprite; put "
                                   "one in with add, or find missing ones with repair")
                        .arg(options.project));
    writePicture(
        project, arranged(pictures, options.size), options.output, QByteArrayLiteral("png"));
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
    console.data(GFileName(options.output).path());
    return ExitCode::Done;
}
