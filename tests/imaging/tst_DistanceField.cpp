#include "imaging/DistanceField.h"
#include "imaging/EdgeDistance.h"
#include "imaging/PixelLoops.h"
#include "reference/PlainDistanceField.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace {

using Coverage = std::vector<double>;

FloatImage fieldOf(const Coverage &coverage, const QSize &size)
{
    return distanceField(size, [&](int y, double *row) {
        std::copy_n(coverage.begin() + qptrdiff(y) * size.width(), size.width(), row);
    });
}

// The area that a shape covers, of a signed distance that is negative inside, by a fine grid.
Coverage coverageOf(const QSize &size, const std::function<double(double, double)> &distance)
{
    constexpr int fine = 16;
    Coverage coverage;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            int inside = 0;
            for (int i = 0; i < fine * fine; ++i) {
                const double fineX = x + (i % fine + 0.5) / fine - 0.5;
                const double fineY = y + (double(i) / fine + 0.5) / fine - 0.5;
                inside += distance(fineX, fineY) < 0.0 ? 1 : 0;
            }
            coverage.push_back(double(inside) / (fine * fine));
        }
    }
    return coverage;
}

// Discs and holes, smooth and hard, and noise of all densities.
Coverage randomCoverage(const QSize &size, std::mt19937 &random)
{
    const int kind = randomInt(0, 5, random);
    Coverage coverage(std::size_t(size.width() * size.height()), kind == 0 ? 1.0 : 0.0);
    const double sharpness = kind == 1 ? 1e9 : 1.0;
    for (int disc = 0; disc < kind; ++disc) {
        const int cx = randomInt(0, size.width(), random);
        const int cy = randomInt(0, size.height(), random);
        const double radius = randomInt(1, 90, random) / 10.0;
        const double inside = randomInt(0, 2, random) > 0 ? 1.0 : 0.0;
        for (std::size_t i = 0; i < coverage.size(); ++i) {
            const double distance =
                std::hypot(int(i) % size.width() - cx, int(i) / size.width() - cy) - radius;
            const double share = std::clamp(0.5 - distance * sharpness, 0.0, 1.0);
            coverage[i] += (inside - coverage[i]) * share;
        }
    }
    const int noise = randomInt(0, 3, random);
    const int rarity = noise == 0 ? 1000000 : 1 << (3 * noise - 2);
    for (double &share : coverage)
        share = randomInt(1, rarity, random) == 1 ? randomInt(0, 255, random) / 255.0 : share;
    return coverage;
}

} // namespace

class TestDistanceField : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalsTheMethodSaidPlainly()
    {
        std::mt19937 random(31);
        for (int round = 0; round < 400; ++round) {
            QSize size = randomSize(70, 50, random);
            if (round % 8 < 2)
                size = round % 8 == 0 ? QSize(size.width(), 1) : QSize(1, size.height());
            const Coverage coverage = randomCoverage(size, random);
            const Coverage expected = plainDistanceField(coverage, size.width(), size.height());
            const FloatImage field = fieldOf(coverage, size);
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const double distance = std::max(0.0, expected[i]);
                QVERIFY2(std::abs(field.row(0)[i] - distance) <= 1e-6 * (1.0 + distance),
                         qPrintable(QStringLiteral("round %1 cell %2").arg(round).arg(i)));
            }
        }
    }

    // The method's own error is a few hundredths of a pixel, away from the border without
    // gradients.
    void halfPlanesAtAnyAngleAndOffset()
    {
        const QSize size(60, 60);
        for (int degrees = 0; degrees < 360; degrees += 15) {
            const double angle = degrees * std::numbers::pi / 180.0;
            for (const double offset : {0.0, 0.25, 0.5, 0.83}) {
                const auto distance = [&](double x, double y) {
                    return (x - 30.0) * std::cos(angle) + (y - 30.0) * std::sin(angle) - offset;
                };
                const FloatImage field = fieldOf(coverageOf(size, distance), size);
                double sum = 0.0;
                for (int y = 22; y < 38; ++y) {
                    for (int x = 22; x < 38; ++x) {
                        const double error = field.row(y)[x] - std::max(0.0, distance(x, y));
                        QVERIFY(std::abs(error) < (degrees % 90 == 0 ? 0.04 : 0.17));
                        sum += std::abs(error);
                    }
                }
                QVERIFY(sum / (16 * 16) < 0.05);
            }
        }
    }

    void discsAndSinglePixels()
    {
        const QSize size(64, 64);
        const auto distance = [](double x, double y) {
            return std::hypot(x - 31.3, y - 30.8) - 9.4;
        };
        const FloatImage field = fieldOf(coverageOf(size, distance), size);
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                QVERIFY(std::abs(field.row(y)[x] - std::max(0.0, distance(x, y))) < 0.17);
        constexpr std::size_t cells = 4096;
        Coverage pixel(cells);
        pixel[20 * 64 + 10] = 1.0;
        const FloatImage around = fieldOf(pixel, size);
        QCOMPARE(around.row(20)[10], 0.0F);
        QCOMPARE(around.row(20)[40], 29.5F); // from its side
        QCOMPARE(around.row(50)[10], 29.5F);
        QVERIFY(std::abs(around.row(40)[30] - 19.5F * std::numbers::sqrt2_v<float>) < 1e-4F);
        QCOMPARE(fieldOf(Coverage(cells, 0.0), size), FloatImage(64, 64, float(farAway)));
        QCOMPARE(fieldOf(Coverage(cells, 1.0), size), FloatImage(64, 64));
        QVERIFY(fieldOf({}, {0, 5}).isNull());
    }

    void everyLoopGivesTheSameDistances()
    {
        std::mt19937 random(32);
        for (int count = 1; count < 40; ++count) {
            const Coverage rows = randomCoverage({count + 2, 3}, random);
            const double *above = rows.data() + 1;
            const double *middle = above + count + 2;
            std::vector<qint32> dx(std::size_t(count) + 2);
            std::vector<qint32> dy = dx;
            for (std::size_t i = 0; i < dx.size(); ++i)
                dx[i] = randomInt(-3, 3, random), dy[i] = randomInt(-40000, 40000, random) / 8000;
            Coverage expected(std::size_t(2 * count), 5.0);
            for (const PixelLoops &loops : pixelLoops()) {
                Coverage distances(expected.size(), 5.0);
                loops.ownEdges(above, middle, middle + count + 2, distances.data(), count);
                loops.edgeOffers(
                    middle, dx.data() + 1, dy.data() + 1, -1, 1, distances.data() + count, count);
                if (expected.front() == 5.0 && expected.back() == 5.0)
                    expected = distances;
                QCOMPARE(distances, expected);
                Coverage limits(rows.begin(), rows.begin() + count);
                QVERIFY(!loops.isAnyBelow(rows.data(), limits.data(), 0.001, count));
                limits[std::size_t(count / 2)] += 0.002;
                QVERIFY(loops.isAnyBelow(rows.data(), limits.data(), 0.001, count));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestDistanceField)

#include "tst_DistanceField.moc"
