#include "model/NormalMapProcessor.h"

#include "imaging/NormalEncoding.h"
#include "model/ImageReading.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QCoreApplication>
#include <QTest>

namespace {

QImage normalsOf(const AngleImage &surface)
{
    QImage image = flatNormalMap(surface.size());
    toNormalMap(surface, image);
    return image;
}

// A body and its processor, with every published image and changed area.
struct Painting
{
    explicit Painting(const QSize &size, const AngleImage &surface = {})
        : body(project)
    {
        setSprite(size);
        if (!surface.isNull())
            commit(surface);
        processor = std::make_unique<NormalMapProcessor>(body);
        const auto signal = &NormalMapProcessor::normalMapChanged;
        QObject::connect(processor.get(), signal, [this](const QImage &normals) {
            images.append(normals.copy());
            areas.append(processor->changedArea());
        });
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
    void paint(int fill, const QRect &rect, const QRect &announced) const
    {
        processor->updateRect({rect.width(), rect.height(), quint32(fill)}, announced);
    }
    void paint(int fill, const QRect &rect) const { paint(fill, rect, rect); }
    // Once all is done.
    const AngleImage &surface() const
    {
        processor->waitForIdle();
        return processor->angleImage();
    }

    Project project;
    Body body;
    std::unique_ptr<NormalMapProcessor> processor;
    QVector<QImage> images;
    QVector<QRect> areas;
};

} // namespace

class TestNormalMapProcessor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The first update runs, the second one waits and all others join it: two results.
    void requestsWhileOneRuns()
    {
        Painting painting({4, 1}, AngleImage(4, 1, 256));
        const NormalMapProcessor &processor = *painting.processor;
        painting.paint(7, {1, 0, 2, 1});
        painting.commit(AngleImage(4, 1, 3));
        painting.paint(8, {0, 0, 4, 1}, {2, 0, 1, 1});
        painting.paint(9, {3, 0, 1, 1});
        QCOMPARE(processor.normalMap(), flatNormalMap({4, 1}));
        QVERIFY(processor.angleImage().isNull() && processor.changedArea().isEmpty());
        QTRY_COMPARE(painting.areas, (QVector<QRect>{{0, 0, 4, 1}, {0, 0, 4, 1}}));
        const AngleImage expected = angles({{3, 3, 8, 9}});
        QCOMPARE(processor.angleImage(), expected);
        const QVector<QImage> images{normalsOf(AngleImage(4, 1, 256)), normalsOf(expected)};
        QCOMPARE(painting.images, images);
        QCOMPARE(processor.normalMap(), images.last());

        painting.project.undoStack().undo();
        painting.surface();
        painting.paint(7, {1, 0, 1, 1});
        painting.paint(7, {2, 0, 2, 1});
        painting.paint(7, {2, 0, 1, 1});
        QCOMPARE(painting.surface(), angles({{256, 7, 7, 7}}));
        QCOMPARE(painting.areas.mid(3), (QVector<QRect>{{1, 0, 1, 1}, {2, 0, 2, 1}}));
    }

    void aNullRectangleIsThePiece()
    {
        const Painting painting({4, 2});
        painting.paint(5, {0, 0, 3, 1}, {});
        QCOMPARE(painting.surface(), angles({{5, 5, 5, 0}, {0, 0, 0, 0}}));
        // Clipped away is nothing to do, other than null.
        painting.paint(7, {0, 0, 4, 2}, {1, 1, 0, 5});
        painting.processor->updateRect({}, {});
        painting.paint(6, {0, 0, 4, 2}, {});
        QCOMPARE(painting.surface(), AngleImage(4, 2, 6));
        QCOMPARE(painting.areas, (QVector<QRect>{{0, 0, 4, 2}, {0, 0, 3, 1}, {0, 0, 4, 2}}));
    }

    void theSpriteLendsItsSize()
    {
        const Painting painting({3, 1});
        painting.setSprite({3, 1});
        QCOMPARE(painting.surface().size(), QSize(3, 1));
        painting.setSprite({5, 7});
        QCOMPARE(painting.surface().size(), QSize(5, 7));
        painting.commit(AngleImage(5, 7, 1));
        painting.setSprite({2, 2});
        QCOMPARE(painting.surface(), AngleImage(5, 7, 1));
        QCOMPARE(painting.areas, (QVector<QRect>{{0, 0, 3, 1}, {0, 0, 5, 7}, {0, 0, 5, 7}}));
    }

    void neitherSpriteNorSurface()
    {
        Painting painting({});
        QVERIFY(painting.processor->normalMap().isNull());
        painting.paint(1, {0, 0, 2, 2});
        QVERIFY(painting.surface().isNull());
        painting.commit(AngleImage(3, 2, 1));
        QCOMPARE(painting.surface(), AngleImage(3, 2, 1));
        painting.project.undoStack().undo();
        QVERIFY(painting.surface().isNull() && painting.processor->normalMap().isNull());
        QCOMPARE(painting.areas.last(), QRect());
    }

    // A view that uploads only what has changed sees what a slow computation of everything gives.
    void strokes()
    {
        std::mt19937 random(20);
        const QSize size(40, 30);
        Painting painting(size, randomAngles(size, random));
        NormalMapProcessor &processor = *painting.processor;
        GUndoStack &undoStack = painting.project.undoStack();
        PlainSurface plain;
        plain.update({painting.body.surface(), {}, {}, {}});
        QImage shown(size, QImage::Format_RGB32);
        connect(&processor, &NormalMapProcessor::normalMapChanged, this, [&](const QImage &image) {
            const QRect area = processor.changedArea();
            for (int y = area.top(); y <= area.bottom(); ++y)
                for (int x = area.left(); x <= area.right(); ++x)
                    shown.setPixel(x, y, image.pixel(x, y));
        });
        FloatImage mask;
        for (int step = 0; step < 800; ++step) {
            const auto what = random() % 24;
            auto params = randomPiece(size, mask, random);
            if (what == 0) {
                mask = random() % 2 == 0 ? FloatImage() : randomMask(size, random);
                processor.setMask(mask);
            } else if (what < 8) {
                // Something new, what is shown, a step back, dropped pieces, another body's turn.
                if (what < 4)
                    painting.commit(what == 1 ? randomAngles(size, random) : painting.surface());
                else if (what == 4 && undoStack.index() > 1)
                    undoStack.undo();
                else if (what == 5)
                    processor.setExpectsPieces(random() % 4 != 0);
                processor.updateAll();
                plain.update({painting.body.surface(), {}, {}, {}});
            } else {
                if (params.rects[0].size() == size)
                    params.rects[0].moveTopLeft({});
                processor.updateRect(params.pieces[0], params.rects[0]);
                plain.update(params);
            }
            if (random() % 4 == 0)
                QCoreApplication::processEvents();
            if (random() % 4 == 0) {
                QCOMPARE(painting.surface(), plain.surface());
                QCOMPARE(shown, plain.normals());
            }
        }
    }

    void destroyedAnyTime()
    {
        for (int round = 0; round < 1000; ++round) {
            Painting painting({64, 64});
            for (int step = 0; step < round % 4; ++step)
                painting.paint(5, {step, step, 8, 8});
            if (round % 3 == 0)
                painting.commit(AngleImage(64, 64, quint32(round)));
            if (round % 5 == 0)
                QCoreApplication::processEvents();
            const int published = painting.areas.size();
            painting.processor.reset();
            // Nobody is left who would hear of it.
            painting.commit(AngleImage(64, 64, 1));
            QCoreApplication::processEvents();
            QCOMPARE(painting.areas.size(), published);
        }
    }
};

QTEST_GUILESS_MAIN(TestNormalMapProcessor)

#include "tst_NormalMapProcessor.moc"
