#include "model/Documents.h"

#include "imaging/FloatImage.h"
#include "imaging/HeightsToAngles.h"
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

PaintedProject::PaintedProject(int bodies, const QSize &size)
    : folder(std::make_shared<QTemporaryDir>())
    , project(std::make_shared<Project>())
{
    PropertyList::Entries entries;
    for (int i = 0; i < bodies; ++i) {
        QImage sprite(size, QImage::Format_ARGB32);
        sprite.fill(Qt::gray);
        const QString file = path(QStringLiteral("sprite%1.png").arg(i));
        sprite.save(file);
        auto body = std::make_shared<Body>(*project);
        body->sprite().filename().setValue(GFileName(file));
        body->loadSprite();
        body->paintedNormalMap().setValue(encode(paintedSurface(size, i)));
        entries.append(body);
    }
    project->bodies().setEntries(entries);
}
