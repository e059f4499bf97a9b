#include "ui/MainWindow.h"

#include "ProgramRun.h"
#include "Ratio.h"
#include "framework/GApplication.h"
#include "imaging/PoolTask.h"
#include "model/DataModelWriter.h"
#include "model/Documents.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "ui/NormalMapEditor.h"

#include <QElapsedTimer>
#include <QFile>
#include <QOpenGLWidget>

#include <deque>
#include <stdexcept>

namespace {

constexpr int bodies = 64;
constexpr int side = 512;

// Run as processes, from nothing to the first frame: nothing is loaded, cached or warm.
const bool starting = addRatio("start to the first frame / an empty window", 1 / 1.5, [] {
    const auto run = [](const char *program) {
        if (runProgram({QString::fromLocal8Bit(program)}).status != 0)
            throw std::runtime_error("a window can't be shown");
    };
    return Contest{[run] { run(EDITOR_PROGRAM); }, [run] { run(WINDOW_PROGRAM); }};
});

/// A project file with its sprites.
class StoredProject
{
public:
    StoredProject(int count, int spriteSide)
        : m_painted(count, {spriteSide, spriteSide})
    {
        for (Body *body : m_painted.project->bodies().all()) {
            const QString sprite = body->sprite().filename().value().path();
            saveSprite(sprite, spriteSide);
            body->loadSprite();
            m_sprites.append(sprite);
            m_surfaces.append(qCompress(body->paintedNormalMap().value()));
        }
        m_painted.project->filename().setValue(GFileName(path()));
        DataModelWriter(*m_painted.project).write();
    }

    QString path() const { return m_painted.path(QStringLiteral("p.vep")); }
    QString resultPath() const { return m_painted.path(QStringLiteral("result")); }

    // What can't be left out of opening, on all processors.
    void decode() const
    {
        QThreadPool::globalInstance()->waitForDone();
        std::deque<PoolTask<QImage>> sprites;
        std::deque<PoolTask<QByteArray>> surfaces;
        for (const QByteArray &packed : m_surfaces)
            surfaces.emplace_back([packed] { return qUncompress(packed); });
        for (const QString &sprite : m_sprites) {
            sprites.emplace_back(
                [sprite] { return QImage(sprite).convertToFormat(QImage::Format_ARGB32); });
        }
        for (auto &surface : surfaces)
            surface.take();
        for (auto &sprite : sprites)
            sprite.take();
    }

private:
    PaintedProject m_painted;
    QStringList m_sprites;
    QVector<QByteArray> m_surfaces;
};

/// The window with what its panels show, on the screen.
class ShownWindow
{
public:
    ShownWindow()
        : m_window(*static_cast<GApplication *>(qApp))
    {
        m_window.show();
        spin(500);
    }

    void open(const QString &path)
    {
        if (!m_window.openPath(path))
            throw std::runtime_error("the project can't be opened");
    }

    void close()
    {
        waitForNormalMaps();
        m_window.newDocument();
        QCoreApplication::processEvents();
    }

    void waitForNormalMaps() const
    {
        const auto &scene = m_window.findChild<NormalMapEditor *>()->scene();
        for (const Body *body : m_window.project().bodies().all())
            scene.spriteItem(body)->processor().waitForIdle();
    }

    int framesWithin(int milliseconds) const
    {
        int frames = 0;
        const auto counting = QObject::connect(m_window.findChild<QOpenGLWidget *>(),
                                               &QOpenGLWidget::frameSwapped,
                                               [&frames] { ++frames; });
        spin(milliseconds);
        QObject::disconnect(counting);
        return frames;
    }

private:
    static void spin(int milliseconds)
    {
        QElapsedTimer timer;
        for (timer.start(); timer.elapsed() < milliseconds;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }

    MainWindow m_window;
};

// Until the window's command returns, with an item for each body.
const bool opening =
    addRatio("open, 64 bodies of 512x512 / decoding sprites and surfaces", 1 / 1.3, [] {
        auto stored = std::make_shared<StoredProject>(bodies, side);
        auto window = std::make_shared<ShownWindow>();
        return Contest{[=] { window->open(stored->path()); },
                       [stored] { stored->decode(); },
                       [window] { window->close(); }};
    });

const bool resting = addBudget("at rest, frames drawn in 2 s, below 1", 0.5, [] {
    auto stored = std::make_shared<StoredProject>(16, 256);
    auto window = std::make_shared<ShownWindow>();
    window->open(stored->path());
    window->waitForNormalMaps();
    window->framesWithin(500);
    return [=] { return double(window->framesWithin(2000)); };
});

auto memory(const QString &drawn)
{
    return [drawn] {
        auto stored = std::make_shared<StoredProject>(bodies, side);
        return [stored, drawn] {
            runProgram(
                {QStringLiteral(EDITOR_PROGRAM), stored->path(), stored->resultPath(), drawn});
            QFile result(stored->resultPath());
            result.open(QIODevice::ReadOnly);
            constexpr double image = side * side * 4.0;
            return result.readAll().toDouble() / bodies / image;
        };
    };
}

// The textures of a driver that draws on the processor are in the process, too.
const bool holding =
    addBudget("memory, images of a body of 512x512, within 3", 3.0, memory({})) &&
    addBudget("memory, the same with two textures, within 5", 5.0, memory(QStringLiteral("drawn")));

} // namespace
