#include "imaging/AngleImage.h"
#include "model/Body.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoveryStore.h"
#include "support/Documents.h"
#include "support/EditorUser.h"
#include "support/Snapshots.h"
#include "support/Widgets.h"
#include "support/WindowTest.h"
#include "ui/MainWindow.h"
#include "ui/NormalMapEditor.h"
#include "ui/ProjectRecovery.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QProcess>
#include <QRandomGenerator>
#include <QTimer>

#include <csignal>
#include <cstdio>

namespace {
int countFrom(const char *variable, int usual)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : usual;
}

void say(const char *what, const QByteArray &fingerprint)
{
    std::printf("%s %s\n", what, fingerprint.constData());
    std::fflush(stdout);
}

// Paints by mouse and keeps snapshots until it is killed, telling of each.
int paintUntilKilled(const QStringList &arguments)
{
    MainWindow window(application());
    window.openOrAdd(arguments.mid(3));
    showActive(window);
    window.findChild<NormalMapEditor *>()->zoomToFit();
    const EditorUser user(window);
    QRandomGenerator random(arguments.value(2).toUInt());
    QByteArray taken;
    QObject::connect(
        &window.recovery().writer(), &RecoveryWriter::written, [&taken] { say("written", taken); });
    user.key(Qt::Key_B);
    while (true) {
        const auto place = [&random] { return QPoint(random.bounded(250), random.bounded(250)); };
        user.press(place());
        for (int i = random.bounded(4); i >= 0; --i) {
            user.moveTo(place());
            // Of an open stroke nothing is kept.
            if (!window.recovery().writer().isBusy()) {
                taken = fingerprintOf(window.project());
                say("taken", taken);
                window.recovery().takeSnapshot();
            }
            QTest::qWait(random.bounded(20));
        }
        user.release(place());
    }
}

// What was told, line by line, until the program was killed.
struct Told
{
    QList<QByteArray> acceptable; ///< the last written one and those that were taken since
    bool hasWritten = false;

    void hear(const QByteArray &line)
    {
        const QByteArray fingerprint = line.mid(line.indexOf(' ') + 1).trimmed();
        if (line.startsWith("written")) {
            acceptable = {fingerprint};
            hasWritten = true;
        } else if (line.startsWith("taken")) {
            acceptable.append(fingerprint);
        }
    }
};

/// Presses buttons of the questions that come up, and what else may come, at random.
class Interference : public QObject
{
public:
    Interference(MainWindow &window, const QString &otherPath, quint32 seed)
        : m_window(window)
        , m_otherPath(otherPath)
        , m_random(seed)
    {
        // One that opens a question does not come again before the answer.
        connect(&m_acting, &QTimer::timeout, this, &Interference::act);
        connect(&m_answering, &QTimer::timeout, this, &Interference::answer);
        m_acting.start(25);
        m_answering.start(5);
    }

    void finish() { m_acting.stop(); }
    bool hasDiscarded() const { return m_hasDiscarded; }
    bool hasReplaced() const { return m_hasReplaced; }
    const QByteArray &replaced() const { return m_replaced; }

    void edit()
    {
        Body &body = *m_window.project().bodies().all()[m_random.bounded(4)];
        AngleImage surface = body.surface();
        surface.row(m_random.bounded(surface.height()))[0].sx = qint16(m_random.generate());
        body.paintedNormalMap().setAngleImage(surface, "paint"_s);
    }

    // As the desktop, the timer, and what works in the background do.
    void doSomething()
    {
        if (!m_window.isVisible() || m_hasReplaced)
            return;
        const QByteArray before = fingerprintOf(m_window.project());
        const Project *project = &m_window.project();
        switch (m_random.bounded(8)) {
        case 0:
            m_window.close();
            break;
        case 1:
            QApplication::closeAllWindows();
            break;
        case 2:
            m_window.openPath(m_otherPath);
            break;
        case 3:
        case 4:
            m_window.save();
            break;
        case 5:
        case 6:
            m_window.recovery().takeSnapshot();
            break;
        default:
            edit();
        }
        if (&m_window.project() != project && !m_hasReplaced) {
            m_hasReplaced = true;
            m_replaced = before;
        }
    }

private:
    void act()
    {
        if (!qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) &&
            m_random.bounded(3) == 0)
            doSomething();
    }

    void answer()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        const QMessageBox::StandardButton answers[] = {
            QMessageBox::Save, QMessageBox::Save, QMessageBox::Cancel, QMessageBox::Discard};
        const auto answer = answers[m_random.bounded(4)];
        m_hasDiscarded = m_hasDiscarded || answer == QMessageBox::Discard;
        box->button(answer)->click();
    }

    MainWindow &m_window;
    QString m_otherPath;
    QRandomGenerator m_random;
    QTimer m_acting;
    QTimer m_answering;
    QByteArray m_replaced;
    bool m_hasDiscarded = false;
    bool m_hasReplaced = false;
};
} // namespace

class TestProjectRecovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = Folder();
        makeHome(m_folder);
    }

    // Killed at any moment, the program leaves the last snapshot that was complete, or one that it
    // was just completing.
    void aKillLeavesTheLastSnapshot()
    {
        QStringList arguments{"paint"_s, {}};
        for (const char *name : {"a.png", "b.png", "c.png"})
            arguments.append(m_folder.writeSprite(QLatin1String(name), {256, 256}));
        int found = 0;
        const int kills = countFrom("RECOVERY_KILLS", 3);
        for (int kill = 0; kill < kills; ++kill) {
            arguments[1] = QString::number(kill);
            const Told told = killAtRandom(arguments, quint32(kill));
            auto entries = RecoveryStore(ProjectRecovery::root())
                               .takeLeftOvers(QDateTime::currentDateTimeUtc());
            QVERIFY(entries.size() <= 1 && (!entries.empty() || !told.hasWritten));
            if (entries.empty())
                continue;
            const QByteArray recovered = fingerprintOf(entries[0]);
            QVERIFY2(told.acceptable.contains(recovered), recovered.constData());
            RecoveryFolder::clear(entries[0].folder->path());
            ++found;
        }
        qInfo("%d kills, %d snapshots, all as they were", kills, found);
        QVERIFY(found > 0);
    }

    // Whatever comes while the project is saved or kept: its last state is in its file, in a
    // snapshot, or was given up by the user.
    void nothingIsLostByInterference()
    {
        const int rounds = countFrom("RECOVERY_ROUNDS", 4);
        int counts[4] = {};
        for (int round = 0; round < rounds; ++round) {
            const QString path = m_folder.path("p.vep"_s);
            writeProject(m_folder, path, 4, 640);
            writeProject(m_folder, m_folder.path("other.vep"_s), 1, 16);
            auto window = std::make_unique<MainWindow>(application());
            window->show();
            QVERIFY(window->openPath(path));
            Interference others(*window, m_folder.path("other.vep"_s), quint32(round));
            others.edit();
            for (int step = 0; step < 4; ++step) {
                others.doSomething();
                QTest::qWait(20);
            }
            others.finish();
            QCoreApplication::processEvents();
            QVERIFY(!QApplication::activeModalWidget());
            const auto outcome = outcomeOf(window, others, path);
            QVERIFY2(outcome >= 0, QByteArray::number(round));
            ++counts[outcome];
        }
        qInfo("%d rounds: %d saved, %d recoverable, %d given up",
              rounds,
              counts[0],
              counts[1],
              counts[2]);
    }

private:
    static Told killAtRandom(const QStringList &arguments, quint32 seed);
    static int
    outcomeOf(std::unique_ptr<MainWindow> &window, const Interference &others, const QString &path);

    Folder m_folder;
};

Told TestProjectRecovery::killAtRandom(const QStringList &arguments, quint32 seed)
{
    Told told;
    QRandomGenerator random(seed);
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(QCoreApplication::applicationFilePath(), arguments);
    int lines = 2 + random.bounded(20);
    while (lines > 0 && program.waitForReadyRead(30000)) {
        for (; program.canReadLine(); --lines)
            told.hear(program.readLine());
    }
    QTest::qSleep(random.bounded(1, 40));
    kill(pid_t(program.processId()), SIGKILL);
    program.waitForFinished();
    while (program.canReadLine())
        told.hear(program.readLine());
    return told;
}

// 0 saved, 1 to be recovered, 2 given up, -1 lost.
int TestProjectRecovery::outcomeOf(std::unique_ptr<MainWindow> &window,
                                   const Interference &others,
                                   const QString &path)
{
    const auto &writer = window->recovery().writer();
    const QByteArray last =
        others.hasReplaced() ? others.replaced() : fingerprintOf(window->project());
    const bool isOpen = window->isVisible() && !others.hasReplaced();
    const bool isModified = isOpen && window->isWindowModified();
    const auto rests = [&writer] { return !writer.isBusy(); };
    if (isModified && QTest::qWaitFor(rests))
        window->recovery().takeSnapshot();
    if (isModified && !QTest::qWaitFor(rests))
        return -1;
    window.reset();
    const auto entries =
        RecoveryStore(ProjectRecovery::root()).takeLeftOvers(QDateTime::currentDateTimeUtc());
    const bool isKept = entries.size() == 1 && fingerprintOf(entries[0]) == last;
    if (!entries.empty())
        RecoveryFolder::clear(entries[0].folder->path());
    if (isModified)
        return isKept ? 1 : -1;
    if (!entries.empty())
        return -1;
    if (fingerprintOf(path) == last)
        return 0;
    return others.hasDiscarded() && !isOpen ? 2 : -1;
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], "paint") == 0) {
        initialiseResources();
        GApplication::prepare();
        const GApplication program(argc, argv);
        return paintUntilKilled(QCoreApplication::arguments());
    }
    return runWindowTest<TestProjectRecovery>(argc, argv);
}

#include "tst_ProjectRecovery.moc"
