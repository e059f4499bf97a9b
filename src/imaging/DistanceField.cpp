#include "imaging/DistanceField.h"

#include "imaging/EdgeDistance.h"
#include "imaging/LargePageAllocator.h"
#include "imaging/PixelLoops.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr double leastGain = 1e-3;
/// Cells that are looked at together: where none can gain, none is looked at by itself.
constexpr int blockLength = 32;
constexpr int smallBlock = 16;

template <class Cell>
using Raster = std::vector<Cell, LargePageAllocator<Cell>>;

/// Columns from the first to the last.
struct Span
{
    int first = std::numeric_limits<int>::max();
    int last = std::numeric_limits<int>::min();

    bool isEmpty() const { return last < first; }
    int count() const { return last - first + 1; }
    void include(int column)
    {
        first = std::min(first, column);
        last = std::max(last, column);
    }
    void include(const Span &other)
    {
        first = std::min(first, other.first);
        last = std::max(last, other.last);
    }
    bool contains(int column) const { return column >= first && column <= last; }
    Span within(const Span &other) const
    {
        return {std::max(first, other.first), std::min(last, other.last)};
    }
    /// Between @p shift and @p otherShift farther, inside columns 0 to @p end.
    Span moved(int shift, int otherShift, int end) const
    {
        if (isEmpty())
            return {};
        return {std::max(first + shift, 0), std::min(last + otherShift, end - 1)};
    }
};

/// Cells of a row that have an edge which the neighbours on that side have not been offered yet.
struct News
{
    Span right;
    Span left;
    Span below;
    Span above;

    void include(const Span &cells)
    {
        for (Span *side : {&right, &left, &below, &above})
            side->include(cells);
    }
};

/// The distances while the vectors to the nearest edges are passed on. A row has one more cell on
/// either side, which offers nothing and takes nothing.
///
/// A distance only shrinks, so an offer that was refused once, or taken, need not be made again
/// before the neighbour's edge is another one. That makes all rounds but the first cheap.
class Propagation
{
public:
    Propagation(const QSize &size, const std::function<void(int, double *)> &coverage)
        : m_width(size.width())
        , m_height(size.height())
        , m_stride(std::size_t(m_width) + 2)
        , m_distances(m_stride * std::size_t(m_height), -1.0)
        , m_coverage(m_distances.size(), 0.0)
        , m_dx(m_distances.size(), 0)
        , m_dy(m_distances.size(), 0)
        , m_news(std::size_t(m_height))
    {
        for (int y = 0; y < m_height; ++y)
            coverage(y, m_coverage.data() + start(y));
        for (int y = 0; y < m_height; ++y)
            begin(y);
    }

    void run()
    {
        do {
            m_hasChanged = false;
            for (int y = std::min(1, m_height - 1); y < m_height; ++y)
                sweep<1>(y);
            for (int y = m_height - 2; y >= 0; --y)
                sweep<-1>(y);
        } while (m_hasChanged);
    }

    FloatImage takeDistances()
    {
        m_coverage = {};
        m_dx = {};
        m_dy = {};
        FloatImage distances(m_width, m_height);
        for (int y = 0; y < m_height; ++y) {
            const double *row = m_distances.data() + start(y);
            std::transform(row, row + m_width, distances.row(y), [](double distance) {
                return float(std::max(0.0, distance));
            });
        }
        return distances;
    }

private:
    std::size_t start(int y) const { return std::size_t(y) * m_stride + 1; }

    void begin(int y)
    {
        const double *coverage = m_coverage.data() + start(y);
        double *distances = m_distances.data() + start(y);
        for (int x = 0; x < m_width; ++x)
            distances[x] = coverage[x] > 0.0 ? 0.0 : farAway;
        // Most pixels are no edges, and none need be looked at by itself.
        Span covered;
        for (int x = 0; x < m_width; x += smallBlock) {
            const int end = std::min(x + smallBlock, m_width);
            int isCovered = 0;
            int isPartlyCovered = 0;
            for (int i = x; i < end; ++i) {
                isCovered |= coverage[i] > 0.0 ? 1 : 0;
                isPartlyCovered |= isPartly(coverage[i]) ? 1 : 0;
            }
            if (isCovered != 0)
                covered.include({x, end - 1});
            if (isPartlyCovered != 0)
                beginEdges(y, x, end);
        }
        m_news[std::size_t(y)].include(covered);
        addRuns(y);
    }

    static bool isPartly(double coverage) { return coverage > 0.0 && coverage < 1.0; }

    void beginEdges(int y, int first, int end)
    {
        const double *coverage = m_coverage.data() + start(y);
        double *distances = m_distances.data() + start(y);
        // The outermost pixels have no gradient.
        const auto beginOutermost = [&](int x) {
            if (isPartly(coverage[x]))
                distances[x] = 0.5 - coverage[x];
        };
        if (y == 0 || y == m_height - 1) {
            for (int x = first; x < end; ++x)
                beginOutermost(x);
            return;
        }
        const int insideFirst = std::max(first, 1);
        const int insideEnd = std::min(end, m_width - 1);
        if (insideFirst < insideEnd) {
            fastestPixelLoops().ownEdges(coverage - m_stride + insideFirst,
                                         coverage + insideFirst,
                                         coverage + m_stride + insideFirst,
                                         distances + insideFirst,
                                         insideEnd - insideFirst);
        }
        if (first == 0)
            beginOutermost(0);
        if (end == m_width)
            beginOutermost(m_width - 1);
    }

    // Covered cells never take an offer.
    void addRuns(int y)
    {
        const double *distances = m_distances.data() + start(y);
        for (int x = 0; x < m_width; x += smallBlock) {
            const int end = std::min(x + smallBlock, m_width);
            int isOpen = 0;
            for (int i = x; i < end; ++i)
                isOpen |= distances[i] > 0.0 ? 1 : 0;
            if (isOpen == 0)
                continue;
            if (m_runs.size() == m_firstRuns.back() || m_runs.back().last < x - 1)
                m_runs.push_back({x, end - 1});
            m_runs.back().last = end - 1;
        }
        m_firstRuns.push_back(m_runs.size());
    }

    // A row's cells look at the one beside them, then at three of the row that was swept before,
    // one cell after the other in the sweep's direction; on the way back only at the one beside.
    template <int direction>
    void sweep(int y)
    {
        const int from = y - direction;
        Span offered;
        if (from >= 0 && from < m_height) {
            News &news = m_news[std::size_t(from)];
            Span &ahead = direction > 0 ? news.below : news.above;
            offered = ahead.moved(-1, 1, m_width);
            ahead = {};
        }
        pass<direction>(y, offered);
        pass<-direction>(y, {});
    }

    // Cells of @p offered also take from the row that was swept before.
    template <int direction>
    void pass(int y, const Span &offered)
    {
        News &news = m_news[std::size_t(y)];
        Span &ahead = direction > 0 ? news.right : news.left;
        Span receivers = ahead.moved(direction, direction, m_width);
        receivers.include(offered);
        ahead = {};
        Span changed;
        const std::size_t first = m_firstRuns[std::size_t(y)];
        const std::size_t end = m_firstRuns[std::size_t(y) + 1];
        for (std::size_t i = first; i < end; ++i) {
            const Span &run = m_runs[direction > 0 ? i : end - 1 - (i - first)];
            passRun<direction>(y, run, receivers.within(run), offered.within(run), changed);
        }
        news.include(changed);
        ahead = {};
        m_hasChanged = m_hasChanged || !changed.isEmpty();
    }

    template <int direction>
    void passRun(int y, const Span &run, Span receivers, const Span &offered, Span &changed)
    {
        bool isNew = false; // what the cell before offers
        for (int x = direction > 0 ? receivers.first : receivers.last; receivers.contains(x);) {
            const int end = x + direction * (blockLength - 1);
            const Span block = Span{std::min(x, end), std::max(x, end)}.within(run);
            const int kinds = offered.within(block).isEmpty() ? 1 : 4;
            makeOffers<direction>(y, block, kinds);
            x = direction > 0 ? block.last + 1 : block.first - 1;
            if (!isNew && !hasGain(y, block, kinds))
                continue;
            isNew = takeInBlock<direction>(y, block, kinds, isNew, changed);
            if (isNew && run.contains(x))
                receivers.include(x);
        }
    }

    // What the cell beside offers to each cell of @p block, then what the row before offers.
    template <int direction>
    void makeOffers(int y, const Span &block, int kinds)
    {
        for (int i = 0; i < kinds; ++i) {
            const auto [stepX, stepY] = stepTo<direction>(i);
            const std::size_t first = start(y + stepY) + std::size_t(block.first + stepX);
            fastestPixelLoops().edgeOffers(m_coverage.data() + first,
                                           m_dx.data() + first,
                                           m_dy.data() + first,
                                           -stepX,
                                           -stepY,
                                           m_offers[std::size_t(i)].data(),
                                           block.count());
        }
    }

    bool hasGain(int y, const Span &block, int kinds) const
    {
        const double *distances = m_distances.data() + start(y) + block.first;
        const auto isGain = [&](const auto &offers) {
            return fastestPixelLoops().isAnyBelow(
                offers.data(), distances, leastGain, block.count());
        };
        return std::any_of(m_offers.begin(), m_offers.begin() + kinds, isGain);
    }

    // True when the last cell has taken.
    template <int direction>
    bool takeInBlock(int y, const Span &block, int kinds, bool isNew, Span &changed)
    {
        for (int i = 0; i < block.count(); ++i) {
            const int place = direction > 0 ? i : block.count() - 1 - i;
            const std::size_t cell = start(y) + std::size_t(block.first + place);
            if (isNew)
                m_offers[0][std::size_t(place)] =
                    offerOf(cell - std::size_t(qptrdiff(direction)), direction);
            isNew = takeOffers<direction>(cell, std::size_t(place), kinds);
            if (isNew)
                changed.include(block.first + place);
        }
        return isNew;
    }

    // To the neighbour that makes an offer of this kind.
    template <int direction>
    static std::pair<int, int> stepTo(int kind)
    {
        return kind == 0 ? std::pair(-direction, 0) : std::pair((kind - 2) * direction, -direction);
    }

    double offerOf(std::size_t cell, int moveX) const
    {
        return distanceToEdge(m_dx[cell] + moveX, m_dy[cell], m_coverage[cell]);
    }

    template <int direction>
    bool takeOffers(std::size_t cell, std::size_t place, int kinds)
    {
        double distance = m_distances[cell];
        if (distance <= 0.0)
            return false;
        int taken = -1;
        for (int i = 0; i < kinds; ++i) {
            const double offer = m_offers[std::size_t(i)][place];
            const bool isTaken = offer < distance - leastGain;
            distance = isTaken ? offer : distance;
            taken = isTaken ? i : taken;
        }
        if (taken < 0)
            return false;
        const auto [stepX, stepY] = stepTo<direction>(taken);
        const std::size_t neighbour =
            cell + std::size_t(qptrdiff(stepY) * qptrdiff(m_stride) + stepX);
        m_distances[cell] = distance;
        m_coverage[cell] = m_coverage[neighbour];
        m_dx[cell] = m_dx[neighbour] - stepX;
        m_dy[cell] = m_dy[neighbour] - stepY;
        return true;
    }

    int m_width;
    int m_height;
    std::size_t m_stride;
    Raster<double> m_distances;
    Raster<double> m_coverage; // of the pixel with the nearest edge
    Raster<qint32> m_dx;       // from there, in pixels
    Raster<qint32> m_dy;
    std::vector<News> m_news;
    std::vector<Span> m_runs; // of cells that take, row after row
    std::vector<std::size_t> m_firstRuns{0};
    std::array<std::array<double, blockLength>, 4> m_offers; // to a block, by kind
    bool m_hasChanged = false;
};

} // namespace

FloatImage distanceField(const QSize &size, const std::function<void(int, double *)> &coverage)
{
    if (FloatImage(size.width(), size.height()).isNull())
        return {};
    Propagation propagation(size, coverage);
    propagation.run();
    return propagation.takeDistances();
}
