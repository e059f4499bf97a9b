#include "model/XmlGuard.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

namespace {
constexpr int deepest = 64;
constexpr int longest = 64 * 1024 * 1024;
} // namespace

std::optional<XmlProblem> findXmlProblem(const QByteArray &xml)
{
    const auto problem = [](const char *text, qint64 line) {
        return XmlProblem{QCoreApplication::translate("XmlGuard", text), line};
    };
    if (xml.size() > longest)
        return problem(QT_TRANSLATE_NOOP("XmlGuard", "the text is longer than 64 MiB"), 1);
    // Always UTF-8, whatever the text says of itself.
    QXmlStreamReader reader(QString::fromUtf8(xml));
    int depth = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::DTD && !reader.entityDeclarations().isEmpty())
            return problem(QT_TRANSLATE_NOOP("XmlGuard", "entities are not supported"),
                           reader.lineNumber());
        if (token == QXmlStreamReader::EndElement)
            --depth;
        if (token == QXmlStreamReader::StartElement && ++depth > deepest)
            return problem(QT_TRANSLATE_NOOP("XmlGuard", "elements are nested too deeply"),
                           reader.lineNumber());
    }
    if (reader.hasError())
        return XmlProblem{reader.errorString(), reader.lineNumber()};
    return std::nullopt;
}
