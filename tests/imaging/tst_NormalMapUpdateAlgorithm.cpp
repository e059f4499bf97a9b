#include "imaging/NormalMapUpdateAlgorithm.h"

#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QTest>

#include <deque>
#include <set>
#include <sys/resource.h>

using Result = QPair<AngleImage, QImage>;

namespace {

NormalMapUpdateParams full(const AngleImage &image)
{
    return {image, {}, {}, {}};
}

NormalMapUpdateParams painted(const QRect &rect)
{
    return {{}, {AngleImage(rect.width(), rect.height(), 5)}, {rect}, {}};
}

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
    void coveredPiecesAreDropped()
    {
        const QRect incoming(10, 10, 20, 20);
        const auto merged = [&](const QVector<QRect> &pending) {
            const QVector<AngleImage> pieces(pending.size(), AngleImage(2, 2));
            const NormalMapUpdateParams waiting{{}, pieces, pending, {}};
            return NormalMapUpdateAlgorithm().merge(waiting, painted(incoming)).rects;
        };
        using Rects = QVector<QRect>;
        const Rects covered{incoming, {10, 10, 20, 5}, {25, 25, 5, 5}};
        QCOMPARE(merged(covered), Rects{incoming});
        const Rects beyond{{9, 10, 20, 20}, {10, 10, 21, 20}, {10, 9, 1, 1}, {30, 29, 1, 1}};
        QCOMPARE(merged(beyond + covered), beyond + Rects{incoming});
    }

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

    void nothingToPaintInto()
    {
        NormalMapUpdateAlgorithm algorithm;
        const auto gives = [&](const NormalMapUpdateParams &params) {
            const Result result = algorithm.compute(params);
            return !result.first.isNull() || !result.second.isNull();
        };
        auto piece = painted({0, 0, 2, 2});
        piece.mask = FloatImage(2, 2, 1.0F);
        QVERIFY(!gives(piece) && !gives(full({})) && !gives(full(AngleImage(0, 5))));
        QVERIFY(gives(full(AngleImage(3, 3))) && !gives(full({})) && !gives(piece));

        // No cell is touched by what lies beside, and rectangles without a piece are passed over.
        const Result before = algorithm.compute(full(AngleImage(3, 3, 1)));
        for (const QRect &rect :
             {QRect(3, 0, 2, 2), QRect(-2, 0, 2, 2), QRect(1, 1, 0, 2), QRect()})
            QCOMPARE(algorithm.compute({{}, {AngleImage(2, 2, 5)}, {rect}, {}}), before);
        QCOMPARE(algorithm.compute({{}, {}, {{0, 0, 2, 2}}, {}}), before);
    }

    // Neither does a commit, after which the document holds the cells of a published surface.
    void aStepCopiesNoImage()
    {
        const auto touchedPages = [] {
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            return usage.ru_minflt;
        };
        // 4096 pages of memory in each image.
        NormalMapUpdateParams document = full(AngleImage(4096, 1024, 3));
        NormalMapUpdateAlgorithm algorithm;
        // A surface that nobody paints on has no cells of its own.
        Result result = algorithm.compute(document);
        QVERIFY(result.first.sharesCellsWith(document.image));
        document.expectsPieces = true;
        result = algorithm.compute(document);
        std::set<const void *> images;
        for (int step = 0; step < 20; ++step) {
            const QRect dab(4 * step, 500 + step, 16, 16);
            const bool isCommit = step % 7 == 6;
            if (isCommit)
                document.image = result.first;
            const long pages = touchedPages();
            result = algorithm.compute(isCommit ? document : painted(dab));
            QVERIFY2(touchedPages() - pages < 1000, qPrintable(QString::number(step)));
            QCOMPARE(algorithm.changedArea(), isCommit ? QRect() : dab);
            QVERIFY(!result.first.sharesCellsWith(document.image));
            images.insert({std::as_const(result.first).row(0), result.second.constBits()});
        }
        QCOMPARE(images.size(), std::size_t(5));
    }
};

QTEST_GUILESS_MAIN(TestNormalMapUpdateAlgorithm)

#include "tst_NormalMapUpdateAlgorithm.moc"
