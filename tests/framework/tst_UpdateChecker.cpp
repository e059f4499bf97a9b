#include "base/GSettings.h"
#include "framework/NoticeBar.h"
#include "framework/UpdateDialog.h"
#include "framework/UpdateNotices.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/TlsServer.h"
#include "support/Widgets.h"

#include <QAction>
#include <QDesktopServices>
#include <QMainWindow>
#include <QNetworkProxy>
#include <QTest>

using namespace std::chrono_literals;

namespace {
constexpr int limit = 32 * 1024;

QByteArray ok(const QByteArray &body, const QByteArray &headers = {})
{
    return "HTTP/1.1 200 OK\r\n" + headers + "Connection: close\r\n\r\n" + body;
}

QByteArray redirect(const QUrl &to)
{
    return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + to.toEncoded() + "\r\n\r\n";
}

QByteArray feed()
{
    return "<feed xmlns='http://www.w3.org/2005/Atom'><entry><title>Vesperine 0.3.0</title>"
           "<link href='https://example.org/0.3.0'/></entry></feed>";
}

QByteArray padded(int size)
{
    return feed() + QByteArray(size - feed().size(), ' ');
}

} // namespace

class TestUpdateChecker : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void open(const QUrl &url) { m_opened.append(url.toString()); }

private:
    UpdateChecker::Source source(const QUrl &feedUrl) const
    {
        return {.feed = feedUrl,
                .running = *SemanticVersion::parse("0.2.0"_s),
                .authorities = {m_server->certificate()},
                .timeout = 1500ms,
                .maxBytes = limit,
                .now = [this] { return m_now; }};
    }

    Folder m_folder;
    std::unique_ptr<TlsServer> m_server;
    QTcpServer m_plain;
    QDateTime m_now = QDateTime::fromString("2026-03-01T10:00:00Z"_s, Qt::ISODate);
    QStringList m_opened;

private Q_SLOTS:
    void initTestCase()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        QCoreApplication::setApplicationName("Vesperine"_s);
        QCoreApplication::setApplicationVersion("0.2.0"_s);
        QDesktopServices::setUrlHandler("https"_s, this, "open");
        QVERIFY(m_plain.listen(QHostAddress::LocalHost));
    }

    void init()
    {
        m_server = std::make_unique<TlsServer>(m_folder.path({}));
        const QUrl plain("http://127.0.0.1:%1/feed"_s.arg(m_plain.serverPort()));
        m_server->answers = {{"/feed"_s, ok(feed())},
                             {"/untrusted"_s, ok(feed())},
                             {"/other"_s, ok(feed())},
                             {"/moved"_s, redirect(m_server->url("/feed"_s))},
                             {"/plain"_s, redirect(plain)},
                             {"/loop"_s, redirect(m_server->url("/loop"_s))},
                             {"/fits"_s, ok(padded(limit))},
                             {"/over"_s, ok(padded(limit + 1))},
                             {"/endless"_s, ok(feed() + "...")},
                             {"/cut"_s, ok(feed(), "Content-Length: 9999\r\n")},
                             {"/missing"_s, ok(feed()).replace("200 OK", "404 <b>Gone</b>")},
                             {"/garbage"_s, QByteArray(5000, '\x80')},
                             {"/entities"_s, ok("<!DOCTYPE feed [<!ENTITY a 'b'>]>" + feed())},
                             {"/compressed"_s, ok(feed(), "Content-Encoding: gzip\r\n")}};
    }

    void feedsAreAskedSecurely_data()
    {
        QTest::addColumn<QString>("expected");
        const QString insecure = "It leads to an address that is not secure."_s;
        const QString untrusted = "Its certificate is not to be trusted."_s;
        QTest::newRow("/feed") << "0.3.0"_s;
        QTest::newRow("/moved") << "0.3.0"_s;
        QTest::newRow("/fits") << "0.3.0"_s;
        // Nothing decompresses it: as it is called, it would be garbage.
        QTest::newRow("/compressed") << "0.3.0"_s;
        QTest::newRow("/plain") << insecure;
        QTest::newRow("/loop") << "It leads from one address to the next."_s;
        QTest::newRow("/over") << "Its answer is too long."_s;
        QTest::newRow("/endless") << "Its answer is too long."_s;
        QTest::newRow("/silent") << "It does not answer."_s;
        QTest::newRow("/cut") << "It can't be reached."_s;
        QTest::newRow("/missing") << "It answers with the status 404."_s;
        QTest::newRow("/garbage") << "It can't be reached."_s;
        QTest::newRow("/entities") << "Its answer can't be read."_s;
        QTest::newRow("/untrusted") << untrusted;
        QTest::newRow("/other") << untrusted;
        QTest::newRow("/closed") << "It can't be reached."_s;
    }

    void feedsAreAskedSecurely()
    {
        const QString path = QLatin1String(QTest::currentDataTag());
        UpdateChecker::Source asked = source(m_server->url(path));
        if (path == "/untrusted"_s)
            asked.authorities = {TlsServer(m_folder.path({})).certificate()};
        if (path == "/other"_s)
            asked.feed.setHost("localhost"_s);
        if (path == "/closed"_s)
            m_server->close();
        GSettings settings;
        UpdateChecker checker(asked, settings);
        QList<UpdateAnswer> answers;
        connect(&checker, &UpdateChecker::answered, this, [&](const UpdateAnswer &answer) {
            answers.append(answer);
        });
        checker.check();
        checker.check(); // is not a second question
        QTRY_COMPARE_WITH_TIMEOUT(answers.size(), 1, 10000);
        const UpdateAnswer &given = answers.first();
        QTEST(given.newer ? given.newer->version.toString() : given.problem, "expected");
        QVERIFY(!m_plain.waitForNewConnection(0));
        QVERIFY(m_server->endlessBytes < qint64(16) << 20);
        QVERIFY(m_server->requests.size() <= 4);
        if (path == "/feed"_s) {
            QStringList sent = QString::fromLatin1(m_server->requests.value(0))
                                   .split("\r\n"_s, Qt::SkipEmptyParts);
            sent.sort();
            QCOMPARE(sent.join(u'|'),
                     "Accept-Encoding: identity|Accept-Language: *|Connection: Keep-Alive|"
                     "GET /feed HTTP/1.1|Host: 127.0.0.1:%1|User-Agent: Vesperine/0.2.0"_s.arg(
                         m_server->serverPort()));
        }
    }

    void noneIsAskedTwiceADayNorUnasked()
    {
        GSettings settings;
        UpdateSettings choice(settings);
        UpdateChecker checker(source(m_server->url("/missing"_s)), settings);
        int answers = 0;
        connect(&checker, &UpdateChecker::answered, this, [&answers] { ++answers; });
        const auto asksAfter = [&](std::chrono::seconds passed) {
            m_now = m_now.addSecs(passed.count());
            const int before = answers;
            checker.checkIfDue();
            // Whoever asks at all has noted the time at once.
            const bool hasAsked =
                settings.value("updates/lastQuestion"_s).toString() == m_now.toString(Qt::ISODate);
            return hasAsked && QTest::qWaitFor([&] { return answers > before; });
        };
        QVERIFY(!asksAfter(48h));
        choice.setAsksDaily(true);
        QVERIFY(asksAfter(0s));
        QVERIFY(!asksAfter(24h - 1s)); // also after a failure
        QVERIFY(asksAfter(1s));
        QVERIFY(asksAfter(-1000h)); // the clock was wrong
        QVERIFY(!asksAfter(1h));
        choice.setAsksDaily(false);
        QVERIFY(!asksAfter(48h));
        QCOMPARE(answers, 3);
    }

    // From the question at the start to the version that is not wanted.
    void theUserDecides()
    {
        GSettings settings;
        QMainWindow window;
        window.resize(800, 300);
        showActive(window);
        UpdateNotices notices(source(m_server->url("/feed"_s)), settings, window);
        const auto bar = [&] {
            const auto *shown = window.findChild<NoticeBar *>();
            return shown && shown->isVisible() ? shown->accessibleName() : QString();
        };
        const auto says = [&](const char *text) { return showsText(window, QLatin1String(text)); };
        const auto click = [&](const char *button) {
            DialogScript::click(QLatin1String(button))(window);
        };
        notices.look();
        QCOMPARE(bar(), QString());
        QTest::qWait(600); // The hand moves: nothing moves under it.
        QTest::mouseMove(&window, {5, 5});
        QTest::mouseMove(&window, {9, 9});
        QTest::qWait(600);
        QCOMPARE(bar(), QString());
        QTRY_VERIFY(bar().contains("once a day"_s));
        QVERIFY(m_server->requests.isEmpty());
        click("Ask daily");
        QTRY_COMPARE(bar(), "Vesperine 0.3.0 is there."_s);
        click("Details...");
        QVERIFY(says("You have 0.2.0."));
        click("Open its page");
        QCOMPARE(m_opened, QStringList("https://example.org/0.3.0"_s));

        notices.checkAction().trigger();
        QVERIFY(says("Asking 127.0.0.1"));
        QTRY_VERIFY(says("0.3.0 is there"));
        click("Skip this version");
        m_now = m_now.addDays(2);
        notices.look();
        QTRY_COMPARE(m_server->requests.size(), 3);
        QTest::qWait(1500);
        QCOMPARE(bar(), QString());

        m_server->answers.insert("/feed"_s, ok(feed().replace("0.3.0", "0.1.0")));
        notices.checkAction().trigger();
        QTRY_VERIFY(says("There is no newer version than 0.2.0."));
        m_server->close();
        notices.checkAction().trigger();
        QTRY_VERIFY(says("It can't be reached."));
    }
};

QTEST_MAIN(TestUpdateChecker)
#include "tst_UpdateChecker.moc"
