#include "support/Pictures.h"

#include <QStringList>
#include <QTest>

#include <algorithm>
#include <bit>

AngleImage angles(std::initializer_list<std::initializer_list<Slopes>> rows)
{
    AngleImage image(int(rows.begin()->size()), int(rows.size()));
    for (int y = 0; y < image.height(); ++y) {
        const auto &row = rows.begin()[y];
        std::transform(row.begin(), row.end(), image.row(y), [](const Slopes &slopes) {
            return AngleImage::Pixel{slopes.sx, slopes.sy};
        });
    }
    return image;
}

FloatImage floats(std::initializer_list<std::initializer_list<float>> rows)
{
    FloatImage image(int(rows.begin()->size()), int(rows.size()));
    for (int y = 0; y < image.height(); ++y)
        std::copy(rows.begin()[y].begin(), rows.begin()[y].end(), image.row(y));
    return image;
}

AngleImage randomAngles(int width, int height, std::mt19937 &random)
{
    AngleImage image(width, height);
    std::generate_n(image.row(0), width * height, [&] {
        return std::bit_cast<AngleImage::Pixel>(quint32(random()));
    });
    return image;
}

FloatImage randomFloats(int width, int height, float first, float last, std::mt19937 &random)
{
    FloatImage image(width, height);
    std::uniform_real_distribution<float> between(first, last);
    std::generate_n(image.row(0), width * height, [&] { return between(random); });
    return image;
}

QRect randomRect(const QSize &size, std::mt19937 &random)
{
    return {randomInt(-size.width(), 2 * size.width(), random),
            randomInt(-size.height(), 2 * size.height(), random),
            randomInt(0, 2 * size.width(), random),
            randomInt(0, 2 * size.height(), random)};
}

int randomInt(int first, int last, std::mt19937 &random)
{
    return std::uniform_int_distribution<int>(first, last)(random);
}

char *toString(const AngleImage &image)
{
    QStringList rows;
    for (int y = 0; y < std::min(image.height(), 8); ++y) {
        QStringList cells;
        for (int x = 0; x < std::min(image.width(), 8); ++x) {
            const auto &cell = image.row(y)[x];
            cells << QStringLiteral("%1,%2").arg(cell.sx).arg(cell.sy);
        }
        rows << cells.join(QLatin1Char(' '));
    }
    const QString size = QStringLiteral("%1x%2: ").arg(image.width()).arg(image.height());
    return qstrdup(qPrintable(size + rows.join(QStringLiteral(" | "))));
}
