#include "model/NormalMapProcessor.h"

#include "model/ImageReading.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "support/Pictures.h"
#include "support/PlainSurface.h"

#include <QCoreApplication>
#include <QTest>

namespace {

// A body and its processor, with a count of what it published.
struct Painting
{
    explicit Painting(const QSize &size, const AngleImage &surface = {})
        : body(project)
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::blue);
        body.sprite().load(
            ReadImage{.opened = true, .md5Hex = {}, .image = image, .problem = {}, .stamp = {}},
            {},
            false);
        if (!surface.isNull())
            commit(surface);
        processor = std::make_unique<NormalMapProcessor>(body);
        const auto signal = &NormalMapProcessor::normalMapChanged;
        QObject::connect(processor.get(), signal, [this] { ++published; });
    }
    void commit(const AngleImage &surface) const
    {
        body.paintedNormalMap().setAngleImage(surface, QStringLiteral("paint"));
    }
    // Once all is done.
    const AngleImage &surface() const
    {
        processor->waitForIdle();
        return processor->angleImage();
    }

    Project project;
    Body body;
    std::unique_ptr<NormalMapProcessor> processor;
    int published = 0;
};

} // namespace

class TestNormalMapProcessor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
                painting.processor->updateRect({8, 8, 5}, {step, step, 8, 8});
            if (round % 3 == 0)
                painting.commit(AngleImage(64, 64, quint32(round)));
            if (round % 5 == 0)
                QCoreApplication::processEvents();
            const int published = painting.published;
            painting.processor.reset();
            // Nobody is left who would hear of it.
            painting.commit(AngleImage(64, 64, 1));
            QCoreApplication::processEvents();
            QCOMPARE(painting.published, published);
        }
    }
};

QTEST_GUILESS_MAIN(TestNormalMapProcessor)

#include "tst_NormalMapProcessor.moc"
