#include "framework/MissingDisplay.h"
#include "framework/Theme.h"
#include "framework/ThemedIcon.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <cmath>

Q_DECLARE_METATYPE(ThemeChoice)
Q_DECLARE_METATYPE(QIcon::Mode)
Q_DECLARE_METATYPE(QIcon::State)

namespace {

double luminance(const QColor &color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double light = qMax(luminance(a), luminance(b));
    const double dark = qMin(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

const QColor darkText(0xe8, 0xe8, 0xea);
const QColor lightText(0x20, 0x20, 0x24);
const QColor darkAccent(0xf2, 0xb1, 0x55);
const QColor lightAccent(0xa5, 0x5c, 0x08);

} // namespace

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void colorsAreTellable_data();
    void colorsAreTellable();
    void fieldsHaveBorders_data() { addThemes(); }
    void fieldsHaveBorders();
    void iconTakesColors_data();
    void iconTakesColors();
    void iconIsCrisp_data();
    void iconIsCrisp();
    void checkedMenuEntryIsReadable_data() { addThemes(); }
    void checkedMenuEntryIsReadable();
    void switchesLive();
    void tellsMissingDisplay_data();
    void tellsMissingDisplay();

private:
    static void addThemes();

    QTemporaryDir m_folder;
    /// The left half in the text's colour, the right one in the accent's.
    QIcon m_icon;
};

void TestTheme::initTestCase()
{
    QFile file(m_folder.filePath(QStringLiteral("halves.svg")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'>"
               "<path d='M0 0h4v8h-4z' fill='#E8e8ea'/>"
               "<path d='M4 0h4v8h-4z' fill='#f2B155'/></svg>");
    file.close();
    m_icon = themedIcon(file.fileName());
    QVERIFY(!m_icon.isNull());
    QVERIFY(themedIcon(QStringLiteral(":/none.svg")).isNull());
}

void TestTheme::addThemes()
{
    QTest::addColumn<ThemeChoice>("theme");
    QTest::newRow("dark") << ThemeChoice::Dark;
    QTest::newRow("light") << ThemeChoice::Light;
}

void TestTheme::colorsAreTellable_data()
{
    QTest::addColumn<QColor>("front");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<double>("least");
    for (const ThemeChoice theme : {ThemeChoice::Dark, ThemeChoice::Light}) {
        applyTheme(theme);
        const QPalette palette = QApplication::palette();
        const ThemeColors colors = themeColors(palette);
        const auto add =
            [theme](const char *name, const QColor &front, const QColor &ground, double least) {
                QTest::addRow("%s %s", theme == ThemeChoice::Dark ? "dark" : "light", name)
                    << front << ground << least;
            };
        const QColor &window = palette.color(QPalette::Window);
        const QColor &base = palette.color(QPalette::Base);
        add("text on window", palette.color(QPalette::WindowText), window, 4.5);
        add("text on base", palette.color(QPalette::Text), base, 4.5);
        add("text on other rows",
            palette.color(QPalette::Text),
            palette.color(QPalette::AlternateBase),
            4.5);
        add("text of buttons",
            palette.color(QPalette::ButtonText),
            palette.color(QPalette::Button),
            4.5);
        add("tool tip",
            palette.color(QPalette::ToolTipText),
            palette.color(QPalette::ToolTipBase),
            4.5);
        add("placeholder", palette.color(QPalette::PlaceholderText), base, 4.5);
        add("selected",
            palette.color(QPalette::HighlightedText),
            palette.color(QPalette::Highlight),
            4.5);
        for (const QColor &ground : {window, base}) {
            add("link", palette.color(QPalette::Link), ground, 4.5);
            add("visited link", palette.color(QPalette::LinkVisited), ground, 4.5);
            add("bright", palette.color(QPalette::BrightText), ground, 4.5);
            add("quiet", colors.quietText, ground, 4.5);
            add("trouble", colors.trouble, ground, 4.5);
            add("field", colors.field, ground, 3.0);
            add("accent", colors.accent, ground, 3.0);
        }
        add("disabled", palette.color(QPalette::Disabled, QPalette::WindowText), window, 2.5);
        add("disabled beside enabled",
            palette.color(QPalette::Disabled, QPalette::WindowText),
            palette.color(QPalette::WindowText),
            2.5);
    }
}

void TestTheme::colorsAreTellable()
{
    QFETCH(QColor, front);
    QFETCH(QColor, ground);
    QFETCH(double, least);
    const double found = contrast(front, ground);
    QVERIFY2(found >= least, qPrintable(QString::number(found)));
}

void TestTheme::fieldsHaveBorders()
{
    QFETCH(ThemeChoice, theme);
    applyTheme(theme);
    QLineEdit line;
    QSpinBox spin;
    QComboBox combo;
    QCheckBox check;
    for (QWidget *field : QList<QWidget *>{&line, &spin, &combo, &check}) {
        field->resize(field->sizeHint());
        const QImage image = field->grab().toImage();
        const QColor ground = field->palette().color(QPalette::Window);
        double best = 0;
        for (int x = 0; x < 6; ++x)
            best = qMax(best, contrast(image.pixelColor(x, image.height() / 2), ground));
        QVERIFY2(best >= 3.0, field->metaObject()->className());
    }
}

void TestTheme::iconTakesColors_data()
{
    QTest::addColumn<ThemeChoice>("theme");
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<QIcon::State>("state");
    QTest::addColumn<QColor>("left");
    QTest::addColumn<QColor>("right");
    const QColor darkOn(0x1d, 0x1d, 0x1f);
    const QColor none;
    const auto dark = ThemeChoice::Dark;
    const auto light = ThemeChoice::Light;
    QTest::newRow("dark") << dark << QIcon::Normal << QIcon::Off << darkText << darkAccent;
    QTest::newRow("hovered") << dark << QIcon::Active << QIcon::Off << darkText << darkAccent;
    QTest::newRow("checked") << dark << QIcon::Normal << QIcon::On << darkOn << darkOn;
    QTest::newRow("selected") << dark << QIcon::Selected << QIcon::Off << darkOn << darkOn;
    QTest::newRow("disabled") << dark << QIcon::Disabled << QIcon::Off << none << none;
    QTest::newRow("light") << light << QIcon::Normal << QIcon::Off << lightText << lightAccent;
    QTest::newRow("light checked")
        << light << QIcon::Normal << QIcon::On << QColor(Qt::white) << QColor(Qt::white);
    QTest::newRow("light disabled") << light << QIcon::Disabled << QIcon::On << none << none;
}

void TestTheme::iconTakesColors()
{
    QFETCH(ThemeChoice, theme);
    QFETCH(QIcon::Mode, mode);
    QFETCH(QIcon::State, state);
    QFETCH(QColor, left);
    QFETCH(QColor, right);
    applyTheme(theme);
    const QColor quiet = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
    const QImage image = m_icon.pixmap(QSize(16, 16), mode, state).toImage();
    QCOMPARE(image.pixelColor(4, 8), left.isValid() ? left : quiet);
    QCOMPARE(image.pixelColor(11, 8), right.isValid() ? right : quiet);
}

void TestTheme::iconIsCrisp_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void TestTheme::iconIsCrisp()
{
    QFETCH(double, ratio);
    applyTheme(ThemeChoice::Dark);
    const int side = qRound(16 * ratio);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    m_icon.paint(&painter, 0, 0, 16, 16);
    painter.end();
    // Stretched from another size, the edge would be a mixture.
    QCOMPARE(image.pixelColor(side / 2 - 1, side / 2), darkText);
    QCOMPARE(image.pixelColor(side / 2, side / 2), darkAccent);
    QCOMPARE(image.pixelColor(side - 1, side - 1), darkAccent);
}

void TestTheme::checkedMenuEntryIsReadable()
{
    QFETCH(ThemeChoice, theme);
    applyTheme(theme);
    QMenu menu;
    QAction *action = menu.addAction(m_icon, QStringLiteral("Lit"));
    action->setCheckable(true);
    action->setChecked(true);
    menu.resize(menu.sizeHint());
    const QImage image = menu.grab().toImage();
    const QRect entry = menu.actionGeometry(action);
    const QColor icon = themeColors(menu.palette()).onAccent;
    const QColor ground = themeColors(menu.palette()).accent;
    int iconPixels = 0;
    int groundPixels = 0;
    for (int x = 0; x < entry.height(); ++x) {
        const QColor pixel = image.pixelColor(entry.x() + x, entry.center().y());
        iconPixels += pixel == icon ? 1 : 0;
        groundPixels += pixel == ground ? 1 : 0;
    }
    QVERIFY(iconPixels >= 12);
    QVERIFY(groundPixels >= 2);
}

void TestTheme::switchesLive()
{
    applyTheme(ThemeChoice::Dark);
    QWidget window;
    QToolButton button(&window);
    button.setAutoRaise(true);
    button.setIcon(m_icon);
    button.setIconSize(QSize(16, 16));
    button.resize(24, 24);
    QWidget line(&window);
    line.setStyleSheet(QStringLiteral("background: palette(shadow);"));
    line.setGeometry(40, 0, 10, 10);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const bool isDark : {true, false, true}) {
        applyTheme(isDark ? ThemeChoice::Dark : ThemeChoice::Light);
        const QImage image = window.grab().toImage();
        QCOMPARE(image.pixelColor(8, 12), isDark ? darkText : lightText);
        QCOMPARE(image.pixelColor(15, 12), isDark ? darkAccent : lightAccent);
        QCOMPARE(image.pixelColor(45, 5), themeColors(window.palette()).line);
    }
    // Nothing here tells what the desktop likes.
    applyTheme(ThemeChoice::Light);
    applyTheme(ThemeChoice::System);
    QCOMPARE(QApplication::palette().color(QPalette::WindowText), darkText);
}

void TestTheme::tellsMissingDisplay_data()
{
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("argument");
    QTest::addColumn<QString>("part");
    QTest::newRow("no display") << QByteArray() << QByteArray() << QByteArray()
                                << QStringLiteral("(DISPLAY is not set)");
    QTest::newRow("nobody answers")
        << QByteArray("xcb") << QByteArray(":4711") << QByteArray() << QStringLiteral("\":4711\"");
    QTest::newRow("no socket") << QByteArray("wayland") << QByteArray() << QByteArray()
                               << QStringLiteral("/nowhere/none");
    QTest::newRow("the second answers")
        << QByteArray("wayland;offscreen") << QByteArray() << QByteArray() << QString();
    QTest::newRow("by argument") << QByteArray("xcb") << QByteArray(":4711")
                                 << QByteArray("offscreen:x") << QString();
}

void TestTheme::tellsMissingDisplay()
{
    QFETCH(QByteArray, platform);
    QFETCH(QByteArray, display);
    QFETCH(QByteArray, argument);
    QFETCH(QString, part);
    QHash<QByteArray, QByteArray> former;
    const QHash<QByteArray, QByteArray> wanted{{"QT_QPA_PLATFORM", platform},
                                               {"DISPLAY", display},
                                               {"XDG_SESSION_TYPE", "x11"},
                                               {"WAYLAND_DISPLAY", "none"},
                                               {"XDG_RUNTIME_DIR", "/nowhere"}};
    for (auto one = wanted.cbegin(); one != wanted.cend(); ++one) {
        former.insert(one.key(), qgetenv(one.key()));
        one->isEmpty() ? qunsetenv(one.key()) : qputenv(one.key(), *one);
    }
    const char *arguments[] = {"program", "--platform", argument.constData()};
    const QString reason = missingDisplay(argument.isEmpty() ? 1 : 3, arguments);
    for (auto one = former.cbegin(); one != former.cend(); ++one)
        one->isEmpty() ? qunsetenv(one.key()) : qputenv(one.key(), *one);
    QCOMPARE(reason.isEmpty(), part.isEmpty());
    QVERIFY2(reason.contains(part), qPrintable(reason));
}

QTEST_MAIN(TestTheme)
#include "tst_Theme.moc"
