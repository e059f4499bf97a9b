// The editor as a process of its own, for what a process takes.
//
//   vesperine-bench-editor                  starts as users start it, and ends at the first frame
//   vesperine-bench-editor PROJECT RESULT [drawn]
//                                           opens PROJECT and writes to RESULT by how many bytes
//                                           that made the process grow, with its textures or
//                                           without

#include "FirstFrame.h"
#include "base/Resources.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/VesperineApplication.h"

#include <QElapsedTimer>
#include <QFile>

#include <malloc.h>

namespace {

void settle()
{
    constexpr int settledAfter = 500; // milliseconds
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < settledAfter;)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 20);
}

qint64 residentBytes()
{
    // What is free is not in use, also where the allocator holds on to it.
    malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    file.open(QIODevice::ReadOnly);
    return file.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

int measureOpening(GApplication &application, const QStringList &words)
{
    MainWindow window(application);
    if (words.contains(QStringLiteral("drawn")))
        window.show();
    settle();
    const qint64 before = residentBytes();
    if (!window.openPath(words[1]))
        return 1;
    const auto &scene = window.findChild<NormalMapEditor *>()->scene();
    for (const Body *body : window.project().bodies().all())
        scene.spriteItem(body)->processor().waitForIdle();
    settle();
    QFile result(words[2]);
    result.open(QIODevice::WriteOnly);
    result.write(QByteArray::number(residentBytes() - before));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    initialiseResources();
    VesperineApplication::prepare();
    if (argc > 2) {
        GApplication application(argc, argv);
        return measureOpening(application, QCoreApplication::arguments());
    }
    // As the program's own main() does.
    if (!GApplication::missingDisplay().isEmpty())
        return 1;
    VesperineApplication application(argc, argv);
    FirstFrame firstFrame;
    application.installEventFilter(&firstFrame);
    return application.run();
}
