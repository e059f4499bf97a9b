#include "support/Studio.h"

#include "framework/GApplication.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/DialogScript.h"
#include "support/Widgets.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"

#include <QPainter>
#include <QTest>

OpenWindow::OpenWindow()
    : window(*static_cast<GApplication *>(qApp))
{
}

Studio::Studio(const QSize &size)
    : EditorUser(window)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(Qt::blue);
    QPainter(&picture).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
    QStringList paths;
    for (const QString &name : {"a.png"_s, "b.png"_s}) {
        paths.append(folder.path(name));
        picture.save(paths.last());
    }
    window.openOrAdd(paths);
    window.resize(900, 700);
    showActive(window);
    ready();
    stack().clear();
}

GUndoStack &Studio::stack() const
{
    return window.project().undoStack();
}

Body &Studio::body(int index) const
{
    return static_cast<Body &>(*window.project().bodies().entries().at(index));
}

int Studio::bodyCount() const
{
    return window.project().bodies().entries().size();
}

AngleImage Studio::surface(int index) const
{
    return body(index).surface();
}

void Studio::ready()
{
    window.findChild<NormalMapEditor *>()->zoomToFit();
    scene().light().setPos(-900, -900); // in nobody's way
    select(0);
}

void Studio::select(int index)
{
    auto &list = *window.findChild<ShapeTreeView *>();
    const QRect row = list.visualRect(list.model()->index(index, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, row.center());
    view().setFocus();
}

void Studio::clickRight(const QPoint &pixel) const
{
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool isPress = type == QEvent::MouseButtonPress;
        const Qt::MouseButtons held = isPress ? Qt::LeftButton | Qt::RightButton : Qt::LeftButton;
        const QPoint place = at(pixel);
        QMouseEvent event(type, place, viewport().mapToGlobal(place), Qt::RightButton, held, {});
        QCoreApplication::sendEvent(&viewport(), &event);
    }
}

bool Studio::openAgain()
{
    const QString path = folder.path("p.vep"_s);
    DialogScript script;
    if (window.project().filename().value().path().isEmpty())
        script.then(DialogScript::chooseFile(path));
    key(Qt::Key_S, Qt::ControlModifier);
    if (!script.isDone() || !window.openPath(path))
        return false;
    ready();
    return true;
}

bool Studio::showsWhatIsStored() const
{
    for (int index = 0; index < bodyCount(); ++index) {
        NormalMapProcessor &processor = scene().spriteItem(&body(index))->processor();
        processor.waitForIdle();
        QImage normals = flatNormalMap(surface(index).size());
        toNormalMap(surface(index), normals);
        if (normals != processor.normalMap())
            return false;
    }
    return true;
}
