#include "model/DataModelWriter.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/ProjectBundle.h"
#include "model/XmlGuard.h"
#include "model/properties/PropertyT.h"
#include "model/properties/PropertyXMLWriter.h"

DataModelWriter::DataModelWriter(Project &project)
    : m_project(project)
{
}

void DataModelWriter::write(const std::function<void(int done, int total)> &progress)
{
    const QString fileName = m_project.filename().value().path();
    if (fileName.isEmpty())
        throw Error(tr("No filename set on project"));
    if (!fileName.endsWith(QLatin1String(".vep")))
        throw Error(tr("File type of '%1' not supported").arg(fileName));
    ProjectBundle bundle(QStringLiteral(".vep"), QStringLiteral(".vexml"));
    bundle.setFileName(fileName);
    PropertyXMLWriter writer(m_project.filename().value().canonicalFolder(), bundle);
    const QByteArray xml = textOf(writer.write(m_project), 4).toUtf8();
    // Better no file than one that can't be opened again.
    if (const auto problem = findXmlProblem(xml))
        throw Error(tr("Failed to save '%1': %2").arg(fileName, problem->message));
    bundle.setXml(xml);
    bundle.write(progress);
}
