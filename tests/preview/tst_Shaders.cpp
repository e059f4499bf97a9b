#include "base/Error.h"
#include "base/Resources.h"
#include "imaging/LitImage.h"
#include "preview/GLGraphicsSprite.h"
#include "preview/GraphicsCheck.h"
#include "preview/LitSprite.h"
#include "preview/SceneRenderer.h"
#include "support/Documents.h"
#include "support/Pictures.h"

#include <QApplication>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>
#include <QTest>
#include <QVector4D>

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

QImage randomNormals(const QSize &size, std::mt19937 &random)
{
    return randomColors(size, random).convertToFormat(QImage::Format_RGB32);
}

QImage randomSelection(const QSize &size, std::mt19937 &random)
{
    QImage image(size, QImage::Format_Alpha8);
    for (int y = 0; y < size.height(); ++y)
        std::generate_n(image.scanLine(y), size.width(), [&] { return random() % 3 ? 255 : 0; });
    return image;
}

QVector4D components(const QColor &color)
{
    return {
        float(color.redF()), float(color.greenF()), float(color.blueF()), float(color.alphaF())};
}

QVector4D components(QRgb color)
{
    return components(QColor::fromRgba(color));
}

/// One picture: what the shaders get, and what they are to make of it.
struct Picture
{
    QImage colors;
    QImage normals;
    QImage selection;
    ShaderFrame frame;
    SceneLight light;
    QVector3D place; ///< of the lamp, or the direction to the light
    bool isDirectional = false;
    int zoom = 1;
    int antStep = 0;

    QSize size() const { return colors.size() * zoom; }

    QPoint texel(int x, int y) const
    {
        // Mirrored at the borders.
        return {qBound(0, x, size().width() - 1) / zoom, qBound(0, y, size().height() - 1) / zoom};
    }
    bool isSelected(int x, int y) const
    {
        return !selection.isNull() && qAlpha(selection.pixel(texel(x, y))) > 127;
    }
    bool isVisible(int x, int y) const { return qAlpha(colors.pixel(texel(x, y))) > 0; }

    bool isSelectionOutline(int x, int y) const
    {
        const bool isAtBorder =
            x == 0 || y == 0 || x == size().width() - 1 || y == size().height() - 1;
        return isSelected(x, y) && (isAtBorder || !isSelected(x - 1, y) || !isSelected(x + 1, y) ||
                                    !isSelected(x, y - 1) || !isSelected(x, y + 1));
    }
    bool isSpriteOutline(int x, int y) const
    {
        return !isVisible(x - 1, y) || !isVisible(x + 1, y) || !isVisible(x, y - 1) ||
               !isVisible(x, y + 1);
    }

    QVector3D intensity(int x, int y) const
    {
        QVector3D normal =
            (2.0F * components(normals.pixel(texel(x, y))).toVector3D() - QVector3D(1, 1, 1));
        normal.normalize();
        const QVector3D middle(float(x) + 0.5F, float(y) + 0.5F, 0.0F);
        if (!isDirectional && !frame.isYAxisInverted)
            normal.setY(-normal.y());
        const QVector3D towardsLight =
            isDirectional ? place : (place - middle / float(zoom)).normalized();
        const float cosine = std::max(QVector3D::dotProduct(normal, towardsLight), 0.0F);
        const QVector4D ambient = components(light.ambient);
        const QVector4D color = components(light.color);
        return ambient.toVector3D() * ambient.w() +
               color.toVector3D() * color.w() * cosine * light.brightness / 100.0F;
    }

    QVector4D normalMapPixel(int x, int y, const QVector4D &premultiplied) const
    {
        const QVector4D normal = components(normals.pixel(texel(x, y)));
        if (isDirectional)
            return normal;
        if (!isVisible(x, y))
            return {0.5F, 0.5F, 1.0F, 1.0F};
        if (isSpriteOutline(x, y))
            return {1.0F, 1.0F, 1.0F, 1.0F};
        const QVector3D weights(0.2126F, 0.7152F, 0.0722F);
        const float luminance = QVector3D::dotProduct(premultiplied.toVector3D(), weights);
        const QVector4D overlay((normal * (luminance * 0.9F + 0.3F)).toVector3D(),
                                premultiplied.w());
        const float factor = frame.textureOverlayFactor;
        return factor * overlay + (1.0F - factor) * normal;
    }

    QVector4D outlinePixel(int x, int y) const
    {
        const int up = size().height() - 1 - y; // the driver counts from below
        const int antLength = int(4 * frame.pixelRatio);
        const int place = -x + up + antStep * int(frame.pixelRatio) + 1000 * antLength;
        const bool isBlack = place % (2 * antLength) >= antLength;
        const float grey = isDirectional ? float((x + up) % 2) : float(!isBlack);
        return {grey, grey, grey, 1.0F};
    }

    QVector4D pixel(int x, int y) const
    {
        if (isSelectionOutline(x, y))
            return outlinePixel(x, y);
        const QVector4D color = components(colors.pixel(texel(x, y)));
        const QVector4D premultiplied(color.toVector3D() * color.w(), color.w());
        const QVector3D grey = QVector3D(0.5F, 0.5F, 0.5F) * color.w();
        switch (frame.displayMode) {
        case DisplayMode::Texture:
            return premultiplied;
        case DisplayMode::LitSurface:
            return {grey * intensity(x, y), color.w()};
        case DisplayMode::LitTexture:
            return {premultiplied.toVector3D() * intensity(x, y), color.w()};
        case DisplayMode::NormalMap:
            return normalMapPixel(x, y, premultiplied);
        }
        return {};
    }
};

// How far the drawn components are from the expected ones, at the most.
float difference(const QImage &drawn, const Picture &picture)
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

    QImage draw(Picture &picture)
    {
        const QRectF area(QPointF(), picture.colors.size());
        picture.frame.projection.ortho(area);
        picture.frame.resolution = picture.size();
        picture.frame.displayScaleFactor = float(picture.zoom) / picture.frame.pixelRatio;
        return draw(picture.size(), [&picture](SceneRenderer &renderer) {
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

Picture randomPicture(const QSize &size, std::mt19937 &random)
{
    Picture picture;
    picture.colors = randomColors(size, random);
    picture.normals = randomNormals(size, random);
    picture.light.color = QColor(255, 200, 90, 200);
    picture.light.ambient = QColor(40, 60, 90, 220);
    picture.light.brightness = 150.0F;
    picture.place = {7.0F, 4.0F, 9.0F};
    return picture;
}

using Change = std::function<void(Picture &)>;

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
                const auto change = [mode, isDirectional](Picture &picture) {
                    picture.isDirectional = isDirectional;
                    picture.frame.displayMode = DisplayMode(mode);
                };
                row(name, change);
                row(name + " with a selection, zoomed", [change](Picture &picture) {
                    change(picture);
                    std::mt19937 random(6);
                    picture.selection = randomSelection(picture.colors.size(), random);
                    picture.zoom = 4;
                });
            }
        }
        row("no brightness", [](Picture &picture) { picture.light.brightness = 0.0F; });
        row("light of no intensity", [](Picture &picture) { picture.light.color.setAlpha(0); });
        row("lamp below all", [](Picture &picture) { picture.place.setZ(-300.0F); });
        row("lamp far at the side", [](Picture &picture) { picture.place = {-90, 300, 20}; });
        row("y pointing down", [](Picture &picture) { picture.frame.isYAxisInverted = true; });
        for (const float factor : {0.5F, 1.0F}) {
            row("overlay " + QByteArray::number(double(factor)), [factor](Picture &picture) {
                picture.frame.displayMode = DisplayMode::NormalMap;
                picture.frame.textureOverlayFactor = factor;
            });
        }
        row("all selected on a fine screen", [](Picture &picture) {
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
        Picture picture = randomPicture({21, 13}, random);
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

    // Where sprite pixels and device pixels do not meet, lines have no gap and no double width.
    void outlinesAtEveryZoom()
    {
        Picture picture;
        picture.colors = QImage(24, 24, QImage::Format_ARGB32);
        picture.colors.fill(Qt::red);
        picture.normals = picture.colors;
        picture.selection = QImage(24, 24, QImage::Format_Alpha8);
        picture.selection.fill(Qt::transparent);
        for (int y = 3; y < 20; ++y)
            std::fill_n(picture.selection.scanLine(y) + 4, 15, uchar(255));
        picture.frame.displayMode = DisplayMode::Texture;
        for (const float zoom : {0.5F, 0.77F, 1.5F, 2.3F, 3.7F, 10.0F}) {
            const QSize size = (QSizeF(24, 24) * double(zoom)).toSize();
            picture.frame.projection.setToIdentity();
            picture.frame.projection.ortho({QPointF(), QSizeF(size) / double(zoom)});
            picture.frame.displayScaleFactor = zoom;
            const QImage drawn = m_canvas.draw(size, [&](SceneRenderer &renderer) {
                GLGraphicsSprite sprite;
                sprite.setColorImage(picture.colors);
                sprite.setNormalImage(picture.normals);
                sprite.setSelectionImage(picture.selection);
                renderer.setFrame(picture.frame);
                renderer.drawSprite(sprite, false);
            });
            const auto isLine = [&drawn](int x, int y) {
                return drawn.pixelColor(x, y) != QColor(Qt::red);
            };
            int across = 0;
            int down = 0;
            for (int i = 0; i < size.width(); ++i) {
                across += isLine(i, size.height() / 2) ? 1 : 0;
                down += isLine(size.width() / 2, i) ? 1 : 0;
            }
            QCOMPARE(QPoint(across, down), QPoint(2, 2));
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

    void litSpriteIsThatOfTheProcessor_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(31, 17);
        QTest::newRow("wider than a tile") << QSize(2300, 3);
        QTest::newRow("higher than a tile") << QSize(2, 4200);
        QTest::newRow("wider than a texture") << QSize(20000, 1);
    }
    void litSpriteIsThatOfTheProcessor()
    {
        QFETCH(QSize, size);
        std::mt19937 random(7);
        const Picture picture = randomPicture(size, random);
        GLGraphicsSprite sprite;
        sprite.setColorImage(picture.colors);
        sprite.setNormalImage(picture.normals);
        sprite.setSelectionImage(randomSelection(size, random));
        sprite.setPos(-300, 40);
        const Light light{picture.light.ambient,
                          picture.light.color,
                          150.0,
                          Light::Kind::Position,
                          picture.place};
        const QImage drawn =
            litSprite(sprite, picture.light, picture.place + QVector3D(QPointF(-300, 40)));
        QCOMPARE(drawn.format(), QImage::Format_ARGB32);
        const QImage expected = litImage(picture.colors, picture.normals, light);
        const QImage actual = drawn.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(actual.size(), expected.size());
        int most = 0;
        for (int y = 0; y < size.height(); ++y) {
            const uchar *ours = actual.constScanLine(y);
            const uchar *theirs = expected.constScanLine(y);
            for (int i = 0; i < 4 * size.width(); ++i)
                most = std::max(most, std::abs(int(ours[i]) - int(theirs[i])));
        }
        QVERIFY2(most <= 2, qPrintable(QString::number(most)));
    }

    void buildFailuresAreNamed_data()
    {
        QTest::addColumn<QByteArray>("vertex");
        QTest::addColumn<QByteArray>("fragment");
        QTest::addColumn<QString>("message");
        const QByteArray vertex = "attribute vec3 p; void main() { gl_Position = vec4(p, 1.0); }";
        const QByteArray fragment = "void main() { gl_FragColor = vec4(1.0); }";
        QTest::newRow("vertex") << QByteArray("void main() { nothing; }") << fragment
                                << QStringLiteral("Failed to compile vertex shader: ");
        QTest::newRow("fragment") << vertex << QByteArray("void main() { nothing; }")
                                  << QStringLiteral("Failed to compile fragment shader: ");
        QTest::newRow("link") << vertex << QByteArray("void f(); void main() { f(); }")
                              << QStringLiteral("Failed to link shader: ");
    }
    void buildFailuresAreNamed()
    {
        QFETCH(QByteArray, vertex);
        QFETCH(QByteArray, fragment);
        QFETCH(QString, message);
        const Folder folder;
        GLSpriteShader shader(folder.write(QStringLiteral("v"), vertex),
                              folder.write(QStringLiteral("f"), fragment));
        const QString error = errorOf([&shader] { shader.build(); });
        QVERIFY2(error.startsWith(message) && error.size() > message.size(), qPrintable(error));
    }

    void sourcesHaveTheirLineEndsAndBuild()
    {
        for (const char *name :
             {"fshader", "fshader-light", "fshader-spot-light", "fshader-bglight"}) {
            for (const char *vertex : {":/vshader.glsl", ":/vshader-bglight.glsl"}) {
                const QString path = QStringLiteral(":/%1.glsl").arg(QLatin1String(name));
                const QByteArray content = contentOf(path);
                QVERIFY(content.count('\n') > 5);
                QCOMPARE(content.count("\r\n"), content.count('\n'));
                GLSpriteShader shader(QLatin1String(vertex), path);
                QCOMPARE(errorOf([&shader] { shader.build(); }), QString());
            }
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
