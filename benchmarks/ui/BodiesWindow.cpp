#include "ui/BodiesWindow.h"

#include "framework/GApplication.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "preview/EditorGraphicsView.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "ui/NormalMapEditor.h"

#include <QElapsedTimer>
#include <QThread>
#include <QThreadPool>

namespace {
void spin(int milliseconds)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < milliseconds;)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}
} // namespace

BodiesWindow::BodiesWindow(const MakeBodies &makeBodies)
    : m_window(*static_cast<GApplication *>(qApp))
{
    m_surface.create();
    m_context.create();
    m_textures = std::make_shared<BorrowedContext>(m_context);
    m_window.resize(1600, 1200);
    m_window.show();
    m_view = m_window.findChild<EditorGraphicsView *>();
    project().bodies().setEntries(makeBodies(project(), m_folder));
    for (const Body *body : project().bodies().all()) {
        SpriteItem *item = scene().spriteItem(body);
        QObject::connect(&item->processor(), &NormalMapProcessor::normalMapChanged, m_view, [this] {
            ++m_results;
        });
        m_items.append(item);
    }
    spin(500);
}

BodiesWindow::~BodiesWindow()
{
    rest();
}

NormalMapEditorScene &BodiesWindow::scene() const
{
    return m_window.findChild<NormalMapEditor *>()->scene();
}

void BodiesWindow::deliver()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

void BodiesWindow::waitForNormalMaps()
{
    for (SpriteItem *item : std::as_const(m_items))
        item->processor().waitForIdle();
    deliver();
}

void BodiesWindow::waitForResults(int count)
{
    while (m_results < count) {
        QThread::usleep(20);
        deliver();
    }
}

void BodiesWindow::upload()
{
    m_context.makeCurrent(&m_surface);
    for (SpriteItem *item : std::as_const(m_items))
        item->bindTextures(m_textures);
}

void BodiesWindow::rest()
{
    // What is handed over may start something.
    for (int round = 0; round < 3; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        spin(50);
    }
    upload();
}
