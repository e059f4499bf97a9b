#include "imaging/NormalMapUpdateAlgorithm.h"

#include "imaging/NormalEncoding.h"
#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QTest>

#include <algorithm>
#include <deque>
#include <set>
#include <sys/resource.h>

using Result = QPair<AngleImage, QImage>;

namespace {

NormalMapUpdateParams full(const AngleImage &image)
{
    return {image, {}, {}, {}};
}

NormalMapUpdateParams
painted(const AngleImage &piece, const QRect &rect, const FloatImage &mask = {})
{
    return {{}, {piece}, {rect}, mask};
}

long touchedPages()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

AngleImage unshared(const AngleImage &image)
{
    AngleImage copy = image;
    if (!copy.isNull())
        copy.row(0);
    return copy;
}

// Somebody who holds the last results past their time, and knows what they looked like.
class Keeper
{
public:
    explicit Keeper(int count)
        : m_count(std::size_t(count))
    {
    }

    void add(const Result &result)
    {
        m_held.push_back({result, {unshared(result.first), result.second.copy()}});
        if (m_held.size() > m_count)
            m_held.pop_front();
    }

    bool findsAllAsItWas() const
    {
        return std::all_of(
            m_held.begin(), m_held.end(), [](const auto &held) { return held.now == held.then; });
    }

private:
    struct Held
    {
        Result now;
        Result then;
    };

    std::size_t m_count;
    std::deque<Held> m_held;
};

} // namespace

class TestNormalMapUpdateAlgorithm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void merging_data();
    void merging();
    void aWholeSurfaceSupersedes();
    void sequences_data();
    void sequences();
    void mergedOrOneByOne();
    void aSoftMaskDoesNotConverge();
    void nothingToPaintInto();
    void aStepCopiesNoImage();
};

void TestNormalMapUpdateAlgorithm::merging_data()
{
    QTest::addColumn<QVector<QRect>>("pending");
    QTest::addColumn<QRect>("incoming");
    QTest::addColumn<QVector<int>>("kept");

    const QRect rect(10, 10, 20, 20);
    QTest::newRow("nothing painted yet") << QVector<QRect>{} << rect << QVector<int>{};
    QTest::newRow("the same again") << QVector<QRect>{rect} << rect << QVector<int>{};
    QTest::newRow("covered, edges touching")
        << QVector<QRect>{{10, 10, 20, 5}, {25, 25, 5, 5}} << rect << QVector<int>{};
    QTest::newRow("one beyond an edge")
        << QVector<QRect>{{9, 10, 20, 20}, {10, 10, 21, 20}, {10, 9, 1, 1}, {30, 29, 1, 1}} << rect
        << QVector<int>{0, 1, 2, 3};
    QTest::newRow("covers the incoming")
        << QVector<QRect>{{0, 0, 64, 64}} << rect << QVector<int>{0};
    QTest::newRow("some of many") << QVector<QRect>{{0, 0, 5, 5},
                                                    {12, 12, 2, 2},
                                                    {40, 0, 5, 5},
                                                    {10, 10, 1, 1}}
                                  << rect << QVector<int>{0, 2};
}

void TestNormalMapUpdateAlgorithm::merging()
{
    QFETCH(QVector<QRect>, pending);
    QFETCH(QRect, incoming);
    QFETCH(QVector<int>, kept);
    const FloatImage mask(64, 64, 0.5F);
    const AngleImage piece(20, 20, 99);
    for (const AngleImage &image : {AngleImage(), AngleImage(64, 64, 7)}) {
        NormalMapUpdateParams waiting{image, {}, pending, mask};
        for (int i = 0; i < pending.size(); ++i)
            waiting.pieces.append(AngleImage(pending[i].width(), pending[i].height(), quint32(i)));
        const auto merged = NormalMapUpdateAlgorithm().merge(waiting, painted(piece, incoming));

        QVector<QRect> rects;
        QVector<AngleImage> pieces;
        for (int i : kept) {
            rects.append(pending[i]);
            pieces.append(waiting.pieces[i]);
        }
        QCOMPARE(merged.rects, rects << incoming);
        QCOMPARE(merged.pieces, pieces << piece);
        QCOMPARE(merged.image, image);
        QVERIFY(merged.mask == mask);
    }
}

void TestNormalMapUpdateAlgorithm::aWholeSurfaceSupersedes()
{
    const NormalMapUpdateParams waiting{
        AngleImage(4, 4, 1), {AngleImage(2, 2, 2)}, {{0, 0, 2, 2}}, FloatImage(4, 4, 1)};
    for (const AngleImage &image : {AngleImage(5, 5, 3), AngleImage()}) {
        const auto merged = NormalMapUpdateAlgorithm().merge(waiting, full(image));
        QCOMPARE(merged.image, image);
        QVERIFY(merged.isFull() && merged.pieces.isEmpty() && merged.mask.isNull());
    }
}

void TestNormalMapUpdateAlgorithm::sequences_data()
{
    QTest::addColumn<int>("kept");
    QTest::newRow("nobody keeps a result") << 0;
    QTest::newRow("the last is kept") << 1;
    QTest::newRow("two are kept") << 2;
    QTest::newRow("many are kept") << 7;
}

void TestNormalMapUpdateAlgorithm::sequences()
{
    QFETCH(int, kept);
    std::mt19937 random(unsigned(11 + kept));
    for (int sequence = 0; sequence < 60; ++sequence) {
        NormalMapUpdateAlgorithm algorithm;
        PlainSurface plain;
        Keeper keeper(kept);
        QSize size(randomInt(1, 20, random), randomInt(1, 12, random));
        for (int step = 0; step < 25; ++step) {
            const FloatImage mask = random() % 2 == 0 ? FloatImage() : randomMask(size, random);
            NormalMapUpdateParams params;
            if (step == 0 || random() % 8 == 0) {
                if (random() % 3 == 0)
                    size = {randomInt(1, 20, random), randomInt(1, 12, random)};
                params = full(randomAngles(size.width(), size.height(), random));
                params.mask = mask.size() == size ? mask : FloatImage();
            } else {
                params = randomPiece(size, mask, random);
            }
            for (int more = randomInt(0, 2, random); more > 0; --more)
                params = algorithm.merge(params, randomPiece(size, {}, random));

            const Result result = algorithm.compute(params);
            plain.update(params);
            QCOMPARE(result.first, plain.surface());
            QCOMPARE(result.second, plain.normals());
            QVERIFY(keeper.findsAllAsItWas());
            keeper.add(result);
        }
    }
}

void TestNormalMapUpdateAlgorithm::mergedOrOneByOne()
{
    std::mt19937 random(6);
    for (int round = 0; round < 300; ++round) {
        const QSize size(randomInt(1, 20, random), randomInt(1, 12, random));
        const FloatImage mask = randomMask(size, random);
        NormalMapUpdateParams merged = full(randomAngles(size.width(), size.height(), random));
        merged.mask = mask;
        PlainSurface plain;
        plain.update(merged);
        NormalMapUpdateAlgorithm algorithm;
        for (int step = 0; step < 6; ++step) {
            auto params = randomPiece(size, mask, random);
            // A whole piece lies at the origin wherever its rectangle is: that covers nothing else.
            if (params.rects[0].size() == size)
                params.rects[0].moveTopLeft({});
            merged = algorithm.merge(merged, params);
            plain.update(params);
        }
        const Result result = algorithm.compute(merged);
        QCOMPARE(result.first, plain.surface());
        QCOMPARE(result.second, plain.normals());
    }
}

void TestNormalMapUpdateAlgorithm::aSoftMaskDoesNotConverge()
{
    const FloatImage mask(8, 4, 0.25F);
    const AngleImage stored(8, 4, 0);
    NormalMapUpdateAlgorithm algorithm;
    algorithm.compute(full(stored));
    Result result;
    // A stroke announces growing rectangles, each with all that it has painted there.
    for (int step = 0; step < 100; ++step) {
        const QRect rect(0, 0, 1 + step % 8, 4);
        result = algorithm.compute(painted(AngleImage(rect.width(), 4, 400), rect, mask));
    }
    result = algorithm.compute(painted(AngleImage(8, 4, 400), {0, 0, 8, 4}, mask));
    QCOMPARE(result.first, AngleImage(8, 4, 100));

    // After it is committed, the next one starts from there.
    algorithm.compute(full(result.first));
    result = algorithm.compute(painted(AngleImage(2, 2, 500), {1, 1, 2, 2}, mask));
    QCOMPARE(int(std::as_const(result.first).row(1)[1].sx), 200);
    QCOMPARE(int(std::as_const(result.first).row(0)[0].sx), 100);
}

void TestNormalMapUpdateAlgorithm::nothingToPaintInto()
{
    const auto isNothing = [](const Result &result) {
        return result.first.isNull() && result.second.isNull();
    };
    NormalMapUpdateAlgorithm algorithm;
    const auto piece = painted(AngleImage(2, 2, 5), {0, 0, 2, 2}, FloatImage(2, 2, 1.0F));
    QVERIFY(isNothing(algorithm.compute(piece)));
    QVERIFY(isNothing(algorithm.compute(full({}))));
    QVERIFY(isNothing(algorithm.compute(full(AngleImage(0, 5)))));
    QVERIFY(!isNothing(algorithm.compute(full(AngleImage(3, 3)))));
    QVERIFY(isNothing(algorithm.compute(full({}))));
    QVERIFY(isNothing(algorithm.compute(piece)));

    // No cell is touched by what lies beside, and rectangles without a piece are passed over.
    const Result before = algorithm.compute(full(AngleImage(3, 3, 1)));
    for (const QRect &rect : {QRect(3, 0, 2, 2), QRect(-2, 0, 2, 2), QRect(1, 1, 0, 2), QRect()})
        QCOMPARE(algorithm.compute(painted(AngleImage(2, 2, 5), rect)), before);
    QCOMPARE(algorithm.compute({{}, {}, {{0, 0, 2, 2}}, {}}), before);
}

void TestNormalMapUpdateAlgorithm::aStepCopiesNoImage()
{
    // 4096 pages of memory in each image.
    const AngleImage stored(4096, 1024, 3);
    NormalMapUpdateAlgorithm algorithm;
    Result result = algorithm.compute(full(stored));
    QVERIFY(!result.first.sharesCellsWith(stored));
    std::set<const void *> surfaces;
    std::set<const void *> normals;
    for (int step = 0; step < 20; ++step) {
        const QRect rect(4 * step, 500 + step, 16, 16);
        const auto params = painted(AngleImage(16, 16, 9), rect);
        const long pages = touchedPages();
        result = algorithm.compute(params);
        QVERIFY2(touchedPages() - pages < 1000, qPrintable(QString::number(step)));
        surfaces.insert(std::as_const(result.first).row(0));
        normals.insert(result.second.constBits());
        QVERIFY(!result.first.sharesCellsWith(stored));
    }
    QVERIFY(surfaces.size() == 2 && normals.size() == 2);
}

QTEST_GUILESS_MAIN(TestNormalMapUpdateAlgorithm)

#include "tst_NormalMapUpdateAlgorithm.moc"
