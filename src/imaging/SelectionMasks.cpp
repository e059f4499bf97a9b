#include "imaging/SelectionMasks.h"

#include "imaging/Clipping.h"
#include "imaging/PixelBlocks.h"
#include "imaging/PixelLoops.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

namespace {

template <class Test>
bool isAny(const FloatImage &image, Test test)
{
    const float *first = image.row(0);
    return std::any_of(first, first + qptrdiff(image.width()) * image.height(), test);
}

// Each weight w becomes weight(w, that of the other one).
template <class Weight>
FloatImage mixed(FloatImage image, const FloatImage &other, Weight weight)
{
    float *first = image.row(0);
    const qptrdiff count = qptrdiff(image.width()) * image.height();
    std::transform(first, first + count, other.row(0), first, weight);
    return image;
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

// Gives each pixel that the polygon covers the weight.
void fillPolygon(FloatImage &selection, const QPolygon &polygon, float weight)
{
    // In blocks, since the painter reaches neither far columns nor far rows.
    constexpr int side = 4096;
    const QRect touched = clipped(polygon.boundingRect(), selection.rect());
    forEachBlock(touched, {side, side}, [&](const QRect &block) {
        const QImage image = paintedPolygon(polygon, block);
        for (int y = 0; y < block.height(); ++y) {
            const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            float *weights = selection.row(block.top() + y) + block.left();
            for (int x = 0; x < block.width(); ++x)
                weights[x] = (pixels[x] & RGB_MASK) != 0 ? weight : weights[x];
        }
    });
}

// Takes the pixels that hang together, in runs: whole pieces of rows.
class RunFill
{
public:
    RunFill(const QImage &colors, const QPoint &seed, int tolerance)
        : m_colors(colors)
        , m_color(pixels(seed.y())[seed.x()])
        , m_tolerance(tolerance)
        , m_open(new uchar[std::size_t(colors.width()) * std::size_t(colors.height())])
        , m_isKnown(std::size_t(colors.height()))
        , m_selection(colors.width(), colors.height())
    {
        take(seed.x(), seed.y());
        while (!m_waiting.empty()) {
            const Run run = m_waiting.back();
            m_waiting.pop_back();
            takeBeside(run, run.y - 1);
            takeBeside(run, run.y + 1);
        }
    }

    const FloatImage &selection() const { return m_selection; }

private:
    struct Run
    {
        int y;
        int begin;
        int end;
    };

    const QRgb *pixels(int y) const
    {
        return reinterpret_cast<const QRgb *>(m_colors.constScanLine(y));
    }

    // 1 where a pixel is similar and not taken yet. A row is compared when it is first reached.
    uchar *open(int y)
    {
        const int width = m_colors.width();
        uchar *row = m_open.get() + qptrdiff(y) * width;
        if (!m_isKnown[std::size_t(y)])
            fastestPixelLoops().compareColors(pixels(y), row, width, m_color, m_tolerance);
        m_isKnown[std::size_t(y)] = true;
        return row;
    }

    static int find(const uchar *row, int begin, int end, int value)
    {
        const void *found = std::memchr(row + begin, value, std::size_t(end - begin));
        return found ? int(static_cast<const uchar *>(found) - row) : end;
    }

    // The run that an open pixel is in; returns its end.
    int take(int x, int y)
    {
        uchar *row = open(y);
        int begin = x;
        while (begin > 0 && row[begin - 1] != 0)
            --begin;
        const int end = find(row, x, m_colors.width(), 0);
        std::fill(row + begin, row + end, uchar(0));
        std::fill(m_selection.row(y) + begin, m_selection.row(y) + end, 1.0F);
        m_waiting.push_back({y, begin, end});
        return end;
    }

    void takeBeside(const Run &run, int y)
    {
        if (y < 0 || y >= m_colors.height())
            return;
        const uchar *row = open(y);
        for (int x = run.begin; (x = find(row, x, run.end, 1)) < run.end;)
            x = std::min(take(x, y), run.end);
    }

    QImage m_colors;
    QRgb m_color;
    int m_tolerance;
    std::unique_ptr<uchar[]> m_open;
    std::vector<bool> m_isKnown;
    std::vector<Run> m_waiting;
    FloatImage m_selection;
};

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
    const bool isPlain =
        texture.format() == QImage::Format_ARGB32 || texture.format() == QImage::Format_RGB32;
    return isPlain ? texture : texture.convertToFormat(QImage::Format_ARGB32);
}

FloatImage colorFill(const QImage &texture, const QPoint &seed, int tolerance)
{
    if (!texture.rect().contains(seed))
        return {};
    return RunFill(fillColors(texture), seed, std::clamp(tolerance, 0, 255)).selection();
}

FloatImage combined(const FloatImage &selection, FloatImage mask, SelectionMode mode)
{
    if (mode == SelectionMode::Replace)
        return withoutEmpty(mask);
    if (mask.isNull())
        return withoutEmpty(selection);
    const bool isAdding = mode == SelectionMode::Add;
    if (selection.size() != mask.size())
        return isAdding ? withoutEmpty(mask) : FloatImage();
    const auto larger = [](float weight, float old) { return std::max(old, weight); };
    const auto left = [](float weight, float old) { return std::min(old, 1.0F - weight); };
    mask = isAdding ? mixed(std::move(mask), selection, larger)
                    : mixed(std::move(mask), selection, left);
    return withoutEmpty(mask);
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
    fillPolygon(result, polygon, subtract ? 0.0F : 1.0F);
    return withoutEmpty(result);
}

FloatImage inverted(FloatImage selection)
{
    if (!isAny(selection, [](float weight) { return weight != 1.0F; }))
        return {};
    float *first = selection.row(0);
    const qptrdiff count = qptrdiff(selection.width()) * selection.height();
    std::transform(first, first + count, first, [](float weight) { return 1.0F - weight; });
    return selection;
}
