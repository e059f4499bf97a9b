#include "imaging/SelectionMasks.h"

#include "imaging/Clipping.h"
#include "imaging/FloatPainter.h"
#include "imaging/PixelBlocks.h"

#include <QImage>
#include <QPainter>

#include <opencv2/imgproc.hpp>

#include <algorithm>

namespace {

template <class Test>
bool isAny(const FloatImage &image, Test test)
{
    const float *first = image.row(0);
    return std::any_of(first, first + qptrdiff(image.width()) * image.height(), test);
}

FloatImage mixed(const FloatImage &a, const FloatImage &b, float (*weight)(float, float))
{
    FloatImage result = a;
    float *first = result.row(0);
    std::transform(
        first, first + qptrdiff(result.width()) * result.height(), b.row(0), first, weight);
    return result;
}

QImage paintedPolygon(const QPolygon &polygon, const QRect &area)
{
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    // A pen would cover the pixels beside the edge too.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.translate(-area.topLeft());
    painter.drawPolygon(polygon, Qt::OddEvenFill);
    return image;
}

// Weight 1 for each pixel that the polygon covers.
FloatImage coverage(const QPolygon &polygon, const QSize &size)
{
    FloatImage mask(size.width(), size.height());
    // In blocks, since the painter reaches neither far columns nor far rows.
    constexpr int side = 4096;
    const QRect touched = clipped(polygon.boundingRect(), mask.rect());
    forEachBlock(touched, {side, side}, [&](const QRect &block) {
        const QImage image = paintedPolygon(polygon, block);
        for (int y = 0; y < block.height(); ++y) {
            const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            const auto weight = [](QRgb pixel) { return (pixel & RGB_MASK) != 0 ? 1.0F : 0.0F; };
            std::transform(
                pixels, pixels + block.width(), mask.row(block.top() + y) + block.left(), weight);
        }
    });
    return mask;
}

} // namespace

bool hasWeight(const FloatImage &selection)
{
    return isAny(selection, [](float weight) { return weight != 0.0F; });
}

FloatImage withoutEmpty(const FloatImage &selection)
{
    return hasWeight(selection) ? selection : FloatImage();
}

FloatImage fullSelection(const QSize &size)
{
    return {size.width(), size.height(), 1.0F};
}

QImage fillColors(const QImage &texture)
{
    if (texture.format() == QImage::Format_RGB888)
        return texture;
    // As they are stored, also below alpha; the fill refuses a fourth channel.
    return texture.convertToFormat(QImage::Format_ARGB32).convertToFormat(QImage::Format_RGB888);
}

FloatImage colorFill(const QImage &texture, const QPoint &seed, int tolerance)
{
    FloatImage selection(texture.width(), texture.height());
    if (!selection.rect().contains(seed))
        return {};
    const QImage colors = fillColors(texture);
    // Only the mask is written.
    cv::Mat pixels(colors.height(),
                   colors.width(),
                   CV_8UC3,
                   const_cast<uchar *>(colors.constBits()),
                   size_t(colors.bytesPerLine()));
    cv::Mat filled(pixels.rows + 2, pixels.cols + 2, CV_8UC1, cv::Scalar(0));
    constexpr int connectivity = 4;
    constexpr int mark = 1 << 8;
    cv::floodFill(pixels,
                  filled,
                  {seed.x(), seed.y()},
                  {},
                  nullptr,
                  cv::Scalar::all(std::clamp(tolerance, 0, 255)),
                  cv::Scalar::all(std::clamp(tolerance, 0, 255)),
                  connectivity | mark | cv::FLOODFILL_FIXED_RANGE | cv::FLOODFILL_MASK_ONLY);
    // The fill's mask has a border of its own, one pixel wide.
    const cv::Mat inside = filled(cv::Rect(1, 1, pixels.cols, pixels.rows));
    inside.convertTo(cv::Mat(pixels.rows, pixels.cols, CV_32FC1, selection.row(0)), CV_32F);
    return selection;
}

FloatImage combined(const FloatImage &selection, const FloatImage &mask, SelectionMode mode)
{
    if (mode == SelectionMode::Replace)
        return withoutEmpty(mask);
    if (mask.isNull())
        return withoutEmpty(selection);
    const bool isAdding = mode == SelectionMode::Add;
    if (selection.size() != mask.size())
        return isAdding ? withoutEmpty(mask) : FloatImage();
    const auto larger = [](float old, float weight) { return std::max(old, weight); };
    const auto left = [](float old, float weight) { return std::min(old, 1.0F - weight); };
    return withoutEmpty(isAdding ? mixed(selection, mask, larger) : mixed(selection, mask, left));
}

FloatImage combinedWithPolygon(const FloatImage &selection,
                               const QPolygon &polygon,
                               const QSize &size,
                               bool subtract)
{
    FloatImage result =
        selection.size() == size ? selection : FloatImage(size.width(), size.height());
    if (result.isNull())
        return {};
    FloatPainter weights(result);
    weights.setMask(coverage(polygon, size));
    weights.fill(subtract ? 0.0F : 1.0F);
    return withoutEmpty(result);
}

FloatImage inverted(const FloatImage &selection)
{
    if (!isAny(selection, [](float weight) { return weight != 1.0F; }))
        return {};
    const FloatImage full = fullSelection(selection.size());
    return mixed(full, selection, [](float one, float weight) { return one - weight; });
}
