#include "base/GSettings.h"
#include "framework/GMainWindow.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Widgets.h"

#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace {
/// A window whose document is a name and a flag.
class FakeWindow : public GMainWindow
{
    Q_OBJECT

public:
    explicit FakeWindow(GSettings &settings)
        : GMainWindow(settings,
                      {"Documents (*.doc *.old)"_s, "Documents (*.doc)"_s, "doc"_s, "Untitled"_s})
    {
        QMenu *file = menuBar()->addMenu("&File"_s);
        addDocumentActions(*file);
        addClosingActions(*file);
    }

    using GMainWindow::updateTitle;

    QString m_path;
    bool m_isModified = false;
    bool m_failsToStore = false;
    QStringList m_log;

protected:
    void createDocument() override { become("created"_s, {}); }
    bool loadDocument(const QString &path) override
    {
        if (!QFile::exists(path))
            return false;
        become("loaded"_s, path);
        return true;
    }
    bool storeDocument(const QString &path) override
    {
        if (m_failsToStore)
            return false;
        become("stored"_s, path);
        return QFile(path).open(QIODevice::WriteOnly);
    }
    QString documentPath() const override { return m_path; }
    bool isDocumentModified() const override { return m_isModified; }
    QString systemInformation() const override { return {}; }

private:
    void become(const QString &event, const QString &path)
    {
        m_log.append(event);
        m_path = path;
        m_isModified = false;
    }
};

} // namespace

class TestGMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QGuiApplication::setApplicationDisplayName("Program"_s);
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }

    void init()
    {
        m_folder = Folder();
        m_settings = std::make_unique<GSettings>();
        m_settings->setValue("documentFolder"_s, file(QString()));
    }

    void asksForUnsavedChanges_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("fails");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("save") << "Save"_s << false << true;
        QTest::newRow("save fails") << "Save"_s << true << false;
        QTest::newRow("discard") << "Discard"_s << true << true;
        QTest::newRow("cancel") << "Cancel"_s << false << false;
    }

    void asksForUnsavedChanges()
    {
        QFETCH(QString, button);
        QFETCH(bool, fails);
        QFETCH(bool, goesOn);
        const QString other = m_folder.write("other.doc"_s, {});
        for (const char *command : {"created", "loaded", "closed"}) {
            const QString event = QLatin1String(command);
            FakeWindow window(*m_settings);
            window.show();
            window.m_path = file("mine.doc"_s);
            window.m_isModified = true;
            window.m_failsToStore = fails;
            DialogScript script;
            script.then(DialogScript::click(button));
            if (event == QLatin1String("created"))
                window.newDocument();
            else if (event == QLatin1String("loaded"))
                QCOMPARE(window.openPath(other), goesOn);
            else if (window.close())
                window.m_log.append(event);
            QVERIFY(script.isDone() && script.seen().first().contains("mine.doc"_s));
            QStringList expected;
            if (goesOn && !fails)
                expected.append("stored"_s);
            if (goesOn)
                expected.append(event);
            QCOMPARE(window.m_log, expected);
        }
    }

    void savesUnderChosenName_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<QString>("saved");
        const QStringList none;
        QTest::newRow("suffix is added") << "hero"_s << none << "hero.doc"_s;
        QTest::newRow("former suffix stays") << "hero.old"_s << none << "hero.old"_s;
        QTest::newRow("suffix of another kind is a part of the name")
            << "hero 1.5"_s << none << "hero 1.5.doc"_s;
        QTest::newRow("existing name with suffix is replaced")
            << "there"_s << QStringList{"Replace"_s} << "there.doc"_s;
        QTest::newRow("refused, another one is chosen")
            << "there"_s << QStringList{"Cancel"_s, "Cancel"_s} << QString();
    }

    void savesUnderChosenName()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, clicks);
        QFETCH(QString, saved);
        m_folder.write("there.doc"_s, {});
        FakeWindow window(*m_settings);
        window.m_isModified = true;
        window.updateTitle();
        DialogScript script;
        script.then(DialogScript::chooseFile(file(typed)));
        for (const QString &button : clicks)
            script.then(DialogScript::click(button));
        QCOMPARE(window.save(), !saved.isEmpty());
        QVERIFY(script.isDone());
        QCOMPARE(window.m_path, saved.isEmpty() ? QString() : file(saved));
        QCOMPARE(window.isWindowModified(), saved.isEmpty());
    }

private:
    QString file(const QString &name) const { return m_folder.path(name); }

    Folder m_folder;
    std::unique_ptr<GSettings> m_settings;
};

QTEST_MAIN(TestGMainWindow)
#include "tst_GMainWindow.moc"
