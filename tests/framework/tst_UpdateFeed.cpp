#include "framework/UpdateFeed.h"
#include "support/Widgets.h"

#include <QElapsedTimer>
#include <QTest>

#include <random>

namespace {
QByteArray feed(const QByteArray &entries)
{
    return "<?xml version='1.0'?><feed xmlns='http://www.w3.org/2005/Atom'><title>9.9.9</title>" +
           entries + "</feed>";
}

QByteArray entry(const QByteArray &title, const QByteArray &link)
{
    return "<entry><title>" + title + "</title><link href='" + link +
           "'/><updated>2026-03-01T10:00:00Z</updated></entry>";
}

// Version, title, date and link of each release, or why there are none.
QString read(const QByteArray &bytes)
{
    const auto releases = readUpdateFeed(bytes);
    QStringList lines;
    for (const UpdateRelease &release : releases.value_or(QList<UpdateRelease>()))
        lines.append(QStringList{release.version.toString(),
                                 release.title,
                                 release.date.toString(Qt::ISODate),
                                 release.page.toString()}
                         .join(QLatin1Char('|')));
    return releases ? lines.join(QLatin1Char('\n')) : "no feed"_s;
}
} // namespace

class TestUpdateFeed : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Each comes before the next one.
    void versionsHaveTheOrderOfTheStandard()
    {
        const QStringList ordered =
            "0.0.0 0.9.10 0.10.0 1.0.0-0 1.0.0-9 1.0.0-10 1.0.0-99999999999999999999 1.0.0--1 "
            "1.0.0-Z 1.0.0-alpha 1.0.0-alpha.1 1.0.0-alpha.beta 1.0.0-beta 1.0.0-beta.2 "
            "1.0.0-beta.11 1.0.0-rc.1 1.0.0 1.0.1-0 18446744073709551616.0.0"_s.split(u' ');
        for (int left = 0; left < ordered.size(); ++left) {
            for (int right = 0; right < ordered.size(); ++right) {
                const auto first = SemanticVersion::parse(ordered[left]);
                const auto second = SemanticVersion::parse("v"_s + ordered[right] + "+linux.01"_s);
                QVERIFY2(first && second, qUtf8Printable(ordered[left]));
                QCOMPARE(*first < *second, left < right);
                QCOMPARE(*first == *second, left == right);
                QCOMPARE(first->toString(), ordered[left]);
            }
        }
        const QStringList none =
            "1 1.2 1.2.3.4 01.2.3 1.02.3 1.2.3- 1.2.3-01 1.2.3-a..b 1.2.3+ V1.2.3 "
            "1.2.3-\u00e4 \u0661.2.3 -1.2.3 1.2.3\n"_s.split(QLatin1Char(' '));
        for (const QString &text : none + QStringList{QString(), "1.2."_s + QString(80, u'9')})
            QVERIFY2(!SemanticVersion::parse(text), qUtf8Printable(text));
    }

    void feedsAreRead_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QByteArray &bytes, const QString &expected) {
            QTest::newRow(name) << bytes << expected;
        };
        const QString none = "no feed"_s;
        const QByteArray good = entry("v1.2.0: it &lt;b&gt;shines", "https://a.b/1");
        const QString shines = "1.2.0|v1.2.0: it <b>shines|2026-03-01|https://a.b/1"_s;
        row("a release", "\xef\xbb\xbf" + feed(good), shines);
        row("no entry", feed({}), {});
        row("version from the link",
            feed(entry("New", "https://a.b/tag/v2.0.0-rc.1")),
            "2.0.0-rc.1|New|2026-03-01|https://a.b/tag/v2.0.0-rc.1"_s);
        row("no version", feed(entry("New", "https://a.b/") + good), shines);
        for (const char *link : {"http://a.b/",
                                 "javascript:alert(1)",
                                 "file:///etc/passwd",
                                 "//a.b/",
                                 "https://a.b@c.d/",
                                 "https:///x",
                                 "https://a b/"})
            row(link, feed(entry("3.0.0", link) + good), shines);
        row("other relation",
            feed("<entry><title>3.0.0</title><link rel='self' href='https://x.y/'/></entry>"),
            {});
        row("deceiving title",
            feed(entry("1.2.0 \xe2\x80\xae"
                       "cod\xc2\x85\n\t<x>\xe2\x80\x8b.</x>",
                       "https://a.b/1")),
            "1.2.0|1.2.0 cod .|2026-03-01|https://a.b/1"_s);
        row("long title",
            feed(entry("1.2.0 " + QByteArray(9999, 'x'), "https://a.b/1")),
            "1.2.0|1.2.0 "_s + QString(113, u'x') + u'\u2026' + "|2026-03-01|https://a.b/1"_s);
        row("entities",
            "<!DOCTYPE feed [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;'>]>" + feed(good),
            none);
        row("undeclared entity", feed(entry("1.2.0 &b;", "https://a.b/1")), none);
        row("cut", feed(good).chopped(3), none);
        row("empty", {}, none);
        row("page", "<html><title>1.2.0</title></html>", none);
        row("other namespace", "<feed>" + good + "</feed>", none);
        row("deep",
            feed(QByteArray("<a>").repeated(20000) + QByteArray("</a>").repeated(20000)),
            none);
        row("not UTF-8", feed(entry("1.2.0 \xe4", "https://a.b/1")), none);
        row("other encoding",
            "<?xml version='1.0' encoding='UTF-16'?>" + feed(good).mid(21),
            shines);
        QByteArray attributes;
        for (int number = 0; attributes.size() < 200000; ++number)
            attributes += " a" + QByteArray::number(number) + "=''";
        row("many attributes", feed("<x" + attributes + "/>"), none);
    }

    void feedsAreRead()
    {
        QFETCH(QByteArray, bytes);
        QElapsedTimer timer;
        timer.start();
        QTEST(read(bytes), "expected");
        QVERIFY2(timer.elapsed() < 2000, "Reading takes long");
    }

    // Whatever becomes of a good feed on its way, what is shown of it is a line and a secure link.
    void brokenFeedsAreHarmless()
    {
        std::mt19937 random(7);
        const QByteArray good = feed(entry("1.2.0 <![CDATA[a]]>", "https://a.b/1") +
                                     entry("2.0.0-rc.1 \xe2\x82\xac", "https://a.b/2"));
        int readable = 0;
        for (int round = 0; round < 20000; ++round) {
            QByteArray bytes = good;
            for (unsigned change = random() % 3 + 1; change > 0; --change) {
                const int at = int(random() % unsigned(bytes.size()));
                bytes.replace(
                    at, int(random() % 4), good.mid(int(random() % 300), int(random() % 5)));
                bytes[int(random() % unsigned(bytes.size()))] = char(random());
            }
            const auto releases = readUpdateFeed(bytes);
            readable += releases.has_value() ? 1 : 0;
            for (const UpdateRelease &release : releases.value_or(QList<UpdateRelease>())) {
                QVERIFY(release.page.scheme() == "https"_s && !release.page.host().isEmpty());
                QVERIFY(!release.title.contains(u'\n') && release.title.size() <= 240);
            }
        }
        QVERIFY(readable > 100);
    }

    void theNewestIsTakenThatIsWanted()
    {
        const auto releases = readUpdateFeed(feed(entry("1.1.0", "https://a.b/1") +
                                                  entry("1.3.0-rc.1", "https://a.b/2") +
                                                  entry("1.2.0", "https://a.b/3")));
        const auto newest = [&](const char *running, bool withPreReleases) {
            const auto newer = newerRelease(
                *releases, *SemanticVersion::parse(QLatin1String(running)), withPreReleases);
            return newer ? newer->version.toString() : QString();
        };
        QCOMPARE(newest("1.0.0", false), "1.2.0"_s);
        QCOMPARE(newest("1.0.0", true), "1.3.0-rc.1"_s);
        QCOMPARE(newest("1.2.0", false), QString());
        QCOMPARE(newest("1.3.0-rc.2", true), QString());
    }
};

QTEST_APPLESS_MAIN(TestUpdateFeed)
#include "tst_UpdateFeed.moc"
