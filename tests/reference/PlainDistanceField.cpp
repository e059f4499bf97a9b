#include "reference/PlainDistanceField.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double farAway = 1e6;
constexpr double leastGain = 1e-3;

// From a pixel's centre to the edge that crosses it, across the direction (gx, gy).
double edgeDistance(double gx, double gy, double a)
{
    if (gx == 0.0 || gy == 0.0)
        return 0.5 - a;
    const double length = std::sqrt(gx * gx + gy * gy);
    gx = std::abs(gx / length);
    gy = std::abs(gy / length);
    if (gx < gy)
        std::swap(gx, gy);
    const double corner = 0.5 * gy / gx;
    if (a < corner)
        return 0.5 * (gx + gy) - std::sqrt(2.0 * gx * gy * a);
    if (a < 1.0 - corner)
        return (0.5 - a) * gx;
    return -0.5 * (gx + gy) + std::sqrt(2.0 * gx * gy * (1.0 - a));
}

class Field
{
public:
    Field(const std::vector<double> &coverage, int width, int height)
        : m_width(width)
        , m_height(height)
        , m_coverage(coverage)
        , m_vectors(coverage.size())
        , m_distances(coverage.size())
    {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                m_distances[at(x, y)] = initialDistance(x, y);
        }
    }

    std::vector<double> propagated()
    {
        do {
            m_hasChanged = false;
            for (int y = std::min(1, m_height - 1); y < m_height; ++y) {
                for (int x = 0; x < m_width; ++x)
                    tryAll(x, y, {{-1, 0}, {-1, -1}, {0, -1}, {1, -1}});
                for (int x = m_width - 2; x >= 0; --x)
                    tryAll(x, y, {{1, 0}});
            }
            for (int y = m_height - 2; y >= 0; --y) {
                for (int x = m_width - 1; x >= 0; --x)
                    tryAll(x, y, {{1, 0}, {1, 1}, {0, 1}, {-1, 1}});
                for (int x = 1; x < m_width; ++x)
                    tryAll(x, y, {{-1, 0}});
            }
        } while (m_hasChanged);
        return m_distances;
    }

private:
    using Step = std::pair<int, int>;

    std::size_t at(int x, int y) const { return std::size_t(y) * std::size_t(m_width) + x; }

    double initialDistance(int x, int y) const
    {
        const double a = m_coverage[at(x, y)];
        if (a <= 0.0)
            return farAway;
        if (a >= 1.0)
            return 0.0;
        if (x == 0 || y == 0 || x == m_width - 1 || y == m_height - 1)
            return edgeDistance(0.0, 0.0, a);
        const auto c = [&](int dx, int dy) { return m_coverage[at(x + dx, y + dy)]; };
        const double side = std::sqrt(2.0);
        const double gx =
            (c(1, -1) - c(-1, -1)) + side * (c(1, 0) - c(-1, 0)) + (c(1, 1) - c(-1, 1));
        const double gy =
            (c(-1, 1) - c(-1, -1)) + side * (c(0, 1) - c(0, -1)) + (c(1, 1) - c(1, -1));
        return edgeDistance(gx, gy, a);
    }

    // Offers the neighbours' nearest edges to a pixel, one after the other.
    void tryAll(int x, int y, std::initializer_list<Step> steps)
    {
        for (const auto &[dx, dy] : steps) {
            double &distance = m_distances[at(x, y)];
            if (distance <= 0.0)
                return;
            if (x + dx < 0 || x + dx >= m_width || y + dy < 0 || y + dy >= m_height)
                continue;
            const Step &theirs = m_vectors[at(x + dx, y + dy)];
            const Step vector{theirs.first - dx, theirs.second - dy};
            const double a = m_coverage[at(x - vector.first, y - vector.second)];
            if (a <= 0.0 || vector == Step(0, 0))
                continue;
            const double length =
                std::sqrt(double(vector.first * vector.first + vector.second * vector.second));
            const double candidate = length + edgeDistance(vector.first, vector.second, a);
            if (candidate >= distance - leastGain)
                continue;
            distance = candidate;
            m_vectors[at(x, y)] = vector;
            m_hasChanged = true;
        }
    }

    int m_width;
    int m_height;
    const std::vector<double> &m_coverage;
    std::vector<Step> m_vectors; // from the nearest edge's pixel to each pixel
    std::vector<double> m_distances;
    bool m_hasChanged = false;
};

} // namespace

std::vector<double> plainDistanceField(const std::vector<double> &coverage, int width, int height)
{
    return Field(coverage, width, height).propagated();
}
