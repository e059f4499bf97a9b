#include "framework/CrashReportDialog.h"
#include "framework/Language.h"
#include "framework/UpdateDialog.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/RecoveryStore.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyListT.h"
#include "model/properties/PropertyT.h"
#include "support/PseudoLocale.h"
#include "support/ShownTexts.h"
#include "support/Studio.h"
#include "support/WindowTest.h"
#include "ui/RecoveryDialog.h"
#include "ui/ToolsSidebar.h"
#include "ui/WindowPrompts.h"

#include <QAction>
#include <QActionGroup>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

/// Opens whatever the window can show, and reads it: in a pseudo language, which finds what is not
/// translated, and in the language of the environment, in which nothing may be clipped.
class TestTranslations : public QObject
{
    Q_OBJECT

public:
    TestTranslations();

private Q_SLOTS:
    void initTestCase();
    void speaksTheWantedLanguage_data();
    void speaksTheWantedLanguage();
    void showsTheWindow();
    void showsEveryCommand();
    void showsEveryQuestion();
    void cleanup();

private:
    void look();
    void lookAtModal();
    void runAll(const QList<QAction *> &actions, const std::function<void()> &prepare = {});

    bool m_isPseudo = qEnvironmentVariableIsEmpty("LANGUAGE");
    std::unique_ptr<PseudoLocale> m_pseudo;
    QTimer m_timer;
    QStringList m_faults;
    int m_modalCount = 0;
};

namespace {
// What would end the window or the test.
bool mayRun(const QAction &action)
{
    const QStringList ending{"Ctrl+Q"_s, "Ctrl+W"_s, "Ctrl+M"_s, "F11"_s};
    return action.isEnabled() && !action.isSeparator() && !action.menu() &&
           !ending.contains(action.shortcut().toString(QKeySequence::PortableText));
}

QList<QAction *> actionsOf(const QMenu &menu)
{
    QList<QAction *> actions;
    for (QAction *action : menu.actions())
        actions += action->menu() ? actionsOf(*action->menu()) : QList<QAction *>{action};
    return actions;
}

QList<QAction *> allActions(const QMainWindow &window)
{
    QList<QAction *> actions;
    for (const QAction *action : window.menuBar()->actions())
        actions += actionsOf(*action->menu());
    return actions;
}
} // namespace

TestTranslations::TestTranslations()
{
    connect(&m_timer, &QTimer::timeout, this, &TestTranslations::lookAtModal);
    m_timer.start(20);
}

void TestTranslations::initTestCase()
{
    if (!m_isPseudo)
        return;
    m_pseudo = std::make_unique<PseudoLocale>();
    QCoreApplication::installTranslator(m_pseudo.get());
}

void TestTranslations::speaksTheWantedLanguage_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("system");
    QTest::addColumn<QString>("spoken");

    QTest::newRow("the system's") << QString() << QStringList{"de-AT"_s, "en-US"_s} << "de"_s;
    QTest::newRow("chosen over the system's") << "en"_s << QStringList{"de-DE"_s} << "en"_s;
    QTest::newRow("wanted more than one") << QString() << QStringList{"en-GB"_s, "de"_s} << "en"_s;
    QTest::newRow("first not there") << QString() << QStringList{"tlh"_s, "de_CH"_s} << "de"_s;
    QTest::newRow("none there") << QString() << QStringList{"tlh"_s, "C"_s} << "en"_s;
    QTest::newRow("chosen is not there") << "xx"_s << QStringList{"de"_s} << "de"_s;
}

void TestTranslations::speaksTheWantedLanguage()
{
    QFETCH(QString, chosen);
    QFETCH(QStringList, system);
    QTEST(languageToSpeak(chosen, system), "spoken");
}

void TestTranslations::cleanup()
{
    m_faults.removeDuplicates();
    const QStringList faults = std::exchange(m_faults, {});
    for (const QString &fault : faults)
        qWarning("%s", qUtf8Printable(fault));
    QVERIFY2(faults.isEmpty(), "see the warnings above");
}

void TestTranslations::look()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (m_isPseudo)
        m_faults += untranslatedTexts();
    m_faults += clippedTexts(m_isPseudo ? FixedSizes::Skipped : FixedSizes::Included);
}

void TestTranslations::lookAtModal()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    ++m_modalCount;
    look();
    dialog->reject();
}

// Each shows its panel, or its dialog, which is closed again.
void TestTranslations::runAll(const QList<QAction *> &actions, const std::function<void()> &prepare)
{
    // Another project comes with undo actions of its own.
    const QList<QPointer<QAction>> present(actions.begin(), actions.end());
    for (const QPointer<QAction> &action : present) {
        if (prepare)
            prepare();
        if (!action || !mayRun(*action))
            continue;
        const bool wasChecked = action->isChecked();
        action->trigger();
        look();
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *dialog = qobject_cast<QDialog *>(window); dialog && dialog->isVisible())
                dialog->reject();
        }
        if (action && action->isCheckable() && !action->actionGroup() &&
            action->isChecked() != wasChecked)
            action->trigger();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestTranslations::showsTheWindow()
{
    MainWindow window(application());
    showActive(window);
    look();
    runAll(allActions(window));
    if (m_isPseudo)
        return;
    // The toolkit's words, too.
    QCOMPARE(QKeySequence("Ctrl+S"_s).toString(QKeySequence::NativeText), "Strg+S"_s);
    QCOMPARE(window.menuBar()->actions().first()->text(), "&Datei"_s);
}

void TestTranslations::showsEveryCommand()
{
    Studio studio;
    auto &window = *qobject_cast<MainWindow *>(studio.viewport().window());
    // As every command finds it: two sprites, one selected, and something to be lost.
    const auto prepare = [&studio] {
        while (studio.bodyCount() < 2)
            studio.stack().undo();
        studio.body(1).name().setValue("c"_s, "d"_s, false);
        studio.select(0);
    };
    window.project().publishNormalmapPostfix().setValue("_n"_s); // nothing is asked by an export
    runAll(window.findChild<ToolsSidebar *>()->actions(), prepare);
    const int before = m_modalCount;
    runAll(allActions(window), prepare);
    QVERIFY(m_modalCount >= before + 10);
    window.openPath("/nowhere.vep"_s);
    studio.stack().markSaved();
}

// Those that nothing in the menus leads to.
void TestTranslations::showsEveryQuestion()
{
    Studio studio;
    QWidget &window = *studio.viewport().window();
    WindowPrompts prompts(window);
    const QStringList files{"/tmp/a.png"_s};
    prompts.askMissingTextures(files);
    prompts.askResized(files);
    prompts.askReadOnly(files.first(), "b"_s);
    prompts.askReplaceChanged(files.first());
    prompts.askOpenEffect("b"_s, WindowPrompts::AfterEffect::Export);
    prompts.askOpenEffect("b"_s, WindowPrompts::AfterEffect::Close);
    prompts.askReplaceForeign(files);
    prompts.showSummary(files);
    prompts.tell(files.first());
    prompts.showTold();
    prompts.askSearchFolder();
    CrashReportDialog({}, &window).exec();
    const QTemporaryDir recovery;
    std::vector<RecoveryEntry> kept(2);
    for (RecoveryEntry &entry : kept)
        entry.folder = RecoveryFolder::create(recovery.path());
    for (const RecoveryEntry &entry : kept) {
        entry.folder->setMark(RecoveryFolder::Mark::GivenUp);
        RecoveryDialog(kept, &window).choose();
        entry.folder->setMark(RecoveryFolder::Mark::GivenUp);
    }
    UpdateDialog("h"_s, &window).exec();
}

int main(int argc, char **argv)
{
    return runWindowTest<TestTranslations>(argc, argv);
}
#include "tst_Translations.moc"
