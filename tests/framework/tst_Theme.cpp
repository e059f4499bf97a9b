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
    void initTestCase()
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

    void colorsAreTellable_data()
    {
        QTest::addColumn<QColor>("front");
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<double>("least");
        for (const ThemeChoice theme : {ThemeChoice::Dark, ThemeChoice::Light}) {
            applyTheme(theme);
            const QPalette palette = QApplication::palette();
            const ThemeColors colors = themeColors(palette);
            const QByteArray prefix = theme == ThemeChoice::Dark ? "dark " : "light ";
            const auto add =
                [&](const char *name, const QColor &front, const QColor &ground, double least) {
                    QTest::newRow(prefix + name) << front << ground << least;
                };
            const auto addRoles =
                [&](const char *name, QPalette::ColorRole front, QPalette::ColorRole ground) {
                    add(name, palette.color(front), palette.color(ground), 4.5);
                };
            addRoles("text on window", QPalette::WindowText, QPalette::Window);
            addRoles("text on base", QPalette::Text, QPalette::Base);
            addRoles("text on other rows", QPalette::Text, QPalette::AlternateBase);
            addRoles("text of buttons", QPalette::ButtonText, QPalette::Button);
            addRoles("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
            addRoles("placeholder", QPalette::PlaceholderText, QPalette::Base);
            addRoles("selected", QPalette::HighlightedText, QPalette::Highlight);
            for (const auto role : {QPalette::Window, QPalette::Base}) {
                const QColor &ground = palette.color(role);
                addRoles("link", QPalette::Link, role);
                addRoles("visited link", QPalette::LinkVisited, role);
                addRoles("bright", QPalette::BrightText, role);
                add("quiet", colors.quietText, ground, 4.5);
                add("trouble", colors.trouble, ground, 4.5);
                add("field", colors.field, ground, 3.0);
                add("accent", colors.accent, ground, 3.0);
            }
            const QColor &disabled = palette.color(QPalette::Disabled, QPalette::WindowText);
            add("disabled", disabled, palette.color(QPalette::Window), 2.5);
            add("disabled beside enabled", disabled, palette.color(QPalette::WindowText), 2.5);
        }
    }

    void colorsAreTellable()
    {
        QFETCH(QColor, front);
        QFETCH(QColor, ground);
        QFETCH(double, least);
        const double found = contrast(front, ground);
        QVERIFY2(found >= least, qPrintable(QString::number(found)));
    }

    void fieldsHaveBorders_data() { addThemes(); }
    void fieldsHaveBorders()
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

    void iconTakesColors_data() { addThemes(); }
    void iconTakesColors()
    {
        QFETCH(ThemeChoice, theme);
        applyTheme(theme);
        const QPalette palette = QApplication::palette();
        const QColor onAccent = themeColors(palette).onAccent;
        const QColor &quiet = palette.color(QPalette::Disabled, QPalette::WindowText);
        const auto compare = [&](QIcon::Mode mode, QIcon::State state, const QColor &expected) {
            const QImage image = m_icon.pixmap(QSize(16, 16), mode, state).toImage();
            QCOMPARE(image.pixelColor(4, 8), expected);
            QCOMPARE(image.pixelColor(11, 8), expected);
        };
        compare(QIcon::Normal, QIcon::On, onAccent);
        compare(QIcon::Selected, QIcon::Off, onAccent);
        compare(QIcon::Disabled, QIcon::Off, quiet);
        compare(QIcon::Disabled, QIcon::On, quiet);
    }

    void iconIsCrisp()
    {
        applyTheme(ThemeChoice::Dark);
        QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(1.5);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        m_icon.paint(&painter, 0, 0, 16, 16);
        painter.end();
        // Stretched from another size, the edge would be a mixture.
        QCOMPARE(image.pixelColor(11, 12), darkText);
        QCOMPARE(image.pixelColor(12, 12), darkAccent);
        QCOMPARE(image.pixelColor(23, 23), darkAccent);
    }

    void checkedMenuEntryIsReadable_data() { addThemes(); }
    void checkedMenuEntryIsReadable()
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

    void switchesLive()
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

    void tellsMissingDisplay_data()
    {
        QTest::addColumn<QByteArray>("platform");
        QTest::addColumn<QByteArray>("display");
        QTest::addColumn<QByteArray>("argument");
        QTest::addColumn<QString>("part");
        const QByteArray none;
        QTest::newRow("no display")
            << none << none << none << QStringLiteral("(DISPLAY is not set)");
        QTest::newRow("nobody answers")
            << QByteArray("xcb") << QByteArray(":4711") << none << QStringLiteral("\":4711\"");
        QTest::newRow("no socket")
            << QByteArray("wayland") << none << none << QStringLiteral("/nowhere/none");
        QTest::newRow("the second answers")
            << QByteArray("wayland;offscreen") << none << none << QString();
        QTest::newRow("by argument")
            << QByteArray("xcb") << QByteArray(":4711") << QByteArray("offscreen:x") << QString();
    }

    void tellsMissingDisplay()
    {
        QFETCH(QByteArray, platform);
        QFETCH(QByteArray, display);
        QFETCH(QByteArray, argument);
        QFETCH(QString, part);
        const QHash<QByteArray, QByteArray> wanted{{"QT_QPA_PLATFORM", platform},
                                                   {"DISPLAY", display},
                                                   {"XDG_SESSION_TYPE", "x11"},
                                                   {"WAYLAND_DISPLAY", "none"},
                                                   {"XDG_RUNTIME_DIR", "/nowhere"}};
        // This program is connected already.
        for (auto one = wanted.cbegin(); one != wanted.cend(); ++one)
            one->isEmpty() ? qunsetenv(one.key()) : qputenv(one.key(), *one);
        const char *arguments[] = {"program", "--platform", argument.constData()};
        const QString reason = missingDisplay(argument.isEmpty() ? 1 : 3, arguments);
        QCOMPARE(reason.isEmpty(), part.isEmpty());
        QVERIFY2(reason.contains(part), qPrintable(reason));
    }

private:
    static void addThemes()
    {
        QTest::addColumn<ThemeChoice>("theme");
        QTest::newRow("dark") << ThemeChoice::Dark;
        QTest::newRow("light") << ThemeChoice::Light;
    }

    QTemporaryDir m_folder;
    /// The left half in the text's colour, the right one in the accent's.
    QIcon m_icon;
};

QTEST_MAIN(TestTheme)
#include "tst_Theme.moc"
