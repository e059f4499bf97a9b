#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"

#include "Ratio.h"
#include "model/Documents.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"

namespace {
constexpr int bodies = 16;
constexpr QSize size(1024, 1024);

QVector<QByteArray> surfacesOf(const Project &project)
{
    QVector<QByteArray> surfaces;
    for (const Body *body : project.bodies().all())
        surfaces.append(body->paintedNormalMap().value());
    return surfaces;
}

// Gives every body bytes of its own again: unchanged ones are not compressed a second time.
void repaint(const Project &project)
{
    for (Body *body : project.bodies().all()) {
        QByteArray bytes = body->paintedNormalMap().value();
        bytes.detach();
        bytes[bytes.size() - 1] = char(bytes.back() ^ 1);
        body->paintedNormalMap().setValue(bytes);
    }
}

// Saving takes at most 0.65 of the time in which one thread compresses the same bytes.
const bool saving = addRatio("save, 16 surfaces of 1024x1024 / qCompress", 1 / 0.65, [] {
    PaintedProject painted(bodies, size);
    painted.project->filename().setValue(GFileName(painted.path(QStringLiteral("p.vep"))));
    const auto surfaces = surfacesOf(*painted.project);
    return Contest{[painted] {
                       repaint(*painted.project);
                       DataModelWriter(*painted.project).write();
                   },
                   [surfaces] {
                       for (const QByteArray &surface : surfaces)
                           qCompress(surface);
                   }};
});

// Loading takes at most 1.3 of the time in which one thread uncompresses the same bytes.
const bool loading = addRatio("load, 16 surfaces of 1024x1024 / qUncompress", 1 / 1.3, [] {
    PaintedProject painted(bodies, size);
    const QString path = painted.path(QStringLiteral("p.vep"));
    painted.project->filename().setValue(GFileName(path));
    DataModelWriter(*painted.project).write();
    QVector<QByteArray> packed;
    for (const QByteArray &surface : surfacesOf(*painted.project))
        packed.append(qCompress(surface));
    return Contest{[painted, path] {
                       DataModelReader(QStringLiteral(".vep"), QStringLiteral(".vexml")).read(path);
                   },
                   [packed] {
                       for (const QByteArray &bytes : packed)
                           qUncompress(bytes);
                   }};
});
} // namespace
