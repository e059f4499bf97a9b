#include "support/ShownEditor.h"

#include "model/Body.h"
#include "model/properties/PropertyT.h"
#include "preview/GLGraphicsLight.h"
#include "preview/SpriteItem.h"

#include <QTest>
#include <QVBoxLayout>

ShownEditor::ShownEditor()
{
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(&view);
    layout->addWidget(&edit);
    view.setEditorScene(&scene);
    window.resize(700, 560);
    window.show();
    window.activateWindow();
    view.setFocus();
    bodies.setProject(&project);
    pixels.setProject(&project);
    scene.setProject(&project);
}

ShownEditor::~ShownEditor()
{
    scene.setProject(nullptr);
    view.setEditorScene(nullptr);
}

Body &ShownEditor::add(const QString &name, const QSize &size, const QColor &color)
{
    const QString path = folder.writeSprite(name + QLatin1String(".png"), size, color);
    Body &body = addBody(project, name, path);
    scene.light().setPos(-300, -200); // in nobody's way
    return body;
}

QPoint ShownEditor::on(const Body &body, const QPointF &pixel) const
{
    return at(scene.spriteItem(&body)->pos() + pixel);
}

QByteArray ShownEditor::selected() const
{
    QStringList names;
    for (const Body *body : bodies.selection())
        names.append(body->name().value());
    return names.join(QLatin1Char(' ')).toUtf8();
}

void ShownEditor::click(const QPoint &point, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, point);
}
