#include "model/RecoveryWriter.h"

#include "Ratio.h"
#include "model/Documents.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"

#include <QEventLoop>

namespace {
struct KeptProject
{
    KeptProject(int bodies, const QSize &size)
        : painted(bodies, size)
        , writer(RecoveryStore(painted.path(QStringLiteral("recovery"))))
    {
    }

    // What the calling thread computes until the snapshot is complete, in milliseconds.
    double keep()
    {
        QEventLoop loop;
        QObject::connect(&writer, &RecoveryWriter::written, &loop, &QEventLoop::quit);
        const double start = threadSeconds();
        writer.write(*painted.project);
        loop.exec();
        return 1e3 * (threadSeconds() - start);
    }

    void repaint(int bodies) const
    {
        const auto all = painted.project->bodies().all();
        for (Body *body : all.mid(0, bodies)) {
            QByteArray bytes = body->paintedNormalMap().value();
            bytes[bytes.size() - 1] = char(bytes.back() ^ 1);
            body->paintedNormalMap().setValue(bytes);
        }
    }

    PaintedProject painted;
    RecoveryWriter writer;
};

// The window is never busy with a snapshot for longer than 8 ms.
bool addSnapshot(const std::string &name, int bodies, int side, int changed)
{
    return addBudget("snapshot on the window's thread, " + name, 8.0, [=] {
        const auto kept = std::make_shared<KeptProject>(bodies, QSize(side, side));
        kept->keep();
        return [kept, changed] {
            kept->repaint(changed);
            return kept->keep();
        };
    });
}

const bool one = addSnapshot("1 body of 2048x2048", 1, 2048, 1);
const bool hundred = addSnapshot("100 bodies of 256x256", 100, 256, 100);
const bool thousand = addSnapshot("1000 bodies of 64x64", 1000, 64, 1000);
const bool oneOfThousand = addSnapshot("1 of 1000 bodies of 64x64", 1000, 64, 1);
} // namespace
