#include "support/Documents.h"
#include "support/SaidBy.h"
#include "support/Widgets.h"

#include <QDir>
#include <QDirIterator>
#include <QMimeDatabase>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

/// What "cmake --install" puts into a folder, used from there and from where it is moved to.
class TestInstallation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *name : {"first", "second"})
            said("cmake"_s,
                 {"--install"_s,
                  QStringLiteral(BUILD_FOLDER),
                  "--strip"_s,
                  "--prefix"_s,
                  path(name)});
        QVERIFY(QDir().rename(path("second"), path("moved elsewhere")));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(path("first/share")));
        qputenv("XDG_DATA_HOME", QFile::encodeName(path("home")));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(path("home")));
    }

    // Nothing that is installed knows where, nor where it was built.
    void relocatable()
    {
        int count = 0;
        const QDir first(path("first"));
        QDirIterator files(first.path(), QDir::Files, QDirIterator::Subdirectories);
        for (; files.hasNext(); ++count) {
            const QString name = first.relativeFilePath(files.next());
            const QByteArray content = contentOf(files.filePath());
            QVERIFY2(!content.isEmpty(), qPrintable(name));
            QVERIFY2(content == contentOf(path("moved elsewhere/") + name), qPrintable(name));
            for (const QByteArray &place : {QFile::encodeName(path("")), QByteArray(BUILD_FOLDER)})
                QVERIFY2(!content.contains(place), qPrintable(name));
        }
        QVERIFY(count > 40);
    }

    void programs()
    {
        qunsetenv("DISPLAY");
        qunsetenv("WAYLAND_DISPLAY");
        for (const QString &place : {path("first"), path("moved elsewhere")}) {
            const QString editor = place + "/bin/vesperine"_s;
            QVERIFY(said(editor, {"--version"_s}).startsWith("vesperine "));
            QVERIFY(said(editor, {"--help"_s}).contains("--flushsettings"));
            const QByteArray maps = said(place + "/bin/vesperine-cli"_s,
                                         {"export"_s,
                                          place + "/share/vesperine/samples/sample.vep"_s,
                                          "--output"_s,
                                          path("maps")});
            QCOMPARE(maps.count('\n'), 8);
        }
    }

    void mimeType_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("isOurs");

        const QByteArray archive = contentOf(path("first/share/vesperine/samples/sample.vep"));
        const QByteArray other = "PK\3\4" + QByteArray(26, '\0') + "a.txt";
        const QByteArray older = "PK\3\4" + QByteArray(26, '\0') + "my.veproject/";
        const QByteArray text("<!DOCTYPE vesperine_project>\n<vesperine_project/>\n");
        QTest::newRow("archive") << "a.vep" << archive << true;
        QTest::newRow("archive without a name") << "a" << archive << true;
        QTest::newRow("older archive without a name") << "a" << older << true;
        QTest::newRow("text") << "a.vex" << text << true;
        QTest::newRow("text without a name") << "a" << text << true;
        QTest::newRow("only the name") << "A.VEP" << QByteArray() << true;
        QTest::newRow("other archive") << "a.zip" << other << false;
        QTest::newRow("other text") << "a" << QByteArray("<x/>") << false;
    }

    void mimeType()
    {
        if (QStandardPaths::findExecutable("update-mime-database"_s).isEmpty())
            QSKIP("There is no update-mime-database");
        said("update-mime-database"_s, {path("first/share/mime")});
        QFETCH(const QString, name);
        QFETCH(const QByteArray, content);
        const QString ours = "application/x-vesperine-project"_s;
        const QMimeType found = QMimeDatabase().mimeTypeForFileNameAndData(name, content);
        QTEST(found.name() == ours, "isOurs");
        const QMimeType type = QMimeDatabase().mimeTypeForName(ours);
        QCOMPARE(type.suffixes(), QStringList({"vep"_s, "vex"_s}));
        QVERIFY(icons("mimetypes").contains(type.iconName()));
    }

    void desktopFiles()
    {
        const QString name = "org.vesperine.editor"_s;
        const QString entry = path("first/share/applications/") + name + ".desktop"_s;
        const QString about = path("first/share/metainfo/") + name + ".metainfo.xml"_s;
        QSettings desktop(entry, QSettings::IniFormat);
        desktop.beginGroup("Desktop Entry"_s);
        const QString program = desktop.value("TryExec"_s).toString();
        QVERIFY(QFile::exists(path("first/bin/") + program));
        QVERIFY(icons("apps").contains(desktop.value("Icon"_s).toString()));
        const QString validate = "desktop-file-validate"_s;
        const QString appstream = "appstreamcli"_s;
        if (QStandardPaths::findExecutable(validate).isEmpty() ||
            QStandardPaths::findExecutable(appstream).isEmpty())
            QSKIP("There is no desktop-file-validate or no appstreamcli");
        QCOMPARE(said(validate, {entry}), QByteArray());
        const QByteArray words =
            said(appstream, {"validate"_s, "--no-net"_s, "--pedantic"_s, about});
        QVERIFY2(words.trimmed().endsWith("Validation was successful."), words);
    }

    // As a file manager runs it, also in a sandbox that hides the sprites.
    void thumbnailer()
    {
        const QString sample = path("moved elsewhere/share/vesperine/samples/sample.vep");
        QVERIFY(QFile::copy(sample, path("alone.vep")));
        const QSettings file(path("first/share/thumbnailers/vesperine.thumbnailer"),
                             QSettings::IniFormat);
        const QStringList line = file.value("Thumbnailer Entry/Exec"_s).toString().split(u' ');
        for (const QString &project : {sample, path("alone.vep")}) {
            QStringList words = line;
            words.replaceInStrings("%s"_s, "128"_s);
            words.replaceInStrings("%i"_s, project);
            words.replaceInStrings("%o"_s, path("thumbnail.tmp"));
            said(path("moved elsewhere/bin/") + words.first(), words.mid(1));
            const QImage picture(path("thumbnail.tmp"), "PNG");
            QCOMPARE(picture.size(), QSize(128, 128));
            QCOMPARE(qAlpha(picture.pixel(32, 32)), 255);
        }
    }

private:
    QString path(const char *name) const { return m_folder.path(QLatin1String(name)); }

    // The names of the icons that are there in each size, which is their folder's.
    QStringList icons(const char *kind) const
    {
        QStringList names;
        const QDir theme(path("first/share/icons/hicolor"));
        const QStringList sizes = theme.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &size : sizes) {
            const QDir folder(theme.filePath(size + u'/' + QLatin1String(kind)));
            const QFileInfoList files = folder.entryInfoList(QDir::Files);
            for (const QFileInfo &file : files) {
                const QSize pixels = QImage(file.filePath()).size();
                const QString named = "%1x%2"_s.arg(pixels.width()).arg(pixels.height());
                if (size != QLatin1String("scalable") && size != named)
                    return {};
                names.append(file.completeBaseName());
            }
        }
        return sizes.size() == 9 && names.size() == 9 ? names : QStringList();
    }

    Folder m_folder;
};

QTEST_GUILESS_MAIN(TestInstallation)
#include "tst_Installation.moc"
