// Paints the surface of the sample fox in the window, as an artist would, by mouse and keys and
// with every tool, and takes pictures on the way. vesperine-painting-session FOX.png FOLDER

#include "Painter.h"
#include "WindowPictures.h"
#include "support/DialogScript.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

constexpr QPoint restingPlace(172, 40);
constexpr int middle = 84;
constexpr QPoint starCentre(middle, 125);

class FoxPainter : private Painter
{
public:
    FoxPainter(MainWindow &window, const QString &folder)
        : Painter(window)
        , m_window(window)
        , m_folder(folder)
    {
        m_window.findChild<NormalMapEditor *>()->zoomToFit();
        placeLight({14, 20});
    }

    bool paintFox()
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
        shadeUnderside();
        cutStar();
        take(QStringLiteral("8-star"));
        placeLight({166, 52});
        take(QStringLiteral("9-other-light"));
        return m_isComplete;
    }

    // Asks for the settings, then tells what was written.
    bool exportNormals()
    {
        DialogScript script;
        script.then(DialogScript::click(QStringLiteral("OK")));
        script.then(DialogScript::click(QStringLiteral("OK")));
        key(Qt::Key_P, Qt::ControlModifier);
        return script.isDone();
    }

private:
    static Points tailSpine() { return points("122,176 145,172 164,156 168,134 164,114 172,92"); }
    void shapeTail()
    {
        const Points outline =
            points("118,186 122,162 137,157 148,142 144,122 150,102 162,86 183,78 182,92 177,104 "
                   "181,118 187,134 188,148 180,168 166,182 148,191 125,190");
        chooseTool("Polygon");
        click(outline.mid(0, 12));
        hover({185, 154});
        save(QStringLiteral("2-lasso"));
        click(outline.mid(12));
        key(Qt::Key_Return);
        heightBrush(50, 80, 0, Round);
        stroke(tailSpine());
        heightBrush(40, 20, 0, Wave);
        stroke(tailSpine());
    }

    void shapeBody()
    {
        part(points("57,118 110,118 122,148 124,186 44,186 46,148"));
        heightBrush(84, 80, 0, Round);
        stroke(points("84,140 84,172"));
        for (const int side : {-1, 1})
            shapeLegs(side);
        shapeScarf();
    }

    // Thigh, foreleg and both paws.
    void shapeLegs(int side)
    {
        part(beside(middle, "18,186 18,152 24,146 32,144 40,150 45,160 42,174 42,186", side));
        heightBrush(40, 90, 0, Round);
        stroke(beside(middle, "29,160 30,170", side));
        part(beside(middle, "3,176 3,150 6,141 11,138 17,142 18,176", side));
        heightBrush(19, 100, 0, Round);
        stroke(beside(middle, "11,146 11,176", side));
        part(beside(middle, "1,180 3,175 10,173 17,175 20,180 17,185 4,185", side));
        heightBrush(20, 90, 0, Round);
        stroke(beside(middle, "7,180 14,180", side));
        part(beside(middle, "20,180 24,175 33,173 42,175 46,180 42,185 24,185", side));
        heightBrush(20, 90, 0, Round);
        stroke(beside(middle, "28,180 38,180", side));
    }

    void shapeScarf()
    {
        part(points("53,112 57,104 84,110 111,104 115,112 108,122 96,128 84,130 72,128 60,121"));
        heightBrush(30, 90, 0, Round);
        stroke(points("56,110 84,122 112,110"));
        part(points("57,119 64,124 74,128 76,150 73,154 62,154 56,150"));
        heightBrush(24, 80, 0, Round);
        stroke(points("65,120 66,150"));
    }

    void shapeEars()
    {
        for (const Points &ear : {points("42,66 44,30 50,10 62,22 74,44 58,54"),
                                  points("126,66 125,30 118,10 106,22 94,44 110,54")}) {
            part(ear);
            heightBrush(34, 80, 0, Round);
            stroke({{(ear[1].x() + ear[3].x()) / 2, 26}, {(ear[1].x() + ear[3].x()) / 2, 60}});
        }
    }

    void shapeHead()
    {
        part(points("28,88 42,79 48,66 56,55 68,46 84,42 100,46 112,55 120,66 126,79 140,88 "
                    "112,104 84,113 56,104"));
        heightBrush(98, 95, 0, Round);
        stroke(points("72,82 96,82"));
        // Muzzle, cheeks and brows
        heightBrush(40, 70, 0, Wave);
        stroke(points("80,94 88,94"));
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
        toggleDirection();
        stroke(points("55,30 56,54"));
        stroke(points("113,30 112,54"));
        toggleDirection();
        selectNone();
    }

    // Straight lines by Shift between the toes and over the scarf's stripes.
    void carve()
    {
        heightBrush(4, 50, 0, Wave);
        toggleDirection();
        for (const int x : {47, 55, 71, 77, 91, 97, 111, 119}) {
            dab({x, 181});
            paint({{x, 185}}, Qt::ShiftModifier);
        }
        for (const int y : {139, 143, 147}) {
            dab({59, y});
            paint({{73, y}}, Qt::ShiftModifier);
        }
        stroke(points("84,93 84,99 80,101 76,99"));
        stroke(points("84,99 88,101 92,99"));
        toggleDirection();
    }

    void addFur()
    {
        coverageBrush("Structure", 50, 60, 0);
        structureBrush(QStringLiteral("wood-grain"), 1.1, 40, 90);
        stroke(points("60,60 84,54 108,60"));
        stroke(points("45,88 62,92"));
        stroke(points("123,88 106,92"));
        structureBrush(QStringLiteral("wood-grain"), 1.5, 40, 60);
        stroke(tailSpine().mid(1));
    }

    void weaveScarf()
    {
        wand({65, 113}, 60);
        wand({65, 132}, 60, Qt::ShiftModifier);
        coverageBrush("Structure", 30, 80, 50);
        structureBrush(QStringLiteral("woven-cloth"), 0.6, 30, 0);
        command("FillAll");
        selectNone();
    }

    void smoothJoints()
    {
        coverageBrush("Smoothen", 16, 100, 0);
        type("Smoothness", 3);
        stroke(points("66,100 70,84 84,78 98,84 102,100"));
        coverageBrush("Smoothen", 60, 100, 60);
        stroke(tailSpine());
    }

    void polishEyes()
    {
        for (const QPoint &eye : {QPoint(65, 77), QPoint(103, 77), QPoint(84, 89)}) {
            wand(eye, 40);
            coverageBrush("Erase", 24, 100, 80);
            dab(eye);
            heightBrush(18, 70, 0, Round);
            dab(eye);
        }
        selectNone();
    }

    // What rests on the ground looks down.
    void shadeUnderside()
    {
        coverageBrush("Angle", 12, 70, 0);
        chooseAngle({0, 40});
        stroke(points("42,187 84,187 126,187"));
    }

    // Four points, each of two facets that lean away from their ridge.
    void cutStar()
    {
        const Points tips = points("0,-10 11,0 0,10 -11,0");
        const Points waists = points("3,-3 3,3 -3,3 -3,-3");
        for (int i = 0; i < 4; ++i) {
            facet(tips[i], waists[i]);
            facet(tips[(i + 1) % 4], waists[i]);
        }
        selectNone();
    }
    void facet(const QPoint &tip, const QPoint &waist)
    {
        lasso({starCentre, starCentre + tip, starCentre + waist});
        chooseTool("Angle");
        key(Qt::Key_0); // opaque
        chooseAngle(QPoint(tip.x() == 0 ? waist.x() : 0, tip.y() == 0 ? waist.y() : 0) * 11);
        command("Fill");
    }

    // ---- pictures
    void take(const QString &name)
    {
        waitForBackground();
        hover(restingPlace);
        key(Qt::Key_4, Qt::AltModifier);
        save(name + QStringLiteral("-normals"));
        key(Qt::Key_3, Qt::AltModifier);
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
    QString m_folder;
    bool m_isComplete = true;
};

bool paint(MainWindow &window, const QStringList &words)
{
    const QTemporaryDir home;
    const QString sprite = home.filePath(QStringLiteral("fox.png"));
    if (!QFile::copy(words[0], sprite))
        return false;
    window.openOrAdd({sprite});
    waitUntilSettled(window);
    FoxPainter painter(window, words[1]);
    if (!painter.paintFox() || !painter.exportNormals())
        return false;
    const QString map = QDir(words[1]).filePath(QStringLiteral("painting-fox_n.png"));
    QFile::remove(map);
    return QFile::copy(home.filePath(QStringLiteral("fox_n.png")), map);
}

} // namespace

int main(int argc, char **argv)
{
    return runSession(argc, argv, "vesperine-painting-session FOX.png FOLDER", paint);
}
