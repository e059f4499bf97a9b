#include "imaging/DistanceField.h"
#include "reference/PlainDistanceField.h"
#include "support/Pictures.h"

#include <QTest>

#include <algorithm>
#include <cmath>

namespace {

using Coverage = std::vector<double>;

FloatImage fieldOf(const Coverage &coverage, const QSize &size)
{
    return distanceField(size, [&](int y, double *row) {
        std::copy_n(coverage.begin() + qptrdiff(y) * size.width(), size.width(), row);
    });
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
};

QTEST_GUILESS_MAIN(TestDistanceField)

#include "tst_DistanceField.moc"
