#include "preview/GLGraphicsScene.h"

#include "base/Resources.h"
#include "imaging/LitImage.h"
#include "preview/GLGraphicsLight.h"
#include "preview/GLGraphicsSprite.h"
#include "preview/GraphicsCheck.h"
#include "support/PaintCounter.h"
#include "support/Pictures.h"

#include <QApplication>
#include <QGraphicsView>
#include <QOpenGLContext>
#include <QOpenGLWidget>
#include <QPainter>
#include <QProcess>
#include <QTest>

namespace {

QImage filled(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

// Slopes to all sides, without a border that equals its neighbour.
QImage bumps(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(40 + 53 * x % 170, 30 + 71 * y % 190, 200));
    }
    return image;
}

/// A view without frame and bars, one scene pixel a screen pixel, that shows the scene from (0, 0).
struct ShownScene
{
    ShownScene()
    {
        sprite = new GLGraphicsSprite;
        sprite->setColorImage(filled({40, 30}, QColor(200, 120, 60)));
        sprite->setNormalImage(bumps({40, 30}));
        sprite->setPos(20, 10);
        scene.addItem(sprite);
        scene.setSceneRect(0, 0, 80, 60);
        scene.light().setPos(70, 50);
        scene.light().setHeight(20);

        // Keeps what was painted until it is grabbed.
        canvas->setUpdateBehavior(QOpenGLWidget::PartialUpdate);
        view.setViewport(canvas);
        view.setViewportUpdateMode(QGraphicsView::NoViewportUpdate);
        view.setFrameStyle(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.setFixedSize(80, 60);
        view.show();
        isExposed = QTest::qWaitForWindowExposed(&view);
    }

    QImage shot(const QRect &exposed = QRect()) const
    {
        QCoreApplication::processEvents();
        const PaintCounter paints(*canvas);
        canvas->update(exposed.isNull() ? canvas->rect() : exposed);
        if (!QTest::qWaitFor([&] { return paints.count > 0; }))
            return {};
        return canvas->grabFramebuffer().convertToFormat(QImage::Format_RGB32);
    }
    // Without the light's icon, as it is lit by a plain loop.
    QImage expectedSprite() const
    {
        const SceneLight &light = scene.sceneLight();
        const QVector3D place = scene.light().position() - QVector3D(sprite->pos());
        return litImage(
            sprite->colorImage(),
            sprite->normalImage(),
            {light.ambient, light.color, double(light.brightness), Light::Kind::Position, place});
    }

    GLGraphicsScene scene;
    GLGraphicsSprite *sprite = nullptr;
    QOpenGLWidget *canvas = new QOpenGLWidget;
    QGraphicsView view{&scene};
    bool isExposed = false;
};

} // namespace

class TestGLGraphicsScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initialiseResources(); }

    void spritesStandWhereTheirItemsAre()
    {
        ShownScene shown;
        QVERIFY(shown.isExposed);
        auto *above = new GLGraphicsSprite;
        above->setColorImage(filled({10, 10}, QColor(0, 255, 0, 128)));
        above->setNormalImage(filled({10, 10}, QColor(128, 128, 255)));
        above->setPos(50, 35);
        shown.scene.addItem(above);
        shown.scene.setDisplayMode(DisplayMode::Texture);
        const QImage texture = shown.shot();
        // Over the sprite below and over the checkerboard in the default ambient light.
        QCOMPARE(texture.pixelColor(52, 37), QColor(100, 188, 30));
        QCOMPARE(texture.pixelColor(55, 42).red(), texture.pixelColor(55, 47).red() / 2);
        QCOMPARE(texture.pixelColor(20, 10), QColor(200, 120, 60));
        QVERIFY(texture.pixelColor(19, 10) != QColor(200, 120, 60));

        above->setVisible(false);
        shown.scene.setDisplayMode(DisplayMode::LitTexture);
        shown.scene.light().setPos(110, 4);
        const QRect place(20, 10, 40, 30);
        QVERIFY(difference(shown.shot().copy(place), shown.expectedSprite()) <= 1);
        // A part that is exposed alone, and a view that is scrolled.
        QVERIFY(difference(shown.shot({30, 20, 5, 5}).copy(place), shown.expectedSprite()) <= 1);
        shown.view.setSceneRect(12, 7, 200, 200);
        QVERIFY(difference(shown.shot().copy(place.translated(-12, -7)), shown.expectedSprite()) <=
                1);
        shown.view.scale(2, 2);
        shown.scene.setDisplayScaleFactor(2);
        shown.view.setSceneRect(20, 10, 200, 200);
        QVERIFY(difference(shown.shot(), shown.expectedSprite().scaled(80, 60)) <= 2);
    }

    void onlyWhatChangedIsUploaded()
    {
        ShownScene shown;
        shown.scene.setDisplayMode(DisplayMode::NormalMap);
        shown.shot();
        const QRect sprite(20, 10, 40, 30);
        QImage next = filled({40, 30}, QColor(10, 200, 90));
        shown.sprite->setNormalImage(next, {3, 4, 5, 6});
        shown.sprite->setNormalImage(next, {6, 8, 4, 4});
        QImage expected = bumps({40, 30});
        QPainter(&expected).fillRect(QRect(3, 4, 7, 8), next.pixelColor(0, 0));
        QCOMPARE(difference(shown.shot().copy(sprite), expected), 0);
        shown.sprite->setNormalImage(next);
        QCOMPARE(difference(shown.shot().copy(sprite), next), 0);
    }

    void texturesAreMadeAnewWhereTheyAreLost()
    {
        QWidget window;
        ShownScene shown;
        const QImage before = shown.shot();
        window.setFixedSize(80, 60);
        const QOpenGLContext *context = shown.canvas->context();
        shown.view.setParent(&window);
        shown.view.show();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(difference(shown.shot(), before), 0);
        QVERIFY(shown.canvas->context() != context);
        shown.scene.releaseGraphics();
        QCOMPARE(difference(shown.shot(), before), 0);
        shown.scene.removeItem(shown.sprite);
        QVERIFY(difference(shown.shot(), before) > 0);
        shown.scene.addItem(shown.sprite);
        QCOMPARE(difference(shown.shot(), before), 0);
    }

    void graphicsAreChecked()
    {
        const QByteArray noShaders = "Installed OpenGL has no shader support!\n";
        const QVector<QPair<QString, QByteArray>> answers = {
            {QString(), "\n"},
            {QStringLiteral("QT_XCB_GL_INTEGRATION=none"), noShaders},
            {QStringLiteral("MESA_GL_VERSION_OVERRIDE=1.2"), noShaders}};
        for (const auto &[variable, answer] : answers) {
            QProcess process;
            process.setEnvironment(QProcess::systemEnvironment() << variable);
            process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--check")});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), 0);
            QCOMPARE(process.readAllStandardOutput(), answer);
        }
    }
};

int main(int argc, char **argv)
{
    prepareGraphics();
    const QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(QStringLiteral("--check"))) {
        puts(qPrintable(checkGraphics()));
        return 0;
    }
    TestGLGraphicsScene test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_GLGraphicsScene.moc"
