#include "Ratio.h"
#include "framework/GApplication.h"
#include "model/Project.h"
#include "preview/NormalMapEditorScene.h"
#include "tools/PaintToolAngleBrush.h"
#include "tools/PaintToolBlurBrush.h"
#include "tools/PaintToolEraser.h"
#include "tools/PaintToolHeightBrush.h"
#include "tools/PaintToolStructure.h"
#include "ui/PaintingWindow.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Brush
{
    std::string name;
    std::unique_ptr<PaintTool> (*make)();
};

template <class Tool>
std::unique_ptr<PaintTool> make()
{
    return std::make_unique<Tool>();
}

std::unique_ptr<PaintTool> makeStructureBrush()
{
    return std::make_unique<PaintToolStructure>(static_cast<GApplication *>(qApp)->settings());
}

const Brush brushes[] = {
    {"height brush", make<PaintToolHeightBrush>},
    {"angle brush", make<PaintToolAngleBrush>},
    {"eraser", make<PaintToolEraser>},
    {"smoothness brush", make<PaintToolBlurBrush>},
    {"structure brush", makeStructureBrush},
};

double millisecondsOf(const std::function<void()> &work)
{
    const double start = threadSeconds();
    work();
    return 1000.0 * (threadSeconds() - start);
}

/// A long stroke, line by line over the whole body, each step shown before the next.
class Dabs
{
public:
    Dabs(int side, const Brush &brush)
        : m_window(side, brush.make())
    {
        m_window.setBrushSize(32);
        m_window.press(m_place);
        m_window.rest();
    }

    ~Dabs() { m_window.release(m_place); }

    void paint(int steps)
    {
        const int before = m_window.results();
        for (int step = 0; step < steps; ++step) {
            advance();
            m_window.moveTo(m_place);
            m_window.waitForNormalMaps();
            m_window.upload();
        }
        if (m_window.results() < before + steps)
            throw std::runtime_error("nothing is painted");
    }

private:
    static constexpr int edge = 40;

    void advance()
    {
        const int end = m_window.side() - edge;
        m_place.rx() += 8;
        if (m_place.x() > end)
            m_place = {edge, m_place.y() + 16};
        if (m_place.y() > end)
            m_place = {edge, edge};
    }

    PaintingWindow m_window;
    QPoint m_place{edge, edge};
};

void addDabs(const Brush &brush)
{
    constexpr int steps = 20;
    addRatio(brush.name + ", 20 steps of size 32, 4096x4096 / 512x512", 1 / 1.5, [&brush] {
        const auto large = std::make_shared<Dabs>(4096, brush);
        const auto small = std::make_shared<Dabs>(512, brush);
        return Contest{[large] { large->paint(steps); },
                       [small] { small->paint(steps); },
                       [] {},
                       threadSeconds};
    });
    addBudget(brush.name + ", a step of size 32, 2048x2048, within 4 ms", 4.0, [&brush] {
        const auto dabs = std::make_shared<Dabs>(2048, brush);
        dabs->paint(steps);
        return [dabs] { return millisecondsOf([dabs] { dabs->paint(5 * steps); }) / (5 * steps); };
    });
}

/// A press and its result, right after another stroke has ended and been worked on.
auto presses(const Brush &brush)
{
    return [&brush] {
        const auto window = std::make_shared<PaintingWindow>(4096, brush.make());
        window->setBrushSize(32);
        QPoint place(1024, 1024);
        return [window, place]() mutable {
            place.rx() += 64; // where something is left to do
            const double ms = millisecondsOf([&] {
                window->press(place);
                window->waitForNormalMaps();
            });
            window->release(place);
            window->rest();
            return ms;
        };
    };
}

/// The tool becomes the active one, as by its button.
auto activations(const Brush &brush)
{
    return [&brush] {
        const auto window = std::make_shared<PaintingWindow>(4096, brush.make());
        return [window] {
            window->scene().setTool(nullptr);
            window->rest();
            const double ms = millisecondsOf([&] { window->scene().setTool(&window->tool()); });
            window->rest();
            return ms;
        };
    };
}

/// What a short stroke's undo takes before the background works on it.
auto undos(const Brush &brush)
{
    return [&brush] {
        const auto window = std::make_shared<PaintingWindow>(4096, brush.make());
        return [window] {
            constexpr QPoint from(1024, 1024);
            constexpr QPoint to(1280, 1280);
            window->press(from);
            window->moveTo(to);
            window->rest();
            window->release(to);
            window->rest();
            QUndoStack &stack = window->project().undoStack();
            if (stack.index() != stack.count() || !stack.canUndo())
                throw std::runtime_error("there is no step to undo");
            const double ms = millisecondsOf([&] { stack.undo(); });
            window->rest();
            return ms;
        };
    };
}

/// What is left to show when a stroke has ended, textures included.
auto ends(const Brush &brush)
{
    return [&brush] {
        const auto window = std::make_shared<PaintingWindow>(4096, brush.make());
        QPoint place(1024, 1024);
        return [window, place]() mutable {
            place.rx() += 64;
            window->press(place);
            window->waitForNormalMaps();
            window->upload();
            window->release(place);
            const double ms = millisecondsOf([&] {
                window->waitForNormalMaps();
                window->upload();
            });
            window->rest();
            return ms;
        };
    };
}

/// A stroke that crosses the whole body again and again, as fast as events can come.
class Scribble
{
public:
    Scribble(const Brush &brush, int size)
        : m_window(2048, brush.make())
    {
        m_window.setBrushSize(size);
        paint();
    }

    /// The time of each event and each result.
    void paint()
    {
        constexpr int events = 1000;
        m_milliseconds.clear();
        m_window.press(place(0));
        m_window.rest();
        const int before = m_window.results();
        for (int i = 1; i <= events; ++i) {
            m_milliseconds.push_back(millisecondsOf([&] { m_window.moveTo(place(i)); }));
            m_milliseconds.push_back(millisecondsOf(PaintingWindow::deliver));
        }
        m_release = millisecondsOf([&] { m_window.release(place(events)); });
        if (m_window.results() == before)
            throw std::runtime_error("nothing is painted");
        std::sort(m_milliseconds.begin(), m_milliseconds.end());
        m_window.rest();
        // The next one shall have as much to do.
        m_window.project().undoStack().undo();
        m_window.rest();
    }

    /// Which a share of all events and results stays below; 1 for the longest.
    double milliseconds(double share) const
    {
        return m_milliseconds[std::size_t(share * double(m_milliseconds.size() - 1))];
    }
    /// Of an event with the results that come after it, on average.
    double mean() const
    {
        return 2.0 * std::accumulate(m_milliseconds.begin(), m_milliseconds.end(), 0.0) /
               double(m_milliseconds.size());
    }
    double release() const { return m_release; }

private:
    static QPoint place(int event)
    {
        return {int(1024 + 800 * std::sin(event * 0.1)), int(1024 + 800 * std::sin(event * 0.083))};
    }

    PaintingWindow m_window;
    std::vector<double> m_milliseconds;
    double m_release = 0.0;
};

template <class Read>
auto scribble(const Brush &brush, Read read, int size = 200)
{
    return [&brush, read, size] {
        const auto painted = std::make_shared<Scribble>(brush, size);
        return [painted, read] {
            painted->paint();
            return read(*painted);
        };
    };
}

void addScribbles(const Brush &brush)
{
    addBudget(brush.name + ", scribble of size 200, 99 of 100, within 4 ms",
              4.0,
              scribble(brush, [](const Scribble &s) { return s.milliseconds(0.99); }));
    addBudget(brush.name + ", the same, the longest, within 8 ms",
              8.0,
              scribble(brush, [](const Scribble &s) { return s.milliseconds(1.0); }));
    addBudget(brush.name + ", its release, within 30 ms",
              30.0,
              scribble(brush, [](const Scribble &s) { return s.release(); }));
    // A mouse for games moves a thousand times a second.
    addBudget(brush.name + ", scribble of size 500, an event on average, within 1 ms",
              1.0,
              scribble(
                  brush, [](const Scribble &s) { return s.mean(); }, 500));
}

const bool rows = [] {
    for (const Brush &brush : brushes) {
        addDabs(brush);
        addBudget(brush.name + ", press, 4096x4096, within 25 ms", 25.0, presses(brush));
        addScribbles(brush);
    }
    // The brush with most to do beside its strokes.
    const Brush &brush = brushes[3];
    addBudget(brush.name + ", activated, 4096x4096, within 33 ms", 33.0, activations(brush));
    addBudget(brush.name + ", a stroke undone, 4096x4096, within 33 ms", 33.0, undos(brush));
    addBudget(brush.name + ", its end shown, 4096x4096, within 25 ms", 25.0, ends(brush));
    return true;
}();

} // namespace
