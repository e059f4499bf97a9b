#include "framework/Theme.h"
#include "framework/ThemedIcon.h"
#include "support/Documents.h"

#include <QApplication>
#include <QTest>
#include <QToolButton>

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
            QTRY_COMPARE(isDarkPalette(window.palette()), isDark);
            const QImage image = window.grab().toImage();
            const QPalette palette = window.palette();
            QCOMPARE(image.pixelColor(8, 12), palette.color(QPalette::WindowText));
            QCOMPARE(image.pixelColor(15, 12), themeColors(palette).accent);
            QCOMPARE(image.pixelColor(45, 5), themeColors(palette).line);
        }
        // Nothing here tells what the desktop likes.
        applyTheme(ThemeChoice::Light);
        applyTheme(ThemeChoice::System);
        QVERIFY(isDarkPalette(QApplication::palette()));
    }

private:
    Folder m_folder;
    /// The left half in the text's colour, the right one in the accent's.
    QIcon m_icon;
};

QTEST_MAIN(TestTheme)
#include "tst_Theme.moc"
