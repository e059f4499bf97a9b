#include "support/EditorUser.h"

#include "model/Body.h"
#include "model/Project.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "support/Gestures.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QToolButton>
#include <QUrl>

#include <algorithm>

namespace {
template <class Widget, class Condition>
Widget &shownIn(const QWidget &window, const char *name, const Condition &isIt)
{
    for (auto *widget : window.findChildren<Widget *>()) {
        if (widget->isVisible() && isIt(*widget))
            return *widget;
    }
    qFatal("There is no '%s' to be seen", name);
}

// A panel that has just come up can't be clicked before.
void layOut()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}
} // namespace

EditorUser::EditorUser(MainWindow &window)
    : m_window(window)
{
}

NormalMapEditorScene &EditorUser::scene() const
{
    return m_window.findChild<NormalMapEditor *>()->scene();
}

EditorGraphicsViewVesperine &EditorUser::view() const
{
    return *m_window.findChild<EditorGraphicsViewVesperine *>();
}

QWidget &EditorUser::viewport() const
{
    return *view().viewport();
}

QPoint EditorUser::at(const QPoint &pixel) const
{
    const Body *current = scene().currentBody();
    const Body *body = current ? current : m_window.project().bodies().all().first();
    const QPointF place = scene().spriteItem(body)->pos();
    return view().mapFromScene(place + pixel + QPointF(0.5, 0.5));
}

void EditorUser::key(int key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(&viewport(), Qt::Key(key), modifiers);
}

void EditorUser::press(const QPoint &pixel, Qt::KeyboardModifiers modifiers) const
{
    QTest::mousePress(&viewport(), Qt::LeftButton, modifiers, at(pixel));
}

void EditorUser::moveTo(const QPoint &pixel) const
{
    dragTo(viewport(), at(pixel));
}

void EditorUser::release(const QPoint &pixel, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseRelease(&viewport(), Qt::LeftButton, modifiers, at(pixel));
}

void EditorUser::paint(const QVector<QPoint> &pixels, Qt::KeyboardModifiers modifiers) const
{
    press(pixels.first(), modifiers);
    for (int i = 1; i < pixels.size(); ++i)
        moveTo(pixels[i]);
    release(pixels.last(), modifiers);
}

void EditorUser::chooseTool(const char *label) const
{
    auto &button = shownIn<QToolButton>(m_window, label, [label](const QToolButton &each) {
        return each.text() == QLatin1String(label);
    });
    QTest::mouseClick(&button, Qt::LeftButton);
    layOut();
    view().setFocus();
}

void EditorUser::command(const char *name) const
{
    layOut();
    auto &button = shownIn<QAbstractButton>(m_window, name, [name](const QAbstractButton &each) {
        return each.objectName() == QLatin1String(name);
    });
    QTest::mouseClick(&button, Qt::LeftButton);
    view().setFocus();
}

QAction &EditorUser::action(const QString &text) const
{
    const auto actions = m_window.findChildren<QAction *>();
    const auto found = std::find_if(actions.begin(), actions.end(), [&text](const auto *each) {
        return each->text().remove(QLatin1Char('&')) == text;
    });
    if (found == actions.end())
        qFatal("There is no action '%s'", qUtf8Printable(text));
    return **found;
}

void EditorUser::drop(const QStringList &paths) const
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    auto *editor = m_window.findChild<NormalMapEditor *>();
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor, &enter);
    QVERIFY(enter.isAccepted());
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDropEvent event({50, 50}, offered, &data, Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(editor, &event);
    QCOMPARE(event.dropAction(), Qt::CopyAction); // else the sprites' files would go
}
