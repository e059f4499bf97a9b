#include "EffectUser.h"

#include "WindowPictures.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ShapeTreeView.h"
#include "ui/ToolsSidebar.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QScreen>
#include <QTest>
#include <QThreadPool>

EffectUser::EffectUser(MainWindow &window, const QString &samples)
    : EditorUser(window)
    , m_window(window)
    , m_samples(QDir(samples).absolutePath())
{
}

void EffectUser::addSprites(const QStringList &names) const
{
    QStringList paths;
    for (const QString &name : names) {
        paths.append(pathOf(name));
        QFile::copy(m_samples.filePath(name), paths.last());
    }
    m_window.openOrAdd(paths);
    QTest::qWait(100); // new sprites find their places
    m_window.findChild<NormalMapEditor *>()->zoomToFit();
}

void EffectUser::selectAll() const
{
    m_window.findChild<ShapeTreeView *>()->setFocus();
    QTest::keyClick(m_window.findChild<ShapeTreeView *>(), Qt::Key_A, Qt::ControlModifier);
}

void EffectUser::trigger(const QString &text) const
{
    for (QAction *action : m_window.findChild<ToolsSidebar *>()->actions()) {
        if (action->text() == text)
            action->trigger();
    }
}

void EffectUser::open(const char *effect) const
{
    QCursor::setPos(m_window.mapToGlobal(QPoint(m_window.width() - 160, 340)));
    chooseTool(effect);
    waitUntilSettled(dialog());
}

QWidget &EffectUser::dialog() const
{
    for (auto *each : m_window.findChildren<PositionedDialog *>()) {
        if (each->isVisible())
            return *each;
    }
    qFatal("There is no dialog");
}

void EffectUser::set(const char *name, double number) const
{
    auto *edit = dialog().findChild<QWidget *>(QLatin1String(name));
    auto *box = edit->findChild<QDoubleSpinBox *>();
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QLocale().toString(number));
    QTest::keyClick(box, Qt::Key_Tab);
}

void EffectUser::apply() const
{
    QTest::keyClick(&dialog(), Qt::Key_Return);
}

bool EffectUser::take(const QString &path, QRect part) const
{
    for (int round = 0; round < 3; ++round) {
        QThreadPool::globalInstance()->waitForDone();
        QTest::qWait(100);
    }
    if (part.isNull())
        part = m_window.rect();
    const QPoint corner = m_window.mapToGlobal(part.topLeft());
    const QPixmap picture =
        m_window.screen()->grabWindow(0, corner.x(), corner.y(), part.width(), part.height());
    return picture.save(path);
}
