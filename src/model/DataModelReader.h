#pragma once

#include <QCoreApplication>
#include <QStringList>

#include <memory>

class DataFiles;
class Project;
class ProjectBundle;

/// Loads projects: bundles, and bare XML documents (".vex") of older versions.
class DataModelReader
{
    Q_DECLARE_TR_FUNCTIONS(DataModelReader)

public:
    /// The extensions of a bundle (".vep") and of the XML text in it (".vexml").
    DataModelReader(const QString &bundleExtension, const QString &xmlExtension);

    /// The project of @p fileName, with an empty undo stack and no sprite loaded. Throws Error when
    /// the file is no project that can be read.
    std::shared_ptr<Project> read(const QString &fileName);

    /// The same of a bundle that was read elsewhere; @p fileName, which may be empty, becomes the
    /// project's.
    std::shared_ptr<Project> read(const ProjectBundle &bundle, const QString &fileName);

    /// The same with all surfaces left out, which take most of the time.
    std::shared_ptr<Project> readWithoutSurfaces(const QString &fileName) const;

    /// The names of the bodies whose surface the last read file had lost. They count as not
    /// painted; what is left of their data files is saved again untouched.
    const QStringList &damagedBodies() const { return m_damagedBodies; }

private:
    static QByteArray readBareXml(const QString &fileName);
    ProjectBundle readBundle(const QString &fileName) const;
    static std::shared_ptr<Project>
    parse(const QString &fileName, const QByteArray &xml, const DataFiles *dataFiles);

    QString m_bundleExtension;
    QString m_xmlExtension;
    QStringList m_damagedBodies;
};
