#include "imaging/Smoothing.h"

#include "Ratio.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {

Contest contest(double radius)
{
    constexpr int side = 2048;
    cv::setNumThreads(1);
    const AngleImage surface(side, side, 0x01230456);
    const cv::Mat slopes(side, side, CV_32FC2, cv::Scalar(1.1, 4.3));
    const cv::Size kernel(smoothingKernel(radius), smoothingKernel(radius));
    return {[surface, radius] { smoothened(surface, radius); },
            [slopes, kernel, sigma = radius / 2] {
                cv::GaussianBlur(slopes, slopes, kernel, sigma, sigma, cv::BORDER_REPLICATE);
            }};
}

const bool rows = addRatio("smoothened, 2048x2048, radius 3 / its cv::GaussianBlur in place",
                           1.0 / 1.5,
                           [] { return contest(3.0); }) &&
                  addRatio("smoothened, 2048x2048, radius 10 / its cv::GaussianBlur in place",
                           1.0 / 1.2,
                           [] { return contest(10.0); });

} // namespace
