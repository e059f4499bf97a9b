#include "framework/UpdateFeed.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace {
constexpr int maxDepth = 32;
constexpr int maxTagLength = 2048;
constexpr int maxTextLength = 1024;
constexpr int maxTitleLength = 120;
constexpr int maxReleases = 100;
constexpr uint ellipsis = 0x2026;

// None unless it is UTF-8 throughout.
QString decoded(QByteArray bytes)
{
    if (bytes.startsWith("\xef\xbb\xbf"))
        bytes.remove(0, 3);
    const QString text = QString::fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : QString();
}

// Document types declare entities, and the reader compares all attributes of a tag with each other:
// thousands of them take more than a second.
bool hasTraps(const QString &text)
{
    for (int at = text.indexOf(QLatin1Char('<')); at >= 0;) {
        const QStringView rest = QStringView(text).mid(at);
        const bool isComment = rest.startsWith(QLatin1String("<!--"));
        const bool isData = rest.startsWith(QLatin1String("<![CDATA["));
        const int closed = text.indexOf(isComment ? QLatin1String("-->")
                                        : isData  ? QLatin1String("]]>")
                                                  : QLatin1String(">"),
                                        at);
        const bool isTag = !isComment && !isData;
        if (closed < 0 || (isTag && rest.startsWith(QLatin1String("<!"))) ||
            (isTag && closed - at > maxTagLength))
            return true;
        at = text.indexOf(QLatin1Char('<'), closed);
    }
    return false;
}

// Nothing in it can break the line, turn its direction or stay unseen.
QString plainLine(const QString &text)
{
    QVector<uint> line = text.simplified().toUcs4();
    line.erase(std::remove_if(line.begin(),
                              line.end(),
                              [](uint character) { return !QChar::isPrint(character); }),
               line.end());
    if (line.size() > maxTitleLength) {
        line.resize(maxTitleLength);
        line.last() = ellipsis;
    }
    return QString::fromUcs4(line.constData(), line.size());
}

QUrl securePage(const QString &text)
{
    const QUrl page(text, QUrl::StrictMode);
    const bool isSecure = page.isValid() && page.scheme() == QLatin1String("https") &&
                          !page.host().isEmpty() && page.userInfo().isEmpty();
    return isSecure ? page : QUrl();
}

std::optional<SemanticVersion> versionOf(const QString &title, const QUrl &page)
{
    QStringList words = title.split(QLatin1Char(' '));
    words.append(page.fileName());
    for (QString &word : words) {
        if (word.endsWith(QLatin1Char(':')) || word.endsWith(QLatin1Char(',')))
            word.chop(1);
        if (auto version = SemanticVersion::parse(word))
            return version;
    }
    return {};
}

/// Walks through a feed without descending into calls, however deep it is.
class FeedReader
{
public:
    explicit FeedReader(const QString &text)
        : m_xml(text)
    {
    }

    std::optional<QList<UpdateRelease>> read()
    {
        while (!m_xml.atEnd()) {
            const auto token = m_xml.readNext();
            if (token == QXmlStreamReader::StartElement && !start())
                return {};
            if (token == QXmlStreamReader::EndElement)
                end();
            if (token == QXmlStreamReader::Characters && m_text && m_text->size() < maxTextLength)
                m_text->append(m_xml.text().toString().left(maxTextLength));
        }
        if (m_xml.hasError())
            return {};
        return m_releases;
    }

private:
    struct Entry
    {
        QString title;
        QString updated;
        QUrl page;
    };

    // False when this is no feed.
    bool start()
    {
        ++m_depth;
        const bool isAtom = m_xml.namespaceUri() == QLatin1String("http://www.w3.org/2005/Atom");
        const QString name = isAtom ? m_xml.name().toString() : QString();
        if (m_depth == 1)
            return name == QLatin1String("feed");
        if (m_depth == 2) {
            m_entry = {};
            m_isEntry = name == QLatin1String("entry");
        }
        if (m_depth == 3 && m_isEntry)
            startField(name);
        return m_depth <= maxDepth;
    }

    void startField(const QString &name)
    {
        if (name == QLatin1String("title"))
            m_text = &m_entry.title;
        else if (name == QLatin1String("updated"))
            m_text = &m_entry.updated;
        else if (name == QLatin1String("link") && m_entry.page.isEmpty())
            readLink(m_xml.attributes());
    }

    void readLink(const QXmlStreamAttributes &attributes)
    {
        const QString relation = attributes.value(QLatin1String("rel")).toString();
        if (relation.isEmpty() || relation == QLatin1String("alternate"))
            m_entry.page = securePage(attributes.value(QLatin1String("href")).toString());
    }

    void end()
    {
        if (m_depth == 3)
            m_text = nullptr;
        if (m_depth == 2 && m_isEntry && m_releases.size() < maxReleases)
            addEntry();
        --m_depth;
    }

    void addEntry()
    {
        const QString title = plainLine(m_entry.title);
        const auto version = versionOf(title, m_entry.page);
        if (!version || m_entry.page.isEmpty())
            return;
        const QDate date = QDate::fromString(m_entry.updated.trimmed().left(10), Qt::ISODate);
        m_releases.append({*version, title, date, m_entry.page});
    }

    QXmlStreamReader m_xml;
    int m_depth = 0;
    bool m_isEntry = false;
    QString *m_text = nullptr; ///< what the present element's text is added to
    Entry m_entry;
    QList<UpdateRelease> m_releases;
};
} // namespace

std::optional<QList<UpdateRelease>> readUpdateFeed(const QByteArray &bytes)
{
    const QString text = decoded(bytes);
    if (hasTraps(text))
        return {};
    return FeedReader(text).read();
}

std::optional<UpdateRelease> newerRelease(const QList<UpdateRelease> &releases,
                                          const SemanticVersion &running,
                                          bool withPreReleases)
{
    std::optional<UpdateRelease> newest;
    for (const UpdateRelease &release : releases) {
        const bool isWanted = withPreReleases || !release.version.isPreRelease();
        if (isWanted && release.version > (newest ? newest->version : running))
            newest = release;
    }
    return newest;
}
