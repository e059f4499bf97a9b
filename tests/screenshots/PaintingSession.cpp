// Paints the surface of the sample fox in the window, as an artist would, by mouse and keys and
// with every tool, and takes pictures on the way. vesperine-painting-session FOX.png FOLDER

#include "base/Resources.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "screenshots/WindowPictures.h"
#include "support/DialogScript.h"
#include "support/EditorUser.h"
#include "support/Gestures.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/VesperineApplication.h"

#include <QComboBox>
#include <QDir>
#include <QPainterPath>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <cstdio>

namespace {

using Points = QVector<QPoint>;

enum Contour { Wave = 1, Ramp, Round };
constexpr QPoint lightPlace(14, 20);
constexpr QPoint restingPlace(172, 40);
constexpr QPoint starCentre(84, 125);

// As a hand goes through @p points: around the corners between them.
Points curve(const Points &points)
{
    constexpr int sampleDistance = 8;
    QPainterPath path(points.first());
    for (int i = 1; i + 1 < points.size(); ++i)
        path.quadTo(points[i], QPointF(points[i] + points[i + 1]) / 2.0);
    path.lineTo(points.last());
    Points result;
    const int count = int(path.length()) / sampleDistance + 1;
    for (int i = 0; i <= count; ++i)
        result.append(path.pointAtPercent(double(i) / count).toPoint());
    return result;
}

class FoxPainter
{
public:
    FoxPainter(MainWindow &window, const QString &folder)
        : m_window(window)
        , m_user(window)
        , m_folder(folder)
    {
        m_window.findChild<NormalMapEditor *>()->zoomToFit();
        m_user.hover(lightPlace);
        m_user.key(Qt::Key_P);
    }

    bool paint()
    {
        take(QStringLiteral("1-start"));
        shapeTail();
        shapeBody();
        shapeEars();
        shapeHead();
        take(QStringLiteral("3-parts"));
        hollowEars();
        smoothJoints();
        take(QStringLiteral("4-smooth"));
        carve();
        take(QStringLiteral("5-grooves"));
        addFur();
        take(QStringLiteral("6-fur"));
        weaveScarf();
        polishEyes();
        take(QStringLiteral("7-eyes"));
        cutStar();
        take(QStringLiteral("8-star"));
        return m_isComplete;
    }

    bool exportNormals()
    {
        DialogScript script;
        script.then(DialogScript::click(QStringLiteral("OK")));
        script.then(DialogScript::click(QStringLiteral("OK")));
        m_user.key(Qt::Key_P, Qt::ControlModifier);
        return script.isDone();
    }

private:
    // ---- tools
    void heightBrush(int size, double height, int hardness, Contour contour)
    {
        m_user.chooseTool(QStringLiteral("Height"));
        m_user.type(QStringLiteral("BrushSize"), size);
        m_user.type(QStringLiteral("Height"), height);
        m_user.type(QStringLiteral("Hardness"), hardness);
        QWidget &button =
            shownChild<QWidget>(m_window, QStringLiteral("Brush contour %1").arg(int(contour)));
        QTest::mouseClick(&button, Qt::LeftButton);
        m_user.view().setFocus();
    }
    void coverageBrush(const QString &tool, int size, int opacity, int hardness)
    {
        m_user.chooseTool(tool);
        m_user.type(QStringLiteral("BrushSize"), size);
        m_user.type(QStringLiteral("Opacity"), opacity);
        m_user.type(QStringLiteral("Hardness"), hardness);
    }
    void structureBrush(const QString &pattern, double intensity, int scale, int rotation)
    {
        auto &patterns = shownChild<QComboBox>(m_window, QStringLiteral("Pattern"));
        QTest::keyClick(&patterns, Qt::Key_Home);
        for (int i = 0; i < patterns.count() && patterns.currentText() != pattern; ++i)
            QTest::keyClick(&patterns, Qt::Key_Down);
        m_user.type(QStringLiteral("Intensity"), intensity);
        m_user.type(QStringLiteral("Scale"), scale);
        m_user.type(QStringLiteral("Rotation"), rotation);
        waitForBackground();
    }
    static void waitForBackground()
    {
        // The first result may ask for a second.
        for (int i = 0; i < 3; ++i) {
            QThreadPool::globalInstance()->waitForDone();
            QCoreApplication::processEvents();
        }
    }
    void stroke(const Points &points) { m_user.paint(curve(points)); }
    void dab(const QPoint &point) { m_user.paint({point}); }
    void down() { m_user.key(Qt::Key_X); }

    void lasso(const Points &corners)
    {
        m_user.chooseTool(QStringLiteral("Polygon"));
        click(corners);
        m_user.key(Qt::Key_Return);
    }
    void click(const Points &points)
    {
        for (const QPoint &point : points)
            m_user.paint({point});
    }
    void wand(const QPoint &seed, int tolerance, Qt::KeyboardModifiers modifiers = {})
    {
        m_user.chooseTool(QStringLiteral("Color"));
        m_user.type(QStringLiteral("Tolerance"), tolerance);
        m_user.paint({seed}, modifiers);
    }
    // What lies in front of others starts flat.
    void eraseSelection()
    {
        m_user.chooseTool(QStringLiteral("Erase"));
        m_user.command(QStringLiteral("EraseAll"));
    }
    void part(const Points &corners)
    {
        lasso(corners);
        eraseSelection();
    }
    void selectNone() { m_user.key(Qt::Key_D, Qt::ControlModifier); }

    // ---- the fox
    static Points tailSpine()
    {
        return {{122, 176}, {145, 172}, {164, 156}, {168, 134}, {164, 114}, {172, 92}};
    }
    void shapeTail()
    {
        const Points outline{{118, 186},
                             {122, 162},
                             {137, 157},
                             {148, 142},
                             {144, 122},
                             {150, 102},
                             {162, 86},
                             {183, 78},
                             {182, 92},
                             {177, 104},
                             {181, 118},
                             {187, 134},
                             {188, 148},
                             {180, 168},
                             {166, 182},
                             {148, 191},
                             {125, 190}};
        m_user.chooseTool(QStringLiteral("Polygon"));
        click(outline.mid(0, 12));
        m_user.hover({185, 154});
        save(QStringLiteral("2-lasso"));
        click(outline.mid(12));
        m_user.key(Qt::Key_Return);
        heightBrush(50, 80, 0, Round);
        stroke(tailSpine());
        heightBrush(40, 20, 0, Wave);
        stroke(tailSpine());
    }

    void shapeBody()
    {
        part({{57, 118}, {110, 118}, {122, 148}, {124, 186}, {44, 186}, {46, 148}});
        heightBrush(84, 80, 0, Round);
        stroke({{84, 140}, {84, 172}});
        for (const int side : {-1, 1}) {
            const int middle = 84;
            const auto mirrored = [&](int x, int y) { return QPoint(middle + side * x, y); };
            // thigh
            part({mirrored(18, 186),
                  mirrored(18, 152),
                  mirrored(24, 146),
                  mirrored(32, 144),
                  mirrored(40, 150),
                  mirrored(45, 160),
                  mirrored(42, 174),
                  mirrored(42, 186)});
            heightBrush(40, 90, 0, Round);
            stroke({mirrored(29, 160), mirrored(30, 170)});
            // leg
            part({mirrored(3, 176),
                  mirrored(3, 150),
                  mirrored(6, 141),
                  mirrored(11, 138),
                  mirrored(17, 142),
                  mirrored(18, 176)});
            heightBrush(19, 100, 0, Round);
            stroke({mirrored(11, 146), mirrored(11, 176)});
            // paws
            part({mirrored(1, 180),
                  mirrored(3, 175),
                  mirrored(10, 173),
                  mirrored(17, 175),
                  mirrored(20, 180),
                  mirrored(17, 185),
                  mirrored(4, 185)});
            heightBrush(20, 90, 0, Round);
            stroke({mirrored(7, 180), mirrored(14, 180)});
            part({mirrored(20, 180),
                  mirrored(24, 175),
                  mirrored(33, 173),
                  mirrored(42, 175),
                  mirrored(46, 180),
                  mirrored(42, 185),
                  mirrored(24, 185)});
            heightBrush(20, 90, 0, Round);
            stroke({mirrored(28, 180), mirrored(38, 180)});
        }
        part({{53, 112},
              {57, 104},
              {84, 110},
              {111, 104},
              {115, 112},
              {108, 122},
              {96, 128},
              {84, 130},
              {72, 128},
              {60, 121}});
        heightBrush(30, 90, 0, Round);
        stroke({{56, 110}, {84, 122}, {112, 110}});
        part({{57, 119}, {64, 124}, {74, 128}, {76, 150}, {73, 154}, {62, 154}, {56, 150}});
        heightBrush(24, 80, 0, Round);
        stroke({{65, 120}, {66, 150}});
    }

    void shapeEars()
    {
        for (const Points &ear :
             {Points{{42, 66}, {44, 30}, {50, 10}, {62, 22}, {74, 44}, {58, 54}},
              Points{{126, 66}, {125, 30}, {118, 10}, {106, 22}, {94, 44}, {110, 54}}}) {
            part(ear);
            heightBrush(34, 80, 0, Round);
            stroke({{(ear[1].x() + ear[3].x()) / 2, 26}, {(ear[1].x() + ear[3].x()) / 2, 60}});
        }
    }

    void shapeHead()
    {
        part({{28, 88},
              {42, 79},
              {48, 66},
              {56, 55},
              {68, 46},
              {84, 42},
              {100, 46},
              {112, 55},
              {120, 66},
              {126, 79},
              {140, 88},
              {112, 104},
              {84, 113},
              {56, 104}});
        heightBrush(98, 95, 0, Round);
        stroke({{72, 82}, {96, 82}});
        // Muzzle, cheeks and brows
        heightBrush(40, 70, 0, Wave);
        stroke({{80, 94}, {88, 94}});
        heightBrush(36, 30, 0, Wave);
        dab({52, 90});
        dab({116, 90});
        heightBrush(22, 16, 0, Wave);
        dab({71, 61});
        dab({97, 61});
    }

    void hollowEars()
    {
        wand({56, 40}, 60);
        wand({112, 40}, 60, Qt::ShiftModifier);
        heightBrush(24, 60, 0, Wave);
        down();
        stroke({{55, 30}, {56, 54}});
        stroke({{113, 30}, {112, 54}});
        down();
        selectNone();
    }

    // Straight lines by Shift between the toes and over the scarf's stripes.
    void carve()
    {
        heightBrush(4, 50, 0, Wave);
        down();
        for (const int x : {47, 55, 71, 77, 91, 97, 111, 119}) {
            dab({x, 181});
            m_user.paint({{x, 185}}, Qt::ShiftModifier);
        }
        for (const int y : {139, 143, 147}) {
            dab({59, y});
            m_user.paint({{73, y}}, Qt::ShiftModifier);
        }
        stroke({{84, 93}, {84, 99}, {80, 101}, {76, 99}});
        stroke({{84, 99}, {88, 101}, {92, 99}});
        down();
    }

    void addFur()
    {
        const QString brush = QStringLiteral("Structure");
        coverageBrush(brush, 50, 60, 0);
        structureBrush(QStringLiteral("wood-grain"), 1.5, 40, 90);
        stroke({{60, 60}, {84, 54}, {108, 60}});
        stroke({{45, 88}, {62, 92}});
        stroke({{123, 88}, {106, 92}});
        structureBrush(QStringLiteral("wood-grain"), 1.5, 40, 60);
        stroke(tailSpine());
    }

    void weaveScarf()
    {
        wand({65, 113}, 60);
        wand({65, 132}, 60, Qt::ShiftModifier);
        coverageBrush(QStringLiteral("Structure"), 30, 80, 50);
        structureBrush(QStringLiteral("woven-cloth"), 0.6, 30, 0);
        m_user.command(QStringLiteral("FillAll"));
        selectNone();
    }

    void smoothJoints()
    {
        coverageBrush(QStringLiteral("Smoothen"), 16, 100, 0);
        m_user.type(QStringLiteral("Smoothness"), 3);
        stroke({{66, 100}, {70, 84}, {84, 78}, {98, 84}, {102, 100}});
        coverageBrush(QStringLiteral("Smoothen"), 60, 100, 60);
        stroke(tailSpine());
    }

    void polishEyes()
    {
        for (const QPoint &eye : {QPoint(65, 77), QPoint(103, 77), QPoint(84, 89)}) {
            wand(eye, 40);
            coverageBrush(QStringLiteral("Erase"), 24, 100, 80);
            dab(eye);
            heightBrush(18, 70, 0, Round);
            dab(eye);
        }
        selectNone();
    }

    // Four points, each of two facets that lean away from their ridge.
    void cutStar()
    {
        constexpr QPoint tips[] = {{0, -10}, {11, 0}, {0, 10}, {-11, 0}};
        constexpr QPoint waists[] = {{3, -3}, {3, 3}, {-3, 3}, {-3, -3}};
        for (int i = 0; i < 4; ++i) {
            facet(tips[i], waists[i]);
            facet(tips[(i + 1) % 4], waists[i]);
        }
        selectNone();
    }
    void facet(const QPoint &tip, const QPoint &waist)
    {
        lasso({starCentre, starCentre + tip, starCentre + waist});
        m_user.chooseTool(QStringLiteral("Angle"));
        auto &globe = shownChild<QWidget>(m_window, QStringLiteral("Angle"));
        const QPoint lean(tip.x() == 0 ? waist.x() : 0, tip.y() == 0 ? waist.y() : 0);
        QTest::mouseClick(&globe, Qt::LeftButton, {}, globe.rect().center() + lean * 11);
        m_user.view().setFocus();
        m_user.command(QStringLiteral("Fill"));
    }

    // ---- pictures
    void take(const QString &name)
    {
        waitForBackground();
        m_user.hover(restingPlace);
        m_user.key(Qt::Key_4, Qt::AltModifier);
        save(name + QStringLiteral("-normals"));
        m_user.key(Qt::Key_3, Qt::AltModifier);
        save(name);
    }
    // The sprite and the tools beside it.
    void save(const QString &name)
    {
        const auto &editor = *m_window.findChild<NormalMapEditor *>();
        const QPoint corner = editor.mapTo(&m_window, QPoint());
        const QRect part(corner, QSize(m_window.width() - corner.x(), editor.height()));
        const QString file = QStringLiteral("painting-%1.png").arg(name);
        m_isComplete = savePicture(m_window, QDir(m_folder).filePath(file), part) && m_isComplete;
    }

    MainWindow &m_window;
    EditorUser m_user;
    QString m_folder;
    bool m_isComplete = true;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("vesperine-painting-session FOX.png FOLDER\n", stderr);
        return 2;
    }
    initialiseResources();
    VesperineApplication::prepare();
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    GApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    const QString sprite = home.filePath(QStringLiteral("fox.png"));
    const QDir folder(words[2]);
    MainWindow window(application);
    window.resize(1280, 800);
    showSettled(window);
    if (!QFile::copy(words[1], sprite))
        return 1;
    window.openOrAdd({sprite});
    waitUntilSettled(window);
    FoxPainter painter(window, words[2]);
    if (!painter.paint() || !painter.exportNormals())
        return 1;
    const QString map = folder.filePath(QStringLiteral("fox_n.png"));
    QFile::remove(map);
    return QFile::copy(home.filePath(QStringLiteral("fox_n.png")), map) ? 0 : 1;
}
