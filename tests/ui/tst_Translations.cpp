#include "framework/Language.h"
#include "support/PseudoLocale.h"
#include "support/ShownTexts.h"
#include "support/Studio.h"
#include "support/WindowTest.h"
#include "ui/FeedbackDialog.h"
#include "ui/PublishDialog.h"
#include "ui/ToolsSidebar.h"
#include "ui/WindowPrompts.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
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
    void runAll(const QList<QAction *> &actions);

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
    const QKeySequence keys = action.shortcut();
    return action.isEnabled() && !action.isSeparator() && !action.menu() &&
           action.menuRole() != QAction::QuitRole && keys != QKeySequence(QKeySequence::Close) &&
           keys != QKeySequence(QKeySequence::FullScreen) &&
           keys != QKeySequence(Qt::CTRL | Qt::Key_M);
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
    const QString faults = m_faults.join(QLatin1Char('\n'));
    m_faults.clear();
    QVERIFY2(faults.isEmpty(), qUtf8Printable(faults));
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
void TestTranslations::runAll(const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        if (!mayRun(*action))
            continue;
        const bool wasChecked = action->isChecked();
        action->trigger();
        look();
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *dialog = qobject_cast<QDialog *>(window); dialog && dialog->isVisible())
                dialog->reject();
        }
        if (action->isCheckable() && !action->actionGroup() && action->isChecked() != wasChecked)
            action->trigger();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestTranslations::showsTheWindow()
{
    MainWindow window(*static_cast<GApplication *>(qApp));
    showActive(window);
    look();
    runAll(allActions(window));
    if (m_isPseudo)
        return;
    // The toolkit's words, too.
    QCOMPARE(QKeySequence(Qt::CTRL | Qt::Key_S).toString(QKeySequence::NativeText), "Strg+S"_s);
    QCOMPARE(window.menuBar()->actions().first()->text(), "&Datei"_s);
}

void TestTranslations::showsEveryCommand()
{
    Studio studio;
    auto &window = *qobject_cast<MainWindow *>(studio.view().window());
    runAll(window.findChild<ToolsSidebar *>()->actions());
    studio.paint({{10, 10}, {20, 20}});
    look();
    QFile::remove(window.project().bodies().all().first()->sprite().filename().value().path());
    const int before = m_modalCount;
    runAll(allActions(window));
    QVERIFY(m_modalCount >= before + 8);
    window.project().undoStack().markSaved();
}

// Those that nothing in the menus leads to.
void TestTranslations::showsEveryQuestion()
{
    Studio studio;
    QWidget &window = *studio.view().window();
    WindowPrompts prompts(window);
    const QStringList files{"/tmp/a.png"_s};
    prompts.askMissingTextures(files);
    prompts.askClearResized(files);
    prompts.showSummary(files);
    prompts.tell(files.first());
    prompts.showTold();
    prompts.askSearchFolder();
    QCOMPARE(m_modalCount > 0, true);
}

int main(int argc, char **argv)
{
    return runWindowTest<TestTranslations>(argc, argv);
}
#include "tst_Translations.moc"
