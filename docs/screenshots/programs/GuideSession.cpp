// Takes the pictures of the guide in docs/guide by using every tool and effect in the window.
// vesperine-guide-session SAMPLES FOLDER

#include "GuideStage.h"
#include "WindowPictures.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/GLGraphicsLight.h"
#include "preview/NormalMapEditorScene.h"
#include "support/DialogScript.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"

#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace {
QPointF onCircle(int eighth, double radius)
{
    const double angle = (eighth + 0.5) * M_PI / 4.0;
    return QPointF(std::sin(angle), -std::cos(angle)) * radius + QPointF(48.0, 48.0);
}

// Eight facets around a table, each of a colour of its own.
QImage gem()
{
    QImage picture(96, 96, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 8; ++i) {
        painter.setBrush(QColor::fromHsv(190 + 6 * (i % 4), 150, 150 + 12 * (i % 3)));
        painter.drawPolygon(QPolygonF(
            {onCircle(i, 46.0), onCircle(i + 1, 46.0), onCircle(i + 1, 20.0), onCircle(i, 20.0)}));
    }
    painter.setBrush(QColor(0x9f, 0xe0, 0xe8));
    QPolygonF table;
    for (int i = 0; i < 8; ++i)
        table.append(onCircle(i, 20.0));
    painter.drawPolygon(table);
    return picture;
}

QImage plate()
{
    QImage picture(104, 104, QImage::Format_RGB32);
    picture.fill(QColor(0x9a, 0xa4, 0xb4));
    return picture;
}

QImage disc()
{
    QImage picture(100, 100, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc8, 0xc8, 0xd0));
    painter.drawEllipse(2, 2, 96, 96);
    return picture;
}

class GuideSession : private GuideStage
{
public:
    using GuideStage::GuideStage;

    bool takeAll()
    {
        takeWindow();
        // Room for a sprite beside the tools.
        window().resize(window().width() - editor().width() + pageWidth - 318, 640);
        takeModes();
        takeBrushes();
        takeSelections();
        takeEffects();
        takeImport();
        takeDome();
        takeArranging();
        takePatterns();
        return m_isOpened && isComplete();
    }

private:
    // ---- pages
    void takeWindow()
    {
        m_isOpened = window().openPath(effects().samples().filePath(QStringLiteral("sample.vep")));
        const QRectF sprites = painter().scene().spritesRect();
        lightAt({0.32 * sprites.width(), 0.24 * sprites.height()});
        waitUntilSettled(window());
        save(window()
                 .screen()
                 ->grabWindow(window().winId())
                 .toImage()
                 .scaledToWidth(pageWidth, Qt::SmoothTransformation),
             "window");
        dialog(QStringLiteral("Export normals as..."), "export");
    }

    void takeModes()
    {
        beginSample("fox");
        tile("flat", LitTexture, third);
        wearSample("fox");
        tile("shaped", LitTexture, third);
        tile("exported", NormalMap, third);
        tile("mode-texture", Texture, quarter);
        tile("mode-lit-surface", LitSurface, quarter);
        tile("mode-lit-texture", LitTexture, quarter);
        tile("mode-normal-map", NormalMap, quarter);
        beginSample("cobbles");
        wearSample("cobbles");
        for (const int height : {8, 40, 200}) {
            window().project().lightHeight().setValue(height);
            tile(qPrintable(QStringLiteral("light-%1").arg(height)), LitSurface, third);
        }
    }

    void takeBrushes()
    {
        takeContours();
        takeHardnesses();
        paintTail();
        lightAt({14, 20});
        painter().hover({30, 150});
        tool("height");
        cutGem();
        tool("angle", 130);
        beginSample("robot");
        wearSample("robot");
        painter().coverageBrush("Structure", 40, 100, 40);
        painter().structureBrush(QStringLiteral("hammered-metal"), 2.0, 60, 0);
        painter().stroke(points("34,36 72,24 112,36 112,70 72,76 34,66 34,36"));
        painter().stroke(points("44,104 72,100 100,104 100,136 46,136 46,110"));
        painter().key(LitSurface, Qt::AltModifier);
        painter().hover({126, 20});
        tool("structure", 220);
        beginSample("cobbles");
        wearSample("cobbles");
        tile("rough", LitSurface, third);
        painter().chooseTool("Smoothen");
        painter().type("Smoothness", 3);
        Painter::waitForBackground();
        painter().command("SmoothenAll");
        tile("smooth", LitSurface, third);
        beginSample("fox");
        wearSample("fox");
        painter().coverageBrush("Erase", 34, 100, 60);
        painter().stroke(points("60,64 84,60 108,64"));
        painter().hover({150, 50});
        tool("eraser");
    }

    void takeContours()
    {
        const char *names[] = {"contour-wave", "contour-ramp", "contour-round"};
        for (const int contour : {Painter::Wave, Painter::Ramp, Painter::Round}) {
            begin(plate());
            lightAt({14, 14});
            painter().heightBrush(76, 50, 0, Painter::Contour(contour));
            painter().dab({52, 52});
            tile(names[contour - 1], LitSurface, third);
        }
    }

    void takeHardnesses()
    {
        for (const int hardness : {0, 50, 90}) {
            begin(plate());
            lightAt({14, 14});
            painter().heightBrush(76, 30, hardness, Painter::Wave);
            painter().dab({52, 52});
            tile(qPrintable(QStringLiteral("hardness-%1").arg(hardness)), LitSurface, third);
        }
    }

    static Points tail()
    {
        return points("118,186 122,162 137,157 148,142 144,122 150,102 162,86 183,78 182,92 "
                      "177,104 181,118 187,134 188,148 180,168 166,182 148,191 125,190");
    }

    void paintTail()
    {
        beginSample("fox");
        painter().lasso(tail());
        painter().heightBrush(50, 80, 0, Painter::Round);
        painter().stroke(points("122,176 145,172 164,156 168,134 164,114 172,92"));
    }

    void cutGem()
    {
        begin(gem());
        for (int i = 0; i < 8; ++i) {
            const QPoint middle = ((onCircle(i, 33.0) + onCircle(i + 1, 33.0)) / 2.0).toPoint();
            painter().wand(middle, 3);
            painter().chooseTool("Angle");
            painter().chooseAngle(middle - QPoint(48, 48));
            painter().command("Fill");
        }
        lightAt({4, 4});
        painter().hover({88, 88});
    }

    void takeSelections()
    {
        beginSample("fox");
        wearSample("fox");
        painter().wand({84, 60}, 90);
        painter().hover({150, 50});
        tool("color");
        painter().selectNone();
        painter().chooseTool("Polygon");
        painter().click(tail().mid(0, 12));
        painter().hover({185, 154});
        tool("polygon");
        painter().key(Qt::Key_Escape);
    }

    void takeEffects()
    {
        beginSample("robot");
        effect("Bevel", {{"RimWidth", 14}, {"RimHeight", 120}, {"Smoothness", 2}}, "bevel");
        const QVector<QPair<const char *, Settings>> bevels{
            {"bevel-narrow", {{"RimWidth", 4}, {"RimHeight", 100}, {"Smoothness", 2}}},
            {"bevel-wide", {{"RimWidth", 16}, {"RimHeight", 100}, {"Smoothness", 2}}},
            {"bevel-soft", {{"RimWidth", 16}, {"RimHeight", 100}, {"Smoothness", 8}}}};
        beginSample("fox");
        window().project().lightHeight().setValue(90);
        for (const auto &[name, settings] : bevels)
            effectTile("Bevel", settings, name);
        begin(plate());
        tile("tile-off", LitSurface, quarter);
        effects().open("Bevel");
        check(QStringLiteral("TileMode"));
        effects().apply();
        tile("tile-on", LitSurface, quarter);
        effects().open("Bevel");
        check(QStringLiteral("TileMode"));
        effects().apply();
        beginSample("cobbles");
        effect("Emboss", {{"EmbossHeight", 5}, {"Smoothness", 2}}, "emboss");
        effectTile("Emboss", {{"EmbossHeight", 2}, {"Smoothness", 1}}, "emboss-low");
        effectTile("Emboss", {{"EmbossHeight", 8}, {"Smoothness", 1}}, "emboss-high");
        effectTile("Emboss", {{"EmbossHeight", 8}, {"Smoothness", 5}}, "emboss-soft");
    }

    // The question about a map whose green counts downwards.
    void takeImport()
    {
        QImage map(effects().samples().filePath(QStringLiteral("normals/barrel_n.png")));
        map = map.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < map.height(); ++y) {
            auto *pixels = reinterpret_cast<QRgb *>(map.scanLine(y));
            for (int x = 0; x < map.width(); ++x)
                pixels[x] =
                    qRgb(qRed(pixels[x]), 254 - std::min(qGreen(pixels[x]), 254), qBlue(pixels[x]));
        }
        const QString path = effects().pathOf(QStringLiteral("barrel_n.png"));
        map.save(path);
        beginSample("barrel");
        DialogScript script;
        script.then(DialogScript::chooseFile(path));
        script.then([this](QWidget &box) {
            takeWidget(box, "import");
            DialogScript::click(QStringLiteral("Flip"))(box);
        });
        effects().trigger(QStringLiteral("Import normal map..."));
    }

    // One that is lit from above, read rightly and with green the other way.
    void takeDome()
    {
        begin(disc());
        effects().open("Bevel");
        set({{"RimWidth", 48}, {"RimHeight", 100}, {"Smoothness", 0}});
        effects().apply();
        tile("dome-map", NormalMap, third);
        lightAt({50, -30});
        tile("dome-right", LitTexture, third);
        AngleImage surface = body().paintedNormalMap().angleImage();
        flipY(surface);
        body().paintedNormalMap().setAngleImage(surface, QStringLiteral("flip"));
        tile("dome-wrong", LitTexture, third);
    }

    void takeArranging()
    {
        window().resize(window().width() - editor().width() + pageWidth, 640);
        begin({QStringLiteral("lantern.png"),
               QStringLiteral("barrel.png"),
               QStringLiteral("robot.png")});
        effects().selectAll();
        painter().chooseTool("Move");
        waitUntilSettled(window());
        const QRectF sprites = painter().scene().spritesRect();
        const int height = int(sprites.height() * painter().view().zoom()) + 40;
        const QPoint middle = editor().mapTo(&window(), editor().rect().center());
        take("move", QRect(middle - QPoint(pageWidth / 2, height / 2), QSize(pageWidth, height)));
    }

    void takePatterns()
    {
        const QString path = effects().samples().filePath(QStringLiteral("../docs/patterns.png"));
        save(QImage(path).scaledToWidth(pageWidth, Qt::SmoothTransformation), "patterns");
    }

    bool m_isOpened = false;
};

bool takePictures(MainWindow &window, const QStringList &words)
{
    return GuideSession(window, words[0], words[1]).takeAll();
}

} // namespace

int main(int argc, char **argv)
{
    return runSession(argc, argv, "vesperine-guide-session SAMPLES FOLDER", takePictures);
}
