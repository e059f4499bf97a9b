#include "model/Documents.h"

#include "imaging/FloatImage.h"
#include "imaging/HeightsToAngles.h"
#include "imaging/Surfaces.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <cmath>

namespace {
// Bumps with some grain, as brushes and structures leave them; others for each body.
AngleImage paintedSurface(const QSize &size, int seed)
{
    FloatImage heights(size.width(), size.height());
    for (int y = 0; y < size.height(); ++y) {
        float *row = heights.row(y);
        for (int x = 0; x < size.width(); ++x) {
            const auto bump = std::sin(float(x + seed) * 0.05F) * std::cos(float(y) * 0.07F);
            const auto grain = float((x * 7919 + y * 104729 + seed * 31) % 17) / 17.0F;
            row[x] = 6.0F * std::max(bump, 0.0F) + (bump > 0.5F ? grain : 0.0F);
        }
    }
    AngleImage surface;
    heightsToAngles(heights, surface);
    return surface;
}
} // namespace

void saveSprite(const QString &path, int side, double grain)
{
    const auto open = discsAndHoles(side, grain);
    QImage sprite(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double alpha = 255.0 * (1.0 - open[std::size_t(y) * std::size_t(side) + x]);
            const int noise = (x * 7 + y * 13) % 8;
            sprite.setPixel(x, y, qRgba(x * 240 / side + noise, y * 240 / side, 90, int(alpha)));
        }
    }
    sprite.save(path);
}

std::shared_ptr<Body> spriteBody(Project &project, const QString &file)
{
    auto body = std::make_shared<Body>(project);
    body->sprite().filename().setValue(GFileName(file));
    body->loadSprite();
    return body;
}

void paint(Body &body, int seed)
{
    const QSize size = body.sprite().image().size();
    body.paintedNormalMap().setValue(encode(paintedSurface(size, seed)));
}

std::shared_ptr<Body>
paintedBody(Project &project, const QString &file, const QSize &size, int seed)
{
    QImage sprite(size, QImage::Format_ARGB32);
    sprite.fill(Qt::gray);
    sprite.save(file);
    auto body = spriteBody(project, file);
    paint(*body, seed);
    return body;
}

PaintedProject::PaintedProject(int bodies, const QSize &size)
    : folder(std::make_shared<QTemporaryDir>())
    , project(std::make_shared<Project>())
{
    PropertyList::Entries entries;
    for (int i = 0; i < bodies; ++i)
        entries.append(paintedBody(*project, path(QStringLiteral("sprite%1.png").arg(i)), size, i));
    project->bodies().setEntries(entries);
}
