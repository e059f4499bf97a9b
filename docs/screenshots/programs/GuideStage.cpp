#include "GuideStage.h"

#include "WindowPictures.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyListT.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"

#include <QAction>
#include <QTest>

#include <algorithm>

GuideStage::GuideStage(MainWindow &window, const QString &samples, const QString &folder)
    : m_window(window)
    , m_painter(window)
    , m_effects(window, samples)
    , m_folder(folder)
{
    m_folder.mkpath(QStringLiteral("."));
}

QWidget &GuideStage::editor() const
{
    return *m_window.findChild<NormalMapEditor *>();
}

Body &GuideStage::body() const
{
    return *m_window.project().bodies().all().first();
}

void GuideStage::begin(const QStringList &names)
{
    {
        DialogScript script;
        if (m_window.project().undoStack().isModified())
            script.then(DialogScript::click(QStringLiteral("Discard")));
        m_window.newDocument();
    }
    m_effects.addSprites(names);
    waitUntilSettled(m_window);
    m_window.project().lightHeight().setValue(40);
    lightAt({28, 28});
}

void GuideStage::beginSample(const char *name)
{
    begin(QStringList(QLatin1String(name) + QStringLiteral(".png")));
}

void GuideStage::begin(const QImage &sprite)
{
    const QString name = QStringLiteral("sprite%1.png").arg(++m_drawn);
    sprite.save(m_effects.pathOf(name));
    begin(QStringList(name));
}

void GuideStage::wearSample(const char *name)
{
    const QString path = QStringLiteral("normals/%1_n.png").arg(QLatin1String(name));
    AngleImage surface;
    fromNormalMap(QImage(m_effects.samples().filePath(path)), surface);
    body().paintedNormalMap().setAngleImage(surface, QStringLiteral("import"));
    Painter::waitForBackground();
}

void GuideStage::lightAt(const QPointF &place) const
{
    NormalMapEditorScene &scene = m_painter.scene();
    scene.light().setPos(scene.spritesRect().topLeft() + place);
}

void GuideStage::set(const Settings &settings) const
{
    for (const auto &[key, number] : settings)
        m_effects.set(key, number);
}

void GuideStage::check(const QString &name) const
{
    auto *box = m_effects.dialog().findChild<QWidget *>(name);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
}

void GuideStage::effect(const char *effect, const Settings &settings, const char *name)
{
    m_painter.key(LitTexture, Qt::AltModifier);
    m_effects.open(effect);
    set(settings);
    tool(name);
    QTest::keyClick(&m_effects.dialog(), Qt::Key_Escape);
}

void GuideStage::effectTile(const char *effect, const Settings &settings, const char *name)
{
    m_effects.open(effect);
    set(settings);
    m_effects.apply();
    tile(name, LitSurface, third);
    m_window.project().undoStack().undo();
}

void GuideStage::dialog(const QString &action, const char *name)
{
    DialogScript script;
    script.then([this, name](QWidget &dialog) {
        takeWidget(dialog, name);
        dialog.close();
    });
    for (QAction *each : m_window.findChildren<QAction *>()) {
        if (each->text().remove(QLatin1Char('&')) == action)
            each->trigger();
    }
}

QString GuideStage::file(const char *name) const
{
    return m_folder.filePath(QLatin1String(name) + QStringLiteral(".png"));
}

void GuideStage::save(const QImage &picture, const char *name)
{
    m_isComplete = picture.save(file(name)) && m_isComplete;
}

void GuideStage::takeWidget(QWidget &widget, const char *name)
{
    m_isComplete = savePicture(widget, file(name)) && m_isComplete;
}

void GuideStage::take(const char *name, const QRect &part)
{
    m_isComplete = m_effects.take(file(name), part) && m_isComplete;
}

void GuideStage::tool(const char *name, int room)
{
    const QSize former = m_window.size();
    m_window.resize(former + QSize(0, room));
    waitUntilSettled(m_window);
    const QPoint corner = editor().mapTo(&m_window, QPoint());
    take(name, {corner, QSize(m_window.width() - corner.x(), editor().height())});
    m_window.resize(former);
}

void GuideStage::tile(const char *name, Mode mode, int side)
{
    Painter::waitForBackground();
    QCursor::setPos(m_window.mapToGlobal(QPoint(m_window.width() - 4, m_window.height() - 4)));
    m_painter.key(mode, Qt::AltModifier);
    const QRectF sprite = m_painter.scene().spritesRect();
    m_painter.view().zoomToFit(sprite);
    m_painter.view().setZoom((side + 6) / std::max(sprite.width(), sprite.height()));
    waitUntilSettled(m_window);
    const QPoint middle = m_painter.view().mapFromScene(sprite.center());
    const QPoint corner =
        m_painter.viewport().mapTo(&m_window, middle) - QPoint(side / 2, side / 2);
    take(name, {corner, QSize(side, side)});
    m_painter.key(LitTexture, Qt::AltModifier);
    m_painter.view().zoomToFit(sprite);
}
