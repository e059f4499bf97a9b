#include "model/DataModelReader.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/ProjectBundle.h"
#include "model/PropertyAngleImage.h"
#include "model/XmlGuard.h"
#include "model/properties/PropertyXMLReader.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace {
bool isBareXml(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".vex"));
}
} // namespace

DataModelReader::DataModelReader(const QString &bundleExtension, const QString &xmlExtension)
    : m_bundleExtension(bundleExtension)
    , m_xmlExtension(xmlExtension)
{
}

std::shared_ptr<Project> DataModelReader::read(const QString &fileName)
{
    if (isBareXml(fileName)) {
        m_damagedBodies.clear();
        return parse(fileName, readBareXml(fileName), nullptr);
    }
    return read(readBundle(fileName), fileName);
}

std::shared_ptr<Project> DataModelReader::read(const ProjectBundle &bundle, const QString &fileName)
{
    m_damagedBodies.clear();
    auto project = parse(fileName, bundle.xml(), &bundle);
    for (Body *body : project->bodies().all()) {
        body->paintedNormalMap().refuseDamagedBytes();
        if (body->paintedNormalMap().isDamaged())
            m_damagedBodies.append(body->name().value());
    }
    return project;
}

std::shared_ptr<Project> DataModelReader::readWithoutSurfaces(const QString &fileName) const
{
    const QByteArray xml = isBareXml(fileName) ? readBareXml(fileName) : readBundle(fileName).xml();
    return parse(fileName, xml, nullptr);
}

QByteArray DataModelReader::readBareXml(const QString &fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        throw Error(tr("Failed to open file '%1'").arg(fileName));
    // More than the longest text that is accepted need not be read to be refused.
    constexpr qint64 enough = qint64(65) << 20;
    return file.read(enough);
}

ProjectBundle DataModelReader::readBundle(const QString &fileName) const
{
    ProjectBundle bundle(m_bundleExtension, m_xmlExtension);
    bundle.setFileName(fileName);
    bundle.read();
    return bundle;
}

std::shared_ptr<Project>
DataModelReader::parse(const QString &fileName, const QByteArray &xml, const DataFiles *dataFiles)
{
    const auto refuse = [](const QString &message, qint64 line) {
        throw Error(tr("XML parser error: %1 (line %2)").arg(message, QString::number(line)));
    };
    if (const auto problem = findXmlProblem(xml))
        refuse(problem->message, problem->line);
    QDomDocument document;
    QString message;
    int line = 0;
    if (!document.setContent(QString::fromUtf8(xml), &message, &line))
        refuse(message, line);
    const QDomElement root = document.documentElement();
    if (root.tagName() != Project::tag())
        throw Error(tr("'%1' is not a Vesperine project file").arg(fileName));

    auto project = std::make_shared<Project>();
    PropertyXMLReader(GFileName(fileName).canonicalFolder(), dataFiles).read(*project, root);
    // The file may have been renamed since it was saved.
    project->filename().setValue(GFileName(fileName));
    return project;
}
