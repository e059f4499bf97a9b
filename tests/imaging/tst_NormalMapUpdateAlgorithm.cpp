#include "imaging/NormalMapUpdateAlgorithm.h"

#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QTest>

#include <deque>

using Result = QPair<AngleImage, QImage>;

namespace {

// What a document sends whole: something new, what is shown (a commit), what it held before (pieces
// are dropped), or that with few cells changed (an undo).
void changeDocument(AngleImage &stored,
                    const AngleImage &shown,
                    const QSize &size,
                    std::mt19937 &random)
{
    const auto what = random() % 5;
    if (what == 0 || shown.size() != size || stored.size() != size)
        stored = randomAngles(size, random);
    else if (what == 1 || what == 2)
        stored = shown;
    for (int cells = what == 3 ? randomInt(0, 2, random) : 0; cells > 0; --cells)
        stored.row(randomInt(0, size.height() - 1, random))[random() % size.width()] = {5, 7};
}

// Nothing but the area differs.
bool differWithin(const QRect &area, const QImage &a, const QImage &b)
{
    for (int i = 0; i < a.width() * a.height(); ++i) {
        const QPoint at(i % a.width(), i / a.width());
        if (!area.contains(at) && (!b.valid(at) || a.pixel(at) != b.pixel(at)))
            return false;
    }
    return a.size() == b.size() || area == a.rect();
}

} // namespace

class TestNormalMapUpdateAlgorithm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Merged requests against the same ones in their turn. Somebody keeps results past their time.
    void sequences()
    {
        std::mt19937 random(11);
        for (int sequence = 0; sequence < 240; ++sequence) {
            NormalMapUpdateAlgorithm algorithm;
            PlainSurface plain;
            std::deque<std::pair<Result, Result>> held;
            QSize size = randomSize(20, 12, random);
            FloatImage mask;
            Result result;
            AngleImage stored;
            NormalMapUpdateParams pending;
            bool isPending = false;
            for (int step = 0; step < 50; ++step) {
                const bool staysPending = random() % 2 == 0;
                auto params = randomPiece(size, mask, random);
                if (step == 0 || random() % 6 == 0) {
                    size = random() % 4 != 0 ? size : randomSize(20, 12, random);
                    changeDocument(stored, result.first, size, random);
                    params = {stored, {}, {}, mask};
                    params.expectsPieces = random() % 3 != 0;
                } else if (params.rects[0].size() == size && (isPending || staysPending)) {
                    // It lies at the origin wherever its rectangle is: that covers nothing else.
                    params.rects[0].moveTopLeft({});
                }
                plain.update(params);
                pending = isPending ? algorithm.merge(pending, params) : params;
                isPending = staysPending;
                if (isPending)
                    continue;
                const Result former = std::exchange(result, algorithm.compute(pending));
                QCOMPARE(result.first, plain.surface());
                QCOMPARE(result.second, plain.normals());
                QVERIFY(differWithin(algorithm.changedArea(), result.second, former.second));
                for (const auto &[now, then] : held)
                    QCOMPARE(now, then);
                held.emplace_back(result, Result(plain.surface(), plain.normals()));
                if (held.size() > std::size_t(sequence % 6))
                    held.pop_front();
                mask = random() % 2 == 0 ? FloatImage() : randomMask(size, random);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestNormalMapUpdateAlgorithm)

#include "tst_NormalMapUpdateAlgorithm.moc"
