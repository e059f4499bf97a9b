#include "imaging/HeightsToAngles.h"

#include "Ratio.h"
#include "imaging/Surfaces.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {

/// The same slopes from general parts: two filters over the image, then the conversion to cells.
class TwoSobelPasses
{
public:
    explicit TwoSobelPasses(const FloatImage &heights)
        : m_heights(heights)
        , m_surface(heights.width(), heights.height())
    {
        cv::setNumThreads(1);
    }

    void operator()()
    {
        const cv::Mat field(m_heights.height(),
                            m_heights.width(),
                            CV_32F,
                            const_cast<float *>(std::as_const(m_heights).row(0)));
        derive(field, 1, 0, m_cells[0]);
        derive(field, 0, 1, m_cells[1]);
        cv::Mat cells(field.size(), CV_16SC2, m_surface.row(0));
        cv::merge(m_cells, 2, cells);
    }

private:
    // Sobel's slopes rise where ours fall, hence the sign. The conversion saturates at −128 itself.
    void derive(const cv::Mat &field, int dx, int dy, cv::Mat &cells)
    {
        cv::Sobel(field, m_slope, CV_32F, dx, dy, 3, -0.125, 0.0, cv::BORDER_REPLICATE);
        cv::min(m_slope, 127.0, m_slope);
        m_slope.convertTo(cells, CV_16S, 256.0);
    }

    FloatImage m_heights;
    AngleImage m_surface;
    cv::Mat m_slope;
    cv::Mat m_cells[2];
};

const bool rows = addRatio("heightsToAngles, 4096x4096 / two passes of cv::Sobel", 2.0, [] {
    const FloatImage heights = largeHeights();
    return Contest{
        [heights, surface = AngleImage()]() mutable { heightsToAngles(heights, surface); },
        TwoSobelPasses(heights)};
});

} // namespace
