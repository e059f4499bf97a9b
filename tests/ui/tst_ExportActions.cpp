#include "base/GFileName.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"
#include "support/DialogScript.h"
#include "support/Studio.h"
#include "support/WindowTest.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>

namespace {
constexpr auto click = &DialogScript::click;
constexpr auto choose = &DialogScript::chooseFile;

/// The window with sprites of 16 by 16 pixels, and answers to its dialogs.
class Desk : public OpenWindow
{
public:
    explicit Desk(const QStringList &fileNames)
    {
        showActive(window);
        QStringList paths;
        for (const QString &name : fileNames)
            paths.append(folder.writeSprite(name, {16, 16}));
        window.openOrAdd(paths);
    }

    Project &project() const { return window.project(); }

    void trigger(const QString &text, const std::vector<DialogScript::Answer> &answers)
    {
        for (const auto &answer : answers)
            script.then(answer);
        EditorUser(window).action(text).trigger();
    }

    DialogScript script;
};
} // namespace

class TestExportActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { application().settings().clear(); }

    void publishDialogAsksUntilTheSpritesAreSafe()
    {
        Desk desk({"a.png"_s});
        const auto clear = [](QWidget &dialog) {
            for (auto *edit : dialog.findChildren<QLineEdit *>())
                edit->clear();
            click("OK"_s)(dialog);
        };
        desk.trigger("Export normals"_s, {clear, click("Back"_s), click("Cancel"_s)});
        QCOMPARE(QDir(desk.folder.path(QString())).entryList(QDir::Files), QStringList{"a.png"_s});

        desk.trigger("Export normals"_s, {click("OK"_s), click("OK"_s)});
        QCOMPARE(desk.script.seen().last(), "|Exported 1 normal maps|to sprite directory"_s);
        QCOMPARE(QImage(desk.folder.path("a_n.png"_s)).pixel(0, 0), 0xFF7F7FFFU);

        // The settings are known now: no dialog, but the report.
        const QString deep = desk.folder.path("maps/deep"_s);
        desk.project().publishDirectory().setValue(GFileName(deep));
        desk.trigger("Export normals"_s, {click("OK"_s)});
        QVERIFY(desk.script.seen().last().endsWith("|to "_s + deep));
        QVERIFY(QFile::exists(deep + "/a_n.png"_s));

        // Somebody's own work is replaced only when the user says so.
        const QString foreign = desk.folder.write("maps/deep/a_n.png"_s, "foreign");
        desk.trigger("Export normals"_s, {click("Keep the files"_s)});
        QCOMPARE(contentOf(foreign), QByteArray("foreign"));
        desk.trigger("Export normals"_s, {click("Replace"_s), click("OK"_s)});
        QCOMPARE(QImage(foreign).size(), QSize(16, 16));
        QVERIFY(desk.script.isDone());
    }

    void publishDialogTakesWhatCanBeWritten()
    {
        Desk desk({"a.png"_s});
        const auto type = [](const QString &directory, const QString &suffix, const QString &told) {
            return [=](QWidget &dialog) {
                shownChild<QLineEdit>(dialog, "Output directory:"_s).setText(directory);
                shownChild<QLineEdit>(dialog, "Normal map suffix:"_s).setText(suffix);
                const auto *buttons = dialog.findChild<QDialogButtonBox *>();
                const bool isTaken = buttons->button(QDialogButtonBox::Ok)->isEnabled();
                const bool isTold = told.isEmpty() || showsText(dialog, told);
                click(isTaken ? "OK"_s : "Cancel"_s)(dialog);
                QCOMPARE(isTaken, told.isEmpty());
                QVERIFY(isTold);
            };
        };
        const auto as = "Export normals as..."_s;
        desk.trigger(as, {type({}, "_n/"_s, "'_n/' can't be a part of a file's name"_s)});
        desk.trigger(as, {type({}, R"(\n)"_s, R"('\n' can't be a part of a file's name)"_s)});
        desk.trigger(
            as,
            {type("maps"_s,
                  "_n"_s,
                  "'maps' counts from the folder of the project, which is not saved yet. Save "
                  "the project first, or give the whole path."_s)});
        QVERIFY(desk.project().publishDirectory().value().isEmpty());

        // From the project's folder, whatever the program's is.
        desk.project().filename().setValue(GFileName(desk.folder.path("p.vep"_s)));
        desk.trigger(as,
                     {type("../%1/maps"_s.arg(QDir(desk.folder.path({})).dirName()), "_n"_s, {}),
                      click("OK"_s)});
        QCOMPARE(desk.project().publishDirectory().value().path(), desk.folder.path("maps"_s));
        QVERIFY(QFile::exists(desk.folder.path("maps/a_n.png"_s)));
        QVERIFY(desk.script.isDone());
    }

    void exportsALitSpriteBesideTheSprite()
    {
        Desk desk({"hero.png"_s});
        const auto accept = [](QWidget &dialog) { QMetaObject::invokeMethod(&dialog, "accept"); };
        desk.trigger("Export lit sprite"_s, {accept});
        QCOMPARE(QImage(desk.folder.path("hero_lit.png"_s)).size(), QSize(16, 16));

        desk.trigger("Export lit sprite"_s, {choose(desk.folder.path("named"_s))});
        QVERIFY(QFile::exists(desk.folder.path("named.png"_s)));

        const QString unknown = desk.folder.path("lit.unknown"_s);
        desk.trigger("Export lit sprite"_s, {choose(unknown), click("Close"_s)});
        QCOMPARE(desk.script.seen().last(), "Error|Export to '%1' failed!|"_s.arg(unknown));

        const QString sprite = desk.folder.path("hero.png"_s);
        const QByteArray content = contentOf(sprite);
        const auto replace = [&sprite](QWidget &dialog) {
            dynamic_cast<QFileDialog &>(dialog).setOption(QFileDialog::DontConfirmOverwrite);
            choose(sprite)(dialog);
        };
        desk.trigger("Export lit sprite"_s, {replace, click("OK"_s)});
        QVERIFY(desk.script.seen().last().contains("stays as it is"_s));
        QCOMPARE(contentOf(sprite), content);
        QVERIFY(desk.script.isDone());
    }
};

int main(int argc, char **argv)
{
    return runWindowTest<TestExportActions>(argc, argv);
}

#include "tst_ExportActions.moc"
