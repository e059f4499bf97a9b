#include "imaging/LitImage.h"
#include "preview/GLGraphicsSprite.h"
#include "preview/LitSprite.h"
#include "preview/SceneRenderer.h"
#include "support/Pictures.h"
#include "support/ShadedPicture.h"
#include "support/WindowTest.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <cmath>

namespace {

// Transparent, translucent and opaque pixels of any colour.
QImage randomColors(const QSize &size, std::mt19937 &random)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int alpha = qBound(0, randomInt(-200, 455, random), 255);
            image.setPixel(x, y, (random() & 0xFFFFFF) | uint(alpha) << 24U);
        }
    }
    return image;
}

QImage randomSelection(const QSize &size, std::mt19937 &random)
{
    QImage image(size, QImage::Format_Alpha8);
    for (int y = 0; y < size.height(); ++y)
        std::generate_n(image.scanLine(y), size.width(), [&] { return random() % 3 ? 255 : 0; });
    return image;
}

// How far the drawn components are from the expected ones, at the most.
float difference(const QImage &drawn, const ShadedPicture &picture)
{
    float most = 0.0F;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            // The buffer's bytes, which are no QColor since they are premultiplied.
            const uchar *bytes = drawn.constScanLine(y) + qptrdiff(4) * x;
            const QVector4D expected = picture.pixel(x, y);
            for (int i = 0; i < 4; ++i)
                most = std::max(most,
                                std::abs(qBound(0.0F, expected[i], 1.0F) * 255 - float(bytes[i])));
        }
    }
    return most;
}

/// An OpenGL context without a window.
class Canvas
{
public:
    Canvas()
    {
        m_surface.create();
        if (!m_context.create() || !m_context.makeCurrent(&m_surface))
            qFatal("There is no OpenGL");
    }

    QImage draw(ShadedPicture &picture)
    {
        const QSize size = (QSizeF(picture.colors.size()) * picture.zoom).toSize();
        picture.frame.projection.setToIdentity();
        picture.frame.projection.ortho({QPointF(), QSizeF(size) / picture.zoom});
        picture.frame.resolution = size;
        picture.frame.displayScaleFactor = float(picture.zoom) / picture.frame.pixelRatio;
        QOpenGLFramebufferObject buffer(size);
        buffer.bind();
        QOpenGLFunctions &functions = *m_context.functions();
        functions.glViewport(0, 0, size.width(), size.height());
        functions.glClearColor(0, 0, 0, 0);
        functions.glClear(GL_COLOR_BUFFER_BIT);
        GLGraphicsSprite sprite;
        sprite.setColorImage(picture.colors);
        sprite.setNormalImage(picture.normals);
        sprite.setSelectionImage(picture.selection);
        SceneRenderer renderer(m_context);
        renderer.setFrame(picture.frame);
        renderer.setLight(picture.light, picture.place, picture.place);
        renderer.drawSprite(sprite, picture.isDirectional);
        QImage image(size, QImage::Format_RGBA8888);
        functions.glReadPixels(
            0, 0, size.width(), size.height(), GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
        return image.mirrored();
    }

private:
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
};

ShadedPicture randomPicture(const QSize &size, std::mt19937 &random)
{
    ShadedPicture picture;
    picture.colors = randomColors(size, random);
    picture.normals = randomColors(size, random).convertToFormat(QImage::Format_RGB32);
    picture.light.color = QColor(255, 200, 90, 200);
    picture.light.ambient = QColor(40, 60, 90, 220);
    picture.light.brightness = 150.0F;
    picture.place = {7.0F, 4.0F, 9.0F};
    return picture;
}

using Change = std::function<void(ShadedPicture &)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestShaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formulas_data()
    {
        QTest::addColumn<Change>("change");
        const auto row = [](const QByteArray &name, const Change &change) {
            QTest::newRow(name) << change;
        };
        for (int mode = 1; mode <= 4; ++mode) {
            for (const bool isDirectional : {false, true}) {
                const QByteArray name =
                    (isDirectional ? "directional " : "spot ") + QByteArray::number(mode);
                const auto change = [mode, isDirectional](ShadedPicture &picture) {
                    picture.isDirectional = isDirectional;
                    picture.frame.displayMode = DisplayMode(mode);
                };
                row(name, change);
                row(name + " with a selection, zoomed", [change](ShadedPicture &picture) {
                    change(picture);
                    std::mt19937 random(6);
                    picture.selection = randomSelection(picture.colors.size(), random);
                    picture.zoom = 4;
                });
            }
        }
        row("no brightness", [](ShadedPicture &picture) { picture.light.brightness = 0.0F; });
        row("lamp far at the side", [](ShadedPicture &picture) { picture.place = {-90, 300, 20}; });
        row("y pointing down",
            [](ShadedPicture &picture) { picture.frame.isYAxisInverted = true; });
        for (const float factor : {0.5F, 1.0F}) {
            row("overlay " + QByteArray::number(double(factor)), [factor](ShadedPicture &picture) {
                picture.frame.displayMode = DisplayMode::NormalMap;
                picture.frame.textureOverlayFactor = factor;
            });
        }
    }
    void formulas()
    {
        QFETCH(Change, change);
        std::mt19937 random(5);
        ShadedPicture picture = randomPicture({21, 13}, random);
        change(picture);
        if (picture.isDirectional)
            picture.place.normalize();
        const QImage drawn = m_canvas.draw(picture);
        // Where the ants are depends on the time.
        float least = difference(drawn, picture);
        for (picture.antStep = 1; picture.antStep < 8; ++picture.antStep)
            least = std::min(least, difference(drawn, picture));
        QVERIFY2(least <= 1.01F, qPrintable(QString::number(double(least))));
    }

    // One of a single piece, and some that are wider or higher than a piece or a texture.
    void litSpriteIsThatOfTheProcessor()
    {
        for (const QSize size : {QSize(31, 17), QSize(2300, 3), QSize(2, 4200), QSize(20000, 1)}) {
            std::mt19937 random(7);
            const ShadedPicture picture = randomPicture(size, random);
            GLGraphicsSprite sprite;
            sprite.setColorImage(picture.colors);
            sprite.setNormalImage(picture.normals);
            sprite.setSelectionImage(randomSelection(size, random));
            sprite.setPos(-300, 40);
            const QVector3D place = picture.place + QVector3D(sprite.pos());
            const QImage drawn = litSprite(sprite, picture.light, place);
            QCOMPARE(drawn.format(), QImage::Format_ARGB32);
            const QImage actual = drawn.convertToFormat(QImage::Format_ARGB32_Premultiplied);
            const Light light{picture.light.ambient,
                              picture.light.color,
                              double(picture.light.brightness),
                              Light::Kind::Position,
                              picture.place};
            const QImage expected = litImage(picture.colors, picture.normals, light);
            const int most = difference(actual, expected);
            QVERIFY2(most <= 2, qPrintable(QString::number(most)));
        }
    }

private:
    Canvas m_canvas;
};

int main(int argc, char **argv)
{
    return runGraphicsTest<TestShaders>(argc, argv);
}

#include "tst_Shaders.moc"
