#include "model/NormalMapProcessor.h"

#include "imaging/NormalEncoding.h"
#include "imaging/PoolTask.h"
#include "model/ImageReading.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QCoreApplication>
#include <QTest>

#include <deque>
#include <semaphore>

namespace {

// Keeps the pool busy, so that what is requested waits.
class BusyPool
{
public:
    BusyPool()
    {
        for (int i = 0; i < QThreadPool::globalInstance()->maxThreadCount(); ++i)
            m_tasks.emplace_back([this] {
                m_gate.acquire();
                return true;
            });
    }
    ~BusyPool() { open(); }
    BusyPool(const BusyPool &) = delete;
    BusyPool &operator=(const BusyPool &) = delete;

    void open()
    {
        m_gate.release(std::ptrdiff_t(m_tasks.size()));
        for (auto &task : m_tasks)
            task.take();
        m_tasks.clear();
    }

private:
    std::counting_semaphore<> m_gate{0};
    std::deque<PoolTask<bool>> m_tasks;
};

// A body, and a second opinion on what its normal map has to be.
struct Painting
{
    explicit Painting(const QSize &size)
        : body(project)
    {
        setSprite(size);
    }

    void setSprite(const QSize &size) const
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::blue);
        body.sprite().load(ReadImage{true, {}, image, {}}, {}, false);
    }

    void commit(const AngleImage &surface) const
    {
        body.paintedNormalMap().setAngleImage(surface, QStringLiteral("paint"));
    }

    Project project;
    Body body;
};

// Every published image with its changed area.
class Published
{
public:
    explicit Published(NormalMapProcessor &processor)
    {
        QObject::connect(&processor,
                         &NormalMapProcessor::normalMapChanged,
                         &processor,
                         [this, &processor](const QImage &normals) {
                             images.append(normals.copy());
                             areas.append(processor.changedArea());
                         });
    }

    QVector<QImage> images;
    QVector<QRect> areas;
};

QImage normalsOf(const AngleImage &surface)
{
    QImage image = flatNormalMap(surface.size());
    toNormalMap(surface, image);
    return image;
}

QImage normalsOf(const PlainSurface &plain)
{
    return normalsOf(plain.surface());
}

} // namespace

class TestNormalMapProcessor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void flatUntilTheFirstResult();
    void requestsWhileOneRuns();
    void aCommitReplacesWhatIsPending();
    void aPieceAfterACommit();
    void aNullRectangleIsThePiece();
    void theMaskStaysWithItsPieces();
    void theSpriteLendsItsSize();
    void neitherSpriteNorSurface();
    void strokes_data();
    void strokes();
    void destroyedAnyTime();
};

void TestNormalMapProcessor::flatUntilTheFirstResult()
{
    Painting painting({6, 4});
    painting.commit(AngleImage(6, 4, 256));
    BusyPool pool;
    NormalMapProcessor processor(painting.body);
    const Published published(processor);
    QCOMPARE(processor.normalMap(), flatNormalMap({6, 4}));
    QVERIFY(processor.angleImage().isNull() && processor.changedArea().isEmpty());
    pool.open();
    QCOMPARE(processor.normalMap(), flatNormalMap({6, 4}));

    QTRY_COMPARE(published.images.size(), 1);
    QCOMPARE(processor.normalMap(), normalsOf(AngleImage(6, 4, 256)));
    QCOMPARE(processor.angleImage(), AngleImage(6, 4, 256));
    QCOMPARE(processor.changedArea(), QRect(0, 0, 6, 4));
}

// One runs, the second waits, the third joins it: two results.
void TestNormalMapProcessor::requestsWhileOneRuns()
{
    Painting painting({8, 8});
    BusyPool pool;
    NormalMapProcessor processor(painting.body);
    const Published published(processor);
    processor.updateRect(AngleImage(2, 2, 7), {1, 1, 2, 2});
    processor.updateRect(AngleImage(8, 8, 9), {5, 6, 2, 1});
    QVERIFY(published.images.isEmpty());
    pool.open();
    processor.waitForIdle();

    AngleImage expected(8, 8);
    expected.row(1)[1] = expected.row(1)[2] = expected.row(2)[1] = expected.row(2)[2] = {7, 0};
    expected.row(6)[5] = expected.row(6)[6] = {9, 0};
    QCOMPARE(published.images, (QVector<QImage>{flatNormalMap({8, 8}), normalsOf(expected)}));
    QCOMPARE(published.areas, (QVector<QRect>{{0, 0, 8, 8}, {1, 1, 6, 6}}));
    QCoreApplication::processEvents();
    QCOMPARE(published.images.size(), 2);
}

void TestNormalMapProcessor::aCommitReplacesWhatIsPending()
{
    Painting painting({8, 8});
    BusyPool pool;
    NormalMapProcessor processor(painting.body);
    const Published published(processor);
    processor.updateRect(AngleImage(2, 2, 7), {1, 1, 2, 2});
    painting.commit(AngleImage(8, 8, 3));
    pool.open();
    processor.waitForIdle();
    QCOMPARE(published.images,
             (QVector<QImage>{flatNormalMap({8, 8}), normalsOf(AngleImage(8, 8, 3))}));

    painting.project.undoStack().undo();
    processor.waitForIdle();
    QCOMPARE(processor.normalMap(), flatNormalMap({8, 8}));
    QCOMPARE(processor.changedArea(), QRect(0, 0, 8, 8));
}

void TestNormalMapProcessor::aPieceAfterACommit()
{
    Painting painting({4, 1});
    NormalMapProcessor processor(painting.body);
    processor.setMask(floats({{0, 0.5F, 1, 0}}));
    const Published published(processor);
    BusyPool pool;
    processor.updateAll();
    painting.commit(AngleImage(4, 1, 100));
    processor.updateRect(AngleImage(3, 1, 200), {0, 0, 3, 1});
    pool.open();
    processor.waitForIdle();
    QCOMPARE(processor.angleImage(), angles({{100, 150, 200, 100}}));
    QCOMPARE(published.areas, (QVector<QRect>{{0, 0, 4, 1}, {0, 0, 4, 1}}));
}

void TestNormalMapProcessor::aNullRectangleIsThePiece()
{
    Painting painting({4, 2});
    NormalMapProcessor processor(painting.body);
    processor.updateRect(AngleImage(3, 1, 5), QRect());
    processor.waitForIdle();
    QCOMPARE(processor.angleImage(), angles({{5, 5, 5, 0}, {0, 0, 0, 0}}));

    const Published published(processor);
    processor.updateRect(AngleImage(4, 2, 6), QRect());
    processor.waitForIdle();
    QCOMPARE(processor.angleImage(), AngleImage(4, 2, 6));
    // Clipped away is nothing to do, other than null.
    processor.updateRect(AngleImage(4, 2, 7), {1, 1, 0, 5});
    processor.updateRect(AngleImage(), QRect());
    processor.waitForIdle();
    QCOMPARE(published.areas, (QVector<QRect>{{0, 0, 4, 2}}));
}

void TestNormalMapProcessor::theMaskStaysWithItsPieces()
{
    Painting painting({3, 1});
    NormalMapProcessor processor(painting.body);
    processor.updateRect(AngleImage(3, 1, 10), {0, 0, 3, 1});
    processor.setMask(floats({{1, 0.5F, 0}}));
    QCOMPARE(processor.angleImage(), AngleImage(3, 1, 10));
    processor.updateRect(AngleImage(3, 1, 20), {0, 0, 3, 1});
    processor.setMask({});
    QCOMPARE(processor.angleImage(), angles({{20, 10, 0}}));
    processor.updateRect(AngleImage(1, 1, 30), {2, 0, 1, 1});
    processor.waitForIdle();
    QCOMPARE(processor.angleImage(), angles({{20, 10, 30}}));
}

void TestNormalMapProcessor::theSpriteLendsItsSize()
{
    Painting painting({3, 1});
    NormalMapProcessor processor(painting.body);
    processor.waitForIdle();
    const Published published(processor);
    painting.setSprite({3, 1});
    processor.waitForIdle();
    QCOMPARE(published.images.size(), 0);
    painting.setSprite({5, 7});
    processor.waitForIdle();
    QCOMPARE(published.images, (QVector<QImage>{flatNormalMap({5, 7})}));

    painting.commit(AngleImage(5, 7, 1));
    processor.waitForIdle();
    painting.setSprite({2, 2});
    processor.waitForIdle();
    QCOMPARE(published.images.size(), 2);
    QCOMPARE(processor.angleImage(), AngleImage(5, 7, 1));
}

void TestNormalMapProcessor::neitherSpriteNorSurface()
{
    Painting painting({});
    NormalMapProcessor processor(painting.body);
    const Published published(processor);
    QVERIFY(processor.normalMap().isNull());
    processor.waitForIdle();
    processor.updateRect(AngleImage(2, 2, 1), QRect());
    processor.waitForIdle();
    QCOMPARE(published.images, (QVector<QImage>{QImage(), QImage()}));
    QVERIFY(processor.angleImage().isNull() && processor.changedArea().isEmpty());

    painting.commit(AngleImage(3, 2, 1));
    processor.waitForIdle();
    QCOMPARE(processor.normalMap().size(), QSize(3, 2));
    painting.project.undoStack().undo();
    processor.waitForIdle();
    QVERIFY(processor.normalMap().isNull() && processor.changedArea().isEmpty());
}

void TestNormalMapProcessor::strokes_data()
{
    QTest::addColumn<int>("kept");
    QTest::newRow("nobody keeps an image") << 0;
    QTest::newRow("the last is kept") << 1;
    QTest::newRow("two are kept") << 2;
    QTest::newRow("ten are kept") << 10;
}

// A view that uploads only what has changed sees what a slow computation of everything gives.
void TestNormalMapProcessor::strokes()
{
    QFETCH(int, kept);
    std::mt19937 random(unsigned(20 + kept));
    const QSize size(40, 30);
    Painting painting(size);
    painting.commit(randomAngles(40, 30, random));
    NormalMapProcessor processor(painting.body);
    PlainSurface plain;
    plain.update({painting.body.surface(), {}, {}, {}});

    QImage shown = processor.normalMap().copy();
    std::deque<std::pair<QImage, QImage>> held;
    bool allHeldAsTheyWere = true;
    connect(&processor, &NormalMapProcessor::normalMapChanged, this, [&](const QImage &normals) {
        const QRect area = processor.changedArea();
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                shown.setPixel(x, y, normals.pixel(x, y));
        held.emplace_back(normals, normals.copy());
        if (held.size() > std::size_t(kept))
            held.pop_front();
        for (const auto &[now, then] : held)
            allHeldAsTheyWere = allHeldAsTheyWere && now == then;
    });
    FloatImage mask;
    for (int step = 0; step < 400; ++step) {
        const auto what = random() % 20;
        if (what == 0) {
            mask = random() % 2 == 0 ? FloatImage() : randomMask(size, random);
            processor.setMask(mask);
        } else if (what == 1) {
            const AngleImage surface = randomAngles(40, 30, random);
            painting.commit(surface);
            plain.update({surface, {}, {}, {}});
        } else {
            auto params = randomPiece(size, mask, random);
            if (params.rects[0].size() == size)
                params.rects[0].moveTopLeft({});
            processor.updateRect(params.pieces[0], params.rects[0]);
            plain.update(params);
        }
        if (random() % 4 == 0)
            QCoreApplication::processEvents();
        if (random() % 4 != 0)
            continue;
        processor.waitForIdle();
        QCOMPARE(processor.angleImage(), plain.surface());
        QCOMPARE(processor.normalMap(), normalsOf(plain));
        QCOMPARE(shown, processor.normalMap());
        QVERIFY(allHeldAsTheyWere);
    }
}

void TestNormalMapProcessor::destroyedAnyTime()
{
    Painting painting({64, 64});
    int published = 0;
    for (int round = 0; round < 1000; ++round) {
        {
            NormalMapProcessor processor(painting.body);
            for (int step = 0; step < round % 4; ++step)
                processor.updateRect(AngleImage(8, 8, 5), {step, step, 8, 8});
            if (round % 3 == 0)
                painting.commit(AngleImage(64, 64, quint32(round)));
            if (round % 5 == 0)
                QCoreApplication::processEvents();
            connect(&processor, &NormalMapProcessor::normalMapChanged, this, [&] { ++published; });
        }
        QCoreApplication::processEvents();
        QCOMPARE(published, 0);
    }
    // Nobody is left who would hear of it.
    painting.commit(AngleImage(64, 64, 1));
    QCoreApplication::processEvents();
    QCOMPARE(published, 0);
}

QTEST_GUILESS_MAIN(TestNormalMapProcessor)

#include "tst_NormalMapProcessor.moc"
