#include "imaging/effects/FilterCreateRimAlgorithm.h"

#include "imaging/DistanceField.h"
#include "imaging/Smoothing.h"
#include "imaging/effects/Relief.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// Around the sprite.
constexpr int margin = 1;

// Pixels whose whole neighbourhood is visible count as fully covered; the others keep their alpha,
// so that smooth edges keep their place within a pixel.
cv::Mat opacityMask(const QImage &pixels)
{
    const cv::Mat colors(pixels.height(),
                         pixels.width(),
                         CV_8UC4,
                         const_cast<uchar *>(pixels.constBits()),
                         std::size_t(pixels.bytesPerLine()));
    cv::Mat alpha(colors.size(), CV_8U);
    cv::mixChannels(colors, alpha, {3, 0});
    cv::Mat covered;
    cv::threshold(alpha, covered, 0, 255, cv::THRESH_BINARY);
    cv::erode(covered, covered, cv::Mat());
    cv::max(covered, alpha, covered);
    return covered;
}

/// How transparent the pixels of a sprite and of the margin around it are, 0 to 1.
class Transparency
{
public:
    explicit Transparency(const RimParams &params)
        : m_mask(opacityMask(plainPixels(params.sprite)))
        , m_selection(params.selection)
        , m_tileMode(params.tileMode)
    {
    }

    QSize size() const { return {m_mask.cols + 2 * margin, m_mask.rows + 2 * margin}; }

    void writeRow(int y, double *row) const
    {
        const int inner = std::clamp(y - margin, 0, m_mask.rows - 1);
        for (int x = 0; x < m_mask.cols; ++x)
            row[x + margin] = at(x, inner);
        const int last = m_mask.cols + margin;
        row[0] = m_tileMode ? 1.0 : row[margin];
        row[last] = m_tileMode ? 1.0 : row[last - 1];
        if (m_tileMode && inner != y - margin)
            std::fill_n(row, size().width(), 1.0);
    }

private:
    double at(int x, int y) const
    {
        const double coverage = m_mask.at<uchar>(y, x) / 255.0 * weight(x, y);
        // A weight that is no number selects nothing.
        return coverage > 0.0 ? std::max(0.0, 1.0 - coverage) : 1.0;
    }

    double weight(int x, int y) const
    {
        if (m_selection.isNull())
            return 1.0;
        return m_selection.rect().contains(x, y) ? m_selection.row(y)[x] : 0.0;
    }

    cv::Mat m_mask;
    FloatImage m_selection;
    bool m_tileMode;
};

/// The heights of a rim over the distance from its edge.
class Profile
{
public:
    explicit Profile(const RimParams &params)
        : m_width(float(params.rimWidth))
    {
        const double sign = params.up ? 1.0 : -1.0;
        const double height = params.rimHeight * sign * params.rimWidth / 100.0;
        const int count = params.rimWidth * stepsPerPixel;
        for (int i = 0; i < count; ++i)
            m_heights.push_back(float(height * std::sin(std::acos(1.0 - double(i) / count))));
        m_heights.push_back(float(height)); // the plateau
    }

    void writeRow(const float *distances, float *heights, int count) const
    {
        const int plateau = int(m_heights.size()) - 1;
        for (int i = 0; i < count; ++i) {
            const int step = std::min(int(distances[i] * float(stepsPerPixel)), plateau - 1);
            heights[i] = m_heights[std::size_t(distances[i] >= m_width ? plateau : step)];
        }
    }

private:
    static constexpr int stepsPerPixel = 100;

    float m_width;
    std::vector<float> m_heights;
};

} // namespace

AngleImage FilterCreateRimAlgorithm::compute(const RimParams &params)
{
    if (params.sprite.isNull())
        return params.base;
    const FloatImage &field = distances(params);
    const Profile profile(params);
    FloatImage heights(field.width(), field.height());
    for (int y = 0; y < field.height(); ++y)
        profile.writeRow(field.row(y), heights.row(y), field.width());
    smoothen(heights, params.smoothness);
    AngleImage result = baseSurface(params.base, params.sprite);
    addRelief(result, heights, heights.rect().adjusted(margin, margin, -margin, -margin));
    return result;
}

const FloatImage &FilterCreateRimAlgorithm::distances(const RimParams &params)
{
    Entry &entry = m_cache[params.bodyKey];
    const bool isCurrent = !entry.distances.isNull() && entry.sprite == params.sprite &&
                           entry.selection == params.selection && entry.tileMode == params.tileMode;
    if (!isCurrent) {
        const Transparency transparency(params);
        entry = {params.sprite,
                 params.selection,
                 params.tileMode,
                 distanceField(transparency.size(),
                               [&](int y, double *row) { transparency.writeRow(y, row); })};
    }
    return entry.distances;
}
