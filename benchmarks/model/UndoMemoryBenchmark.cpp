#include "Ratio.h"
#include "imaging/SelectionMasks.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"

#include <malloc.h>

#include <ctime>
#include <memory>
#include <random>

namespace {

constexpr int gestureCount = 200;
constexpr double megabyte = 1e6;

/// What the program has allocated and not let go, in bytes.
double allocated()
{
    const struct mallinfo2 heap = mallinfo2();
    return double(heap.uordblks) + double(heap.hblkhd);
}

/// Of the processor, in this thread.
double millisecondsOf(const std::function<void()> &work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return 1e3 * double(time.tv_sec) + 1e-6 * double(time.tv_nsec);
    };
    const double start = now();
    work();
    return now() - start;
}

/// A painted body whose gestures are steps of its project.
class Document
{
public:
    explicit Document(int side)
        : m_body(m_project)
        , m_side(side)
    {
        m_body.paintedNormalMap().setValue(encode(AngleImage(side, side, 77)));
        m_pixels.setProject(&m_project);
        m_pixels.setBody(&m_body);
    }

    GUndoStack &stack() { return m_project.undoStack(); }

    /// A surface after a stroke of 64 pixels, three times as long as it is wide, somewhere: no two
    /// slopes of it alike.
    AngleImage painted()
    {
        constexpr int width = 64;
        constexpr int length = 3 * width;
        AngleImage surface = m_body.paintedNormalMap().angleImage();
        const QPoint at(below(m_side - length), below(m_side - width));
        for (int y = 0; y < width; ++y) {
            AngleImage::Pixel *row = surface.row(at.y() + y);
            for (int x = 0; x < length; ++x)
                row[at.x() + x] = {qint16(m_random()), qint16(m_random())};
        }
        return surface;
    }

    void commit(const AngleImage &surface)
    {
        m_body.paintedNormalMap().setAngleImage(surface, QStringLiteral("paint"));
    }

    /// Deselects and selects inside a polygon of 12 corners anywhere, as a lasso does.
    void selectPolygon()
    {
        constexpr int corners = 12;
        QPolygon polygon;
        for (int i = 0; i < corners; ++i)
            polygon.append({below(m_side), below(m_side)});
        m_pixels.setSelection(&m_body, {}, QStringLiteral("clear"));
        m_pixels.setSelection(&m_body,
                              combinedWithPolygon({}, polygon, {m_side, m_side}, false),
                              QStringLiteral("select"));
    }

    /// The megabytes that @p gesture leaves on the undo stack when it is made again and again.
    double megabytesOf(const std::function<void()> &gesture)
    {
        gesture(); // the document grows to what it is with a stroke or a selection
        stack().clear();
        const double before = allocated();
        for (int i = 0; i < gestureCount; ++i)
            gesture();
        const double after = allocated();
        stack().clear();
        return (after - before) / megabyte;
    }

private:
    int below(int end) { return int(m_random() % quint32(end)); }

    Project m_project;
    Body m_body;
    PixelSelectionModel m_pixels;
    int m_side;
    std::mt19937 m_random{1};
};

constexpr int side = 2048;
// A fiftieth of as many whole surfaces.
constexpr double budget = gestureCount * 4.0 * side * side / 50.0 / megabyte;

// Measured once: what is kept does not hang on the machine.
bool addMemory(const std::string &name, const std::function<void(Document &)> &gesture)
{
    return addBudget(name, budget, [gesture] {
        Document document(side);
        const double kept = document.megabytesOf([&] { gesture(document); });
        return [kept] { return kept; };
    });
}

const bool strokes = addMemory("undo memory of 200 strokes of 64 px, 2048x2048, in MB",
                               [](Document &document) { document.commit(document.painted()); });

const bool lassos = addMemory("undo memory of 200 lassos, 2048x2048, in MB",
                              [](Document &document) { document.selectPolygon(); });

bool addPush(const std::string &name, int side, double limit)
{
    return addBudget(name, limit, [side] {
        const auto document = std::make_shared<Document>(side);
        return [document] {
            const AngleImage surface = document->painted();
            return millisecondsOf([&] { document->commit(surface); });
        };
    });
}

// A part of what a release takes.
const bool push = addPush("undo step of a stroke, 2048x2048, of 5 ms", 2048, 5.0);
const bool largePush = addPush("undo step of a stroke, 4096x4096, of 20 ms", 4096, 20.0);

} // namespace
