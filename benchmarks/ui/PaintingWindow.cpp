#include "ui/PaintingWindow.h"

#include "model/Documents.h"
#include "model/Project.h"
#include "preview/EditorGraphicsView.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "tools/PaintTool.h"
#include "tools/ToolPanel.h"

#include <QMouseEvent>

#include <stdexcept>

namespace {

constexpr double zoom = 0.25; // shows all of the largest, and the same for all

BodiesWindow::MakeBodies painted(int side)
{
    return [side](Project &project, const QTemporaryDir &folder) {
        const QString sprite = folder.filePath(QStringLiteral("sprite.png"));
        return PropertyList::Entries{paintedBody(project, sprite, {side, side})};
    };
}

} // namespace

PaintingWindow::PaintingWindow(int side, std::unique_ptr<PaintTool> tool)
    : BodiesWindow(painted(side))
    , m_side(side)
    , m_tool(std::move(tool))
{
    view().setZoom(zoom);
    view().centerOn(scene().spritesRect().center());
    scene().light().setPos(scene().spritesRect().topLeft() - QPointF(500, 500));
    // The window's own tool, which moves sprites, selects what it is pressed on.
    const QPoint middle(side / 2, side / 2);
    press(middle);
    release(middle);
    scene().setTool(m_tool.get());
    rest();
    if (scene().currentBody() != &items().first()->body() ||
        scene().interactionMode() != InteractionMode::Tool)
        throw std::runtime_error("the tool does not work on the body");
}

PaintingWindow::~PaintingWindow()
{
    rest();
    scene().setTool(nullptr);
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
    const QPoint place = view().mapFromScene(items().first()->pos() + pixel);
    const bool isMove = type == QEvent::MouseMove;
    QMouseEvent event(type,
                      place,
                      view().viewport()->mapToGlobal(place),
                      isMove ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(view().viewport(), &event);
}
