#include "imaging/Smoothing.h"

#include "imaging/PixelLoops.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

void blur(cv::Mat &values, double radius)
{
    const int side = smoothingKernel(radius);
    const double sigma = radius * 0.5;
    cv::GaussianBlur(values, values, {side, side}, sigma, sigma, cv::BORDER_REPLICATE);
}

} // namespace

int smoothingKernel(double radius)
{
    // Cut off, as halves are rounded up; no kernel need be larger than any image.
    const double side = 2.0 * std::min(radius, double(AngleImage::maximumSide)) + 0.5;
    return std::max(3, int(side) | 1);
}

void smoothen(FloatImage &heights, double radius)
{
    if (heights.isNull() || !(radius > 0.0))
        return;
    cv::Mat values(heights.height(), heights.width(), CV_32F, heights.row(0));
    blur(values, radius);
}

AngleImage smoothened(const AngleImage &surface, double radius)
{
    if (surface.isNull() || !(radius > 0.0))
        return surface;
    // A band of rows at a time, with what the kernel reaches above and below, so that the slopes
    // stay in the processor's cache. The result is that of the whole.
    const int reach = smoothingKernel(radius) / 2;
    const int rows = std::max(64, 24 * reach);
    const int width = surface.width();
    const int height = surface.height();
    const PixelLoops &loops = fastestPixelLoops();
    cv::Mat all(std::min(height, rows + 2 * reach), width, CV_32FC2);
    AngleImage result(width, height);
    for (int y = 0; y < height; y += rows) {
        const int first = std::max(0, y - reach);
        const int end = std::min(y + rows + reach, height);
        cv::Mat slopes(end - first, width, CV_32FC2, all.data);
        for (int i = first; i < end; ++i)
            loops.toFloats(surface.row(i), slopes.ptr<float>(i - first), width);
        blur(slopes, radius);
        for (int i = y; i < std::min(y + rows, height); ++i)
            loops.fromFloats(slopes.ptr<float>(i - first), result.row(i), width);
    }
    return result;
}
