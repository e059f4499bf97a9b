#include "model/XmlGuard.h"

#include "model/Body.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

#include <algorithm>

namespace {
constexpr int deepest = 64;
constexpr int longest = 64 * 1024 * 1024;
constexpr int mostAttributes = 100;
constexpr int mostBodies = 100000;
constexpr int mostNodes = 2000000;
constexpr int mostAttributesInAll = 500000;

XmlProblem problem(const char *text, qint64 line)
{
    return {QCoreApplication::translate("XmlGuard", text), line};
}

struct Tag
{
    int end = -1; ///< the place behind it, -1 when it does not end
    int attributes = 0;
    bool hasDeclarations = false;
};

bool isEmptyBracket(const QString &text, int at)
{
    const int end = text.indexOf(QLatin1Char(']'), at);
    return end >= 0 && QStringView(text).mid(at + 1, end - at - 1).trimmed().isEmpty();
}

// A ">" or "=" in quotation marks belongs to a value.
Tag tagAt(const QString &text, int start)
{
    Tag tag;
    QChar quote;
    for (int at = start; at < text.size(); ++at) {
        const QChar c = text.at(at);
        if (!quote.isNull()) {
            quote = c == quote ? QChar() : quote;
        } else if (c == QLatin1Char('>')) {
            tag.end = at + 1;
            return tag;
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
        } else {
            tag.attributes += c == QLatin1Char('=') ? 1 : 0;
            tag.hasDeclarations =
                tag.hasDeclarations || (c == QLatin1Char('[') && !isEmptyBracket(text, at));
        }
    }
    return tag;
}

// Every reader compares all attributes of an element with each other, so that they are counted
// before it sees them. What does not end is left for it to complain about.
std::optional<XmlProblem> findTrap(const QString &text)
{
    const auto behind = [&text](int at, const char *end) {
        const int found = text.indexOf(QLatin1String(end), at);
        return found < 0 ? found : found + int(qstrlen(end));
    };
    for (int at = text.indexOf(QLatin1Char('<')); at >= 0;) {
        const QStringView rest = QStringView(text).mid(at);
        Tag tag;
        if (rest.startsWith(QLatin1String("<!--")))
            tag.end = behind(at + 4, "-->");
        else if (rest.startsWith(QLatin1String("<![CDATA[")))
            tag.end = behind(at, "]]>");
        else if (rest.startsWith(QLatin1String("<?")))
            tag.end = behind(at, "?>");
        else
            tag = tagAt(text, at);
        const auto line = [&] {
            return std::count(text.begin(), text.begin() + at, QLatin1Char('\n')) + 1;
        };
        if (tag.hasDeclarations && rest.startsWith(QLatin1String("<!")))
            return problem(QT_TRANSLATE_NOOP("XmlGuard", "entities are not supported"), line());
        if (tag.attributes > mostAttributes)
            return problem(QT_TRANSLATE_NOOP("XmlGuard", "an element has more than 100 attributes"),
                           line());
        at = tag.end < 0 ? -1 : text.indexOf(QLatin1Char('<'), tag.end);
    }
    return std::nullopt;
}

// Counts what a document keeps, which takes far more memory there than in the text.
class NodeCount
{
public:
    std::optional<XmlProblem> add(const QXmlStreamReader &reader)
    {
        const auto token = reader.tokenType();
        const bool isStart = token == QXmlStreamReader::StartElement;
        m_depth += isStart ? 1 : token == QXmlStreamReader::EndElement ? -1 : 0;
        if (m_depth > deepest)
            return problem(QT_TRANSLATE_NOOP("XmlGuard", "elements are nested too deeply"),
                           reader.lineNumber());
        m_bodies += isStart && reader.qualifiedName() == m_bodyTag ? 1 : 0;
        if (m_bodies > mostBodies)
            return problem(QT_TRANSLATE_NOOP("XmlGuard",
                                             "the project has more than 100,000 bodies; split it "
                                             "into several projects"),
                           reader.lineNumber());
        m_attributes += isStart ? reader.attributes().size() : 0;
        if (m_attributes > mostAttributesInAll)
            return problem(QT_TRANSLATE_NOOP("XmlGuard",
                                             "the text has more than 500,000 attributes; split the "
                                             "project into several ones"),
                           reader.lineNumber());
        const bool isKept = token != QXmlStreamReader::EndElement && !reader.isWhitespace();
        m_nodes += isKept ? 1 : 0;
        if (m_nodes > mostNodes)
            return problem(
                QT_TRANSLATE_NOOP("XmlGuard",
                                  "the text has more than two million elements; split the "
                                  "project into several ones"),
                reader.lineNumber());
        return std::nullopt;
    }

private:
    const QString m_bodyTag = Body::tag();
    int m_depth = 0;
    int m_bodies = 0;
    int m_nodes = 0;
    int m_attributes = 0;
};
} // namespace

std::optional<XmlProblem> findXmlProblem(const QByteArray &xml)
{
    if (xml.size() > longest)
        return problem(QT_TRANSLATE_NOOP("XmlGuard", "the text is longer than 64 MiB"), 1);
    // Always UTF-8, whatever the text says of itself.
    const QString text = QString::fromUtf8(xml);
    if (auto trap = findTrap(text))
        return trap;
    QXmlStreamReader reader(text);
    // As the document is read, and names of spaces would be looked for in all that are declared.
    reader.setNamespaceProcessing(false);
    NodeCount count;
    while (!reader.atEnd()) {
        reader.readNext();
        if (auto found = count.add(reader))
            return found;
    }
    if (reader.hasError())
        return XmlProblem{reader.errorString(), reader.lineNumber()};
    return std::nullopt;
}
