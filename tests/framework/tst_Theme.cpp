#include "framework/MissingDisplay.h"
#include "framework/Theme.h"
#include "framework/ThemedIcon.h"
#include "support/Documents.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QSpinBox>
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

} // namespace

class TestTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QByteArray halves = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'>"
                                  "<path d='M0 0h4v8h-4z' fill='#E8e8ea'/>"
                                  "<path d='M4 0h4v8h-4z' fill='#f2B155'/></svg>";
        m_icon = themedIcon(m_folder.write(QStringLiteral("halves.svg"), halves));
        QVERIFY(!m_icon.isNull());
        QVERIFY(themedIcon(QStringLiteral(":/none.svg")).isNull());
    }

    void colorsAreTellable_data() { addThemes(); }
    void colorsAreTellable()
    {
        QFETCH(ThemeChoice, theme);
        applyTheme(theme);
        const QPalette palette = QApplication::palette();
        const ThemeColors colors = themeColors(palette);
        QStringList faults;
        const auto check =
            [&](const char *name, const QColor &front, const QColor &ground, double least) {
                const double found = contrast(front, ground);
                if (found < least)
                    faults.append(QStringLiteral("%1: %2").arg(QLatin1String(name)).arg(found));
            };
        const auto checkText =
            [&](const char *name, QPalette::ColorRole front, QPalette::ColorRole ground) {
                check(name, palette.color(front), palette.color(ground), 4.5);
            };
        checkText("text on base", QPalette::Text, QPalette::Base);
        checkText("text on other rows", QPalette::Text, QPalette::AlternateBase);
        checkText("text of buttons", QPalette::ButtonText, QPalette::Button);
        checkText("tool tip", QPalette::ToolTipText, QPalette::ToolTipBase);
        checkText("placeholder", QPalette::PlaceholderText, QPalette::Base);
        checkText("selected", QPalette::HighlightedText, QPalette::Highlight);
        for (const auto role : {QPalette::Window, QPalette::Base}) {
            const QColor &ground = palette.color(role);
            checkText("text", QPalette::WindowText, role);
            checkText("link", QPalette::Link, role);
            checkText("visited link", QPalette::LinkVisited, role);
            checkText("bright", QPalette::BrightText, role);
            check("quiet", colors.quietText, ground, 4.5);
            check("trouble", colors.trouble, ground, 4.5);
            check("field", colors.field, ground, 3.0);
            check("accent", colors.accent, ground, 3.0);
        }
        const QColor &disabled = palette.color(QPalette::Disabled, QPalette::WindowText);
        check("disabled", disabled, palette.color(QPalette::Window), 2.5);
        check("disabled beside enabled", disabled, palette.color(QPalette::WindowText), 2.5);
        QCOMPARE(faults.join(QLatin1String(", ")), QString());
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

    void iconIsCrispInItsColors_data() { addThemes(); }
    void iconIsCrispInItsColors()
    {
        QFETCH(ThemeChoice, theme);
        applyTheme(theme);
        const QPalette palette = QApplication::palette();
        const ThemeColors colors = themeColors(palette);
        const QColor &text = palette.color(QPalette::WindowText);
        const QColor &quiet = palette.color(QPalette::Disabled, QPalette::WindowText);
        const auto compare =
            [&](QIcon::Mode mode, QIcon::State state, const QColor &left, const QColor &right) {
                QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
                image.setDevicePixelRatio(1.5);
                image.fill(Qt::transparent);
                QPainter painter(&image);
                painter.setRenderHint(QPainter::SmoothPixmapTransform);
                m_icon.paint(&painter, QRect(0, 0, 16, 16), Qt::AlignCenter, mode, state);
                painter.end();
                // Stretched from another size, the edge would be a mixture.
                QCOMPARE(image.pixelColor(11, 12), left);
                QCOMPARE(image.pixelColor(12, 12), right);
                QCOMPARE(image.pixelColor(23, 23), right);
            };
        compare(QIcon::Normal, QIcon::Off, text, colors.accent);
        compare(QIcon::Active, QIcon::Off, text, colors.accent);
        compare(QIcon::Normal, QIcon::On, colors.onAccent, colors.onAccent);
        compare(QIcon::Selected, QIcon::Off, colors.onAccent, colors.onAccent);
        compare(QIcon::Disabled, QIcon::Off, quiet, quiet);
        compare(QIcon::Disabled, QIcon::On, quiet, quiet);
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
            const QPalette palette = window.palette();
            QCOMPARE(isDarkPalette(palette), isDark);
            QCOMPARE(image.pixelColor(8, 12), palette.color(QPalette::WindowText));
            QCOMPARE(image.pixelColor(15, 12), themeColors(palette).accent);
            QCOMPARE(image.pixelColor(45, 5), themeColors(palette).line);
        }
        // Nothing here tells what the desktop likes.
        applyTheme(ThemeChoice::Light);
        applyTheme(ThemeChoice::System);
        QVERIFY(isDarkPalette(QApplication::palette()));
    }

    void tellsMissingDisplay()
    {
        qputenv("XDG_SESSION_TYPE", "x11");
        qputenv("WAYLAND_DISPLAY", "none");
        qputenv("XDG_RUNTIME_DIR", "/nowhere");
        // This program is connected already.
        const auto reason = [](const char *platform, const char *display) {
            qputenv("QT_QPA_PLATFORM", platform);
            qputenv("DISPLAY", display);
            return missingDisplay(0, nullptr);
        };
        QVERIFY(reason("", "").contains(QLatin1String("(DISPLAY is not set)")));
        QVERIFY(reason("xcb", ":4711").contains(QLatin1String("\":4711\"")));
        QVERIFY(reason("wayland", "").contains(QLatin1String("/nowhere/none")));
        QCOMPARE(reason("wayland;offscreen", ""), QString());
        qputenv("QT_QPA_PLATFORM", "xcb");
        const char *arguments[] = {"program", "--platform", "offscreen:x"};
        QCOMPARE(missingDisplay(3, arguments), QString());
    }

private:
    static void addThemes()
    {
        QTest::addColumn<ThemeChoice>("theme");
        QTest::newRow("dark") << ThemeChoice::Dark;
        QTest::newRow("light") << ThemeChoice::Light;
    }

    Folder m_folder;
    /// The left half in the text's colour, the right one in the accent's.
    QIcon m_icon;
};

QTEST_MAIN(TestTheme)
#include "tst_Theme.moc"
