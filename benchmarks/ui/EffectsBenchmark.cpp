#include "Ratio.h"
#include "framework/GIntEdit.h"
#include "model/Documents.h"
#include "model/Project.h"
#include "model/properties/GUndoStack.h"
#include "tools/effects/PositionedDialog.h"
#include "ui/BodiesWindow.h"
#include "ui/ShapeTreeView.h"

#include <QThread>
#include <QToolButton>

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

/// The bevel over all bodies of a window, opened by its button.
class Bevel
{
public:
    explicit Bevel(const Sprites &sprites)
        : m_window(bodiesOf(sprites))
        , m_count(sprites.count)
    {
        m_window.window().findChild<ShapeTreeView *>()->selectAll();
        open();
        m_dialog = m_window.window().findChild<PositionedDialog *>();
        m_height = m_window.window().findChild<GIntEdit *>(QStringLiteral("RimHeight"));
    }

    ~Bevel() { m_dialog->reject(); }

    /// Until the dialog is there.
    double open()
    {
        const int shown = m_window.results() + m_count;
        QToolButton &bevel = button(m_window.window());
        const double ms = millisecondsOf([&] { bevel.click(); }, threadSeconds);
        m_window.waitForResults(shown);
        m_window.rest();
        return ms;
    }

    double discard()
    {
        const double ms = millisecondsOf([this] { m_dialog->reject(); }, threadSeconds);
        m_window.rest();
        return ms;
    }

    double apply()
    {
        const double ms = millisecondsOf([this] { m_dialog->accept(); }, threadSeconds);
        m_window.rest();
        m_window.project().undoStack().undo();
        m_window.rest();
        return ms;
    }

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
        constexpr double nothingToDo = 0.005; // milliseconds
        std::vector<double> milliseconds;
        const int wanted = m_window.results() + results;
        for (int i = 0; i < moves || m_window.results() < wanted; ++i) {
            milliseconds.push_back(millisecondsOf([this] { moveSlider(); }, threadSeconds));
            QThread::msleep(1);
            const double delivery = millisecondsOf(BodiesWindow::deliver, threadSeconds);
            if (delivery > nothingToDo)
                milliseconds.push_back(delivery);
        }
        std::sort(milliseconds.begin(), milliseconds.end());
        m_window.rest();
        return milliseconds;
    }

private:
    static QToolButton &button(const MainWindow &window)
    {
        for (QToolButton *button : window.findChildren<QToolButton *>()) {
            if (button->text() == QStringLiteral("Bevel") && button->isEnabled())
                return *button;
        }
        throw std::runtime_error("there is no bevel");
    }

    void moveSlider()
    {
        constexpr int least = 25;
        constexpr int range = 375;
        m_move += 7;
        const int place = m_move % (2 * range);
        m_height->setValue(least + std::min(place, 2 * range - place));
    }

    BodiesWindow m_window;
    PositionedDialog *m_dialog = nullptr;
    GIntEdit *m_height = nullptr;
    int m_count;
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

/// Opened and ended again and again.
template <class Measure>
auto uses(const Sprites &sprites, Measure measure)
{
    return [sprites, measure] {
        const auto bevel = std::make_shared<Bevel>(sprites);
        return [bevel, measure] { return measure(*bevel); };
    };
}

double opening(Bevel &bevel)
{
    bevel.discard();
    return bevel.open();
}

double discarding(Bevel &bevel)
{
    const double ms = bevel.discard();
    bevel.open();
    return ms;
}

double applying(Bevel &bevel)
{
    const double ms = bevel.apply();
    bevel.open();
    return ms;
}

void addDrags(const Sprites &sprites)
{
    const std::string name = "bevel, dragged, " + sprites.name;
    addBudget(name + ", 99 of 100, within 4 ms", 4.0, drags(sprites, 0.99));
    addBudget(name + ", the longest, within 8 ms", 8.0, drags(sprites, 1.0));
}

const bool rows = [] {
    const Sprites tiny{"256x256", 1, 256};
    const Sprites usual{"1024x1024", 1, 1024};
    const Sprites large{"4096x4096", 1, 4096};
    const Sprites unpainted{"4096x4096 unpainted", 1, 4096, false};
    const Sprites many{"20 of 512x512", 20, 512};
    addBudget("bevel, a slider's move shown, 1024x1024, within 25 ms", 25.0, slides(usual));
    addBudget("bevel, a slider's move shown, 256x256, within 4 ms", 4.0, slides(tiny));
    for (const Sprites &sprites : {usual, Sprites{"3 of 512x512", 3, 512}, large, unpainted})
        addDrags(sprites);
    addBudget("bevel, opened, 4096x4096, within 8 ms", 8.0, uses(large, opening));
    for (const Sprites &sprites : {large, unpainted, many}) {
        const std::string name = "bevel, " + sprites.name;
        addBudget(name + ", discarded, within 8 ms", 8.0, uses(sprites, discarding));
        addBudget(name + ", applied, within 33 ms", 33.0, uses(sprites, applying));
    }
    return true;
}();

} // namespace
