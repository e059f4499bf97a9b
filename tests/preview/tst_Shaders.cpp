#include "base/Error.h"
#include "base/Resources.h"
#include "imaging/LitImage.h"
#include "preview/GLGraphicsSprite.h"
#include "preview/GraphicsCheck.h"
#include "preview/LitSprite.h"
#include "preview/SceneRenderer.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/ShadedPicture.h"

#include <QApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QTest>

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
        m_isValid = m_context.create() && m_context.makeCurrent(&m_surface);
    }
    bool isValid() const { return m_isValid; }

    QImage draw(const QSize &size, const std::function<void(SceneRenderer &)> &action)
    {
        QOpenGLFramebufferObject buffer(size);
        buffer.bind();
        QOpenGLFunctions &functions = *m_context.functions();
        functions.glViewport(0, 0, size.width(), size.height());
        functions.glClearColor(0, 0, 0, 0);
        functions.glClear(GL_COLOR_BUFFER_BIT);
        SceneRenderer renderer(m_context);
        action(renderer);
        QImage image(size, QImage::Format_RGBA8888);
        functions.glReadPixels(
            0, 0, size.width(), size.height(), GL_RGBA, GL_UNSIGNED_BYTE, image.bits());
        return image.mirrored();
    }

    QImage draw(ShadedPicture &picture, double zoom)
    {
        const QSize size = (QSizeF(picture.colors.size()) * zoom).toSize();
        picture.frame.projection.setToIdentity();
        picture.frame.projection.ortho({QPointF(), QSizeF(size) / zoom});
        picture.frame.resolution = size;
        picture.frame.displayScaleFactor = float(zoom) / picture.frame.pixelRatio;
        return draw(size, [&picture](SceneRenderer &renderer) {
            GLGraphicsSprite sprite;
            sprite.setColorImage(picture.colors);
            sprite.setNormalImage(picture.normals);
            sprite.setSelectionImage(picture.selection);
            renderer.setFrame(picture.frame);
            renderer.setLight(picture.light, picture.place, picture.place);
            renderer.drawSprite(sprite, picture.isDirectional);
        });
    }

private:
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    bool m_isValid = false;
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
    void initTestCase()
    {
        initialiseResources();
        QVERIFY(m_canvas.isValid());
    }

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
        row("light of no intensity",
            [](ShadedPicture &picture) { picture.light.color.setAlpha(0); });
        row("lamp below all", [](ShadedPicture &picture) { picture.place.setZ(-300.0F); });
        row("lamp far at the side", [](ShadedPicture &picture) { picture.place = {-90, 300, 20}; });
        row("y pointing down",
            [](ShadedPicture &picture) { picture.frame.isYAxisInverted = true; });
        for (const float factor : {0.5F, 1.0F}) {
            row("overlay " + QByteArray::number(double(factor)), [factor](ShadedPicture &picture) {
                picture.frame.displayMode = DisplayMode::NormalMap;
                picture.frame.textureOverlayFactor = factor;
            });
        }
        row("all selected on a fine screen", [](ShadedPicture &picture) {
            picture.selection = QImage(picture.colors.size(), QImage::Format_Alpha8);
            picture.selection.fill(255);
            picture.zoom = 6;
            picture.frame.pixelRatio = 2.0F;
        });
    }
    void formulas()
    {
        QFETCH(Change, change);
        std::mt19937 random(5);
        ShadedPicture picture = randomPicture({21, 13}, random);
        change(picture);
        if (picture.isDirectional)
            picture.place.normalize();
        const QImage drawn = m_canvas.draw(picture, picture.zoom);
        // Where the ants are depends on the time.
        float least = difference(drawn, picture);
        for (picture.antStep = 1; picture.antStep < 8; ++picture.antStep)
            least = std::min(least, difference(drawn, picture));
        QVERIFY2(least <= 1.01F, qPrintable(QString::number(double(least))));
    }

    // Where sprite pixels and device pixels do not meet, lines have no gap and no double width.
    void outlinesAtEveryZoom()
    {
        ShadedPicture picture;
        picture.colors = QImage(24, 24, QImage::Format_ARGB32);
        picture.colors.fill(Qt::red);
        picture.normals = picture.colors;
        picture.selection = QImage(24, 24, QImage::Format_Alpha8);
        picture.selection.fill(Qt::transparent);
        for (int y = 3; y < 20; ++y)
            std::fill_n(picture.selection.scanLine(y) + 4, 15, uchar(255));
        picture.frame.displayMode = DisplayMode::Texture;
        for (const double zoom : {0.5, 0.77, 1.5, 2.3, 3.7, 10.0}) {
            const QImage drawn = m_canvas.draw(picture, zoom);
            const auto isLine = [&drawn](int x, int y) {
                return drawn.pixelColor(x, y) != QColor(Qt::red);
            };
            QPoint lines;
            for (int i = 0; i < drawn.width(); ++i)
                lines += QPoint(isLine(i, drawn.height() / 2), isLine(drawn.width() / 2, i));
            QCOMPARE(lines, QPoint(2, 2));
        }
    }

    void checkerboardInTheAmbientLight()
    {
        SceneLight light;
        light.ambient = QColor(255, 102, 51, 204);
        light.color = Qt::green;
        const QImage drawn = m_canvas.draw({43, 38}, [&light](SceneRenderer &renderer) {
            renderer.setFrame({});
            renderer.setLight(light, {1, 2, 3}, {});
            renderer.drawBackground(QPolygonF(QRectF(-1, -1, 2, 2)));
        });
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                const int up = drawn.height() - 1 - y;
                const double grey = (x / 10 + up / 10) % 2 ? 96 : 128;
                const QColor expected(qRound(grey * 0.8), qRound(grey * 0.32), qRound(grey * 0.16));
                QCOMPARE(drawn.pixelColor(x, y), expected);
            }
        }
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
            QCOMPARE(actual.size(), expected.size());
            int most = 0;
            for (int y = 0; y < size.height(); ++y) {
                for (int i = 0; i < 4 * size.width(); ++i)
                    most = std::max(
                        most, std::abs(actual.constScanLine(y)[i] - expected.constScanLine(y)[i]));
            }
            QVERIFY2(most <= 2, qPrintable(QString::number(most)));
        }
    }

    void buildFailuresAreNamed()
    {
        struct Failure
        {
            QByteArray vertex;
            QByteArray fragment;
            QString message;
        };
        const QByteArray vertex = "attribute vec3 p; void main() { gl_Position = vec4(p, 1.0); }";
        const QByteArray broken = "void main() { nothing; }";
        const QVector<Failure> failures = {
            {broken, "void main() {}", QStringLiteral("Failed to compile vertex shader: ")},
            {vertex, broken, QStringLiteral("Failed to compile fragment shader: ")},
            {vertex, "void f(); void main() { f(); }", QStringLiteral("Failed to link shader: ")}};
        for (const Failure &failure : failures) {
            const Folder folder;
            GLSpriteShader shader(folder.write(QStringLiteral("v"), failure.vertex),
                                  folder.write(QStringLiteral("f"), failure.fragment));
            const QString error = errorOf([&shader] { shader.build(); });
            QVERIFY2(error.startsWith(failure.message) && error.size() > failure.message.size(),
                     qPrintable(error));
        }
    }

    void sourcesHaveTheirLineEndsAndBuild()
    {
        for (const char *name : {"", "-light", "-spot-light", "-bglight"}) {
            const QString path = QStringLiteral(":/fshader%1.glsl").arg(QLatin1String(name));
            const QByteArray content = contentOf(path);
            QVERIFY(content.count('\n') > 5);
            QCOMPARE(content.count("\r\n"), content.count('\n'));
            GLSpriteShader shader(QStringLiteral(":/vshader.glsl"), path);
            QCOMPARE(errorOf([&shader] { shader.build(); }), QString());
        }
    }

private:
    Canvas m_canvas;
};

int main(int argc, char **argv)
{
    prepareGraphics();
    const QApplication application(argc, argv);
    TestShaders test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Shaders.moc"
