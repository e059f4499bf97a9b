#include "imaging/SurfaceResizing.h"

#include "imaging/PixelLoops.h"
#include "imaging/SlopeArithmetic.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {
// Towards zero, so that a surface that has grown shrinks back to where it was.
int offset(int difference, bool isAtStart, bool isAtEnd)
{
    return isAtStart ? 0 : isAtEnd ? difference : difference / 2;
}

// One side at a time, since the library takes areas only where no side grows.
void stretch(cv::Mat &slopes, int width, int height)
{
    const cv::Size size(width, height);
    if (size == slopes.size())
        return;
    const bool shrinks = width < slopes.cols || height < slopes.rows;
    cv::Mat stretched;
    cv::resize(slopes, stretched, size, 0, 0, shrinks ? cv::INTER_AREA : cv::INTER_LINEAR);
    slopes = stretched;
}
} // namespace

AngleImage anchoredTo(const AngleImage &surface, const QSize &size, Qt::Alignment anchor)
{
    AngleImage result(size.width(), size.height());
    const QSize difference = size - surface.size();
    const QPoint place(
        offset(difference.width(), anchor & Qt::AlignLeft, anchor & Qt::AlignRight),
        offset(difference.height(), anchor & Qt::AlignTop, anchor & Qt::AlignBottom));
    addSlopes(result, {}, place, surface);
    return result;
}

AngleImage scaledTo(const AngleImage &surface, const QSize &size)
{
    AngleImage result(size.width(), size.height());
    if (surface.isNull() || result.isNull())
        return result;
    const PixelLoops &loops = fastestPixelLoops();
    cv::Mat slopes(surface.height(), surface.width(), CV_32FC2);
    for (int y = 0; y < surface.height(); ++y)
        loops.toFloats(surface.row(y), slopes.ptr<float>(y), surface.width());
    stretch(slopes, size.width(), slopes.rows);
    stretch(slopes, size.width(), size.height());
    for (int y = 0; y < size.height(); ++y)
        loops.fromFloats(slopes.ptr<float>(y), result.row(y), size.width());
    return result;
}
