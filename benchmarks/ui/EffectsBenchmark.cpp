#include "Ratio.h"
#include "framework/GIntEdit.h"
#include "model/Body.h"
#include "model/Documents.h"
#include "model/NormalMapProcessor.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "model/properties/PropertyListT.h"
#include "preview/NormalMapEditorScene.h"
#include "preview/SpriteItem.h"
#include "tools/effects/FilterCreateRim.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/BodiesWindow.h"

#include <QThread>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Sprites
{
    std::string name;
    int count;
    int side;
    bool arePainted = true;
};

BodiesWindow::MakeBodies bodiesOf(const Sprites &sprites)
{
    return [sprites](Project &project, const QTemporaryDir &folder) {
        const QString file = folder.filePath(QStringLiteral("sprite.png"));
        saveSprite(file, sprites.side, 0.001);
        PropertyList::Entries bodies;
        for (int i = 0; i < sprites.count; ++i) {
            const auto body = spriteBody(project, file);
            if (sprites.arePainted)
                paint(*body, i);
            bodies.append(body);
        }
        return bodies;
    };
}

double millisecondsOf(const std::function<void()> &work, double (*clock)())
{
    const double start = clock();
    work();
    return 1000.0 * (clock() - start);
}

/// A bevel that is open over all bodies of a window.
class Bevel
{
public:
    explicit Bevel(const Sprites &sprites)
        : m_window(bodiesOf(sprites))
    {
        QObject::connect(&m_effect,
                         &Filter::temporaryNormalMapChanged,
                         m_window.window().centralWidget(),
                         [this](Body *body, const AngleImage &surface, const QRect &rect) {
                             m_window.scene().spriteItem(body)->processor().updateRect(surface,
                                                                                       rect);
                         });
        open();
        m_window.rest();
        m_height = m_window.window().findChild<GIntEdit *>(QStringLiteral("RimHeight"));
    }

    ~Bevel()
    {
        m_effect.discard();
        m_window.rest();
    }

    void open()
    {
        EffectContext context;
        for (Body *body : m_window.project().bodies().all())
            context.bodies.append(body);
        context.pixels = &m_pixels;
        context.window = &m_window.window();
        m_effect.start(context);
    }

    void discard() { m_effect.discard(); }
    void rest() { m_window.rest(); }

    /// From a slider's move to the texture, in milliseconds.
    double show()
    {
        return millisecondsOf(
            [this] {
                const int before = m_window.results();
                moveSlider();
                m_window.waitForResults(before + 1);
                m_window.upload();
            },
            wallSeconds);
    }

    /// The slider goes to and fro; the time of each of its moves and of each result.
    std::vector<double> drag()
    {
        constexpr int moves = 200;
        constexpr int results = 12;
        std::vector<double> milliseconds;
        const int wanted = m_window.results() + results;
        for (int i = 0; i < moves || m_window.results() < wanted; ++i) {
            milliseconds.push_back(millisecondsOf([this] { moveSlider(); }, threadSeconds));
            QThread::msleep(1);
            const double delivery = millisecondsOf(BodiesWindow::deliver, threadSeconds);
            if (delivery > 0.005) {
                milliseconds.push_back(delivery);
                if (qEnvironmentVariableIsSet("TRACE") && delivery > 0.5)
                    printf("deliver %.3f\n", delivery);
            }
        }
        std::sort(milliseconds.begin(), milliseconds.end());
        m_window.rest();
        return milliseconds;
    }

private:
    void moveSlider()
    {
        constexpr int least = 25;
        constexpr int range = 375;
        m_move += 7;
        const int place = m_move % (2 * range);
        m_height->setValue(least + std::min(place, 2 * range - place));
    }

    BodiesWindow m_window;
    PixelSelectionModel m_pixels;
    FilterCreateRim m_effect;
    GIntEdit *m_height = nullptr;
    int m_move = 0;
};

auto slides(const Sprites &sprites)
{
    return [sprites] {
        const auto bevel = std::make_shared<Bevel>(sprites);
        return [bevel] {
            std::vector<double> milliseconds;
            for (int i = 0; i < 21; ++i)
                milliseconds.push_back(bevel->show());
            std::sort(milliseconds.begin(), milliseconds.end());
            return milliseconds[milliseconds.size() / 2];
        };
    };
}

/// Which the @p share of all moves and results stays below; 1 for the longest.
auto drags(const Sprites &sprites, double share)
{
    return [sprites, share] {
        const auto bevel = std::make_shared<Bevel>(sprites);
        return [bevel, share] {
            const std::vector<double> milliseconds = bevel->drag();
            return milliseconds[std::size_t(share * double(milliseconds.size() - 1))];
        };
    };
}

auto openings(const Sprites &sprites)
{
    return [sprites] {
        const auto bevel = std::make_shared<Bevel>(sprites);
        return [bevel] {
            bevel->discard();
            bevel->rest();
            const double ms = millisecondsOf([&] { bevel->open(); }, threadSeconds);
            bevel->rest();
            return ms;
        };
    };
}

const bool rows = [] {
    addBudget("bevel, a slider's move shown, 1024x1024, within 25 ms", 25.0, slides({"", 1, 1024}));
    addBudget("bevel, a slider's move shown, 256x256, within 4 ms", 4.0, slides({"", 1, 256}));
    const Sprites dragged[] = {{"1024x1024", 1, 1024},
                               {"three of 512x512", 3, 512},
                               {"4096x4096", 1, 4096},
                               {"4096x4096 unpainted", 1, 4096, false}};
    for (const Sprites &sprites : dragged) {
        const std::string name = "bevel, dragged, " + sprites.name;
        addBudget(name + ", 99 of 100, within 4 ms", 4.0, drags(sprites, 0.99));
        addBudget(name + ", the longest, within 8 ms", 8.0, drags(sprites, 1.0));
    }
    addBudget("bevel, opened, 4096x4096, within 33 ms", 33.0, openings(dragged[2]));
    return true;
}();

} // namespace
