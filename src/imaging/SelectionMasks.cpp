#include "imaging/SelectionMasks.h"

#include "imaging/FloatPainter.h"

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

// Weight 1 for each pixel that is not black.
FloatImage coverage(const QImage &image)
{
    FloatImage mask(image.width(), image.height());
    for (int y = 0; y < mask.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        const auto weight = [](QRgb pixel) { return (pixel & RGB_MASK) != 0 ? 1.0F : 0.0F; };
        std::transform(pixels, pixels + mask.width(), mask.row(y), weight);
    }
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

FloatImage colorFill(const QImage &texture, const QPoint &seed, int tolerance)
{
    FloatImage selection(texture.width(), texture.height());
    if (!selection.rect().contains(seed))
        return {};
    // Colours as they are stored, also below alpha; the fill refuses a fourth channel.
    QImage colors = texture.convertToFormat(QImage::Format_ARGB32);
    colors = std::move(colors).convertToFormat(QImage::Format_RGB888);
    cv::Mat pixels(
        colors.height(), colors.width(), CV_8UC3, colors.bits(), size_t(colors.bytesPerLine()));
    cv::Mat filled = cv::Mat::zeros(pixels.rows + 2, pixels.cols + 2, CV_8UC1);
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
    QImage image(size, QImage::Format_RGB32);
    FloatImage result =
        selection.size() == size ? selection : FloatImage(size.width(), size.height());
    if (image.isNull() || result.isNull())
        return {};
    image.fill(Qt::black);
    QPainter painter(&image);
    // A pen would cover the pixels beside the edge too.
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(polygon, Qt::OddEvenFill);
    painter.end();

    FloatPainter weights(result);
    weights.setMask(coverage(image));
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
