#include "ui/PaintingWindow.h"

#include "framework/GApplication.h"
#include "model/Documents.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "preview/EditorGraphicsView.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "tools/PaintTool.h"
#include "tools/ToolPanel.h"
#include "ui/NormalMapEditor.h"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QThreadPool>

#include <stdexcept>

namespace {
constexpr double zoom = 0.25; // shows all of the largest, and the same for all

void spin(int milliseconds)
{
    QElapsedTimer timer;
    for (timer.start(); timer.elapsed() < milliseconds;)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}
} // namespace

PaintingWindow::PaintingWindow(int side, std::unique_ptr<PaintTool> tool)
    : m_side(side)
    , m_tool(std::move(tool))
    , m_window(*static_cast<GApplication *>(qApp))
{
    m_surface.create();
    m_context.create();
    m_textures = std::make_shared<BorrowedContext>(m_context);
    m_window.resize(1600, 1200);
    m_window.show();
    m_view = m_window.findChild<EditorGraphicsView *>();
    const auto body =
        paintedBody(project(), m_folder.filePath(QStringLiteral("sprite.png")), {side, side});
    project().bodies().setEntries({body});
    m_item = scene().spriteItem(body.get());
    QObject::connect(&m_item->processor(), &NormalMapProcessor::normalMapChanged, m_view, [this] {
        ++m_results;
    });
    spin(500);
    m_view->setZoom(zoom);
    m_view->centerOn(scene().spritesRect().center());
    scene().light().setPos(scene().spritesRect().topLeft() - QPointF(500, 500));
    // The window's own tool, which moves sprites, selects what it is pressed on.
    const QPoint middle(side / 2, side / 2);
    press(middle);
    release(middle);
    scene().setTool(m_tool.get());
    rest();
    if (scene().currentBody() != body.get() || scene().interactionMode() != InteractionMode::Tool)
        throw std::runtime_error("the tool does not work on the body");
}

PaintingWindow::~PaintingWindow()
{
    rest();
    scene().setTool(nullptr);
}

NormalMapEditorScene &PaintingWindow::scene() const
{
    return m_window.findChild<NormalMapEditor *>()->scene();
}

void PaintingWindow::setBrushSize(int size)
{
    for (const ToolSetting &setting : m_tool->settings()) {
        if (setting.key == QLatin1String("BrushSize"))
            setting.write(size);
    }
}

void PaintingWindow::send(QEvent::Type type, const QPoint &pixel)
{
    const QPoint place = m_view->mapFromScene(m_item->pos() + pixel);
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type,
                      place,
                      m_view->viewport()->mapToGlobal(place),
                      isMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(m_view->viewport(), &event);
}

void PaintingWindow::deliver()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

void PaintingWindow::waitForNormalMap()
{
    m_item->processor().waitForIdle();
    deliver();
}

void PaintingWindow::upload()
{
    m_context.makeCurrent(&m_surface);
    m_item->bindTextures(m_textures);
}

void PaintingWindow::rest()
{
    // What is handed over may start something.
    for (int round = 0; round < 3; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        spin(50);
    }
    upload();
}
