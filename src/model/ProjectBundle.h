#pragma once

#include "model/properties/DataFiles.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QVector>

#include <functional>

/// The archive that a project file is: the XML text, and a data file for each byte array. Data
/// files are packed and unpacked side by side on the global thread pool.
class ProjectBundle : public DataFiles
{
    Q_DECLARE_TR_FUNCTIONS(ProjectBundle)

public:
    /// The extensions of the bundle (".vep") and of the XML text in it (".vexml"); a "." is put
    /// before one that lacks it.
    ProjectBundle(const QString &bundleExtension, const QString &xmlExtension);

    void setFileName(const QString &fileName) { m_fileName = fileName; }
    const QByteArray &xml() const { return m_xml; }
    /// Lets the surfaces take any memory that is free, for what this program has written itself.
    void setUncapped() { m_isCapped = false; }
    void setXml(const QByteArray &xml) { m_xml = xml; }

    void add(PropertyByteArray &property) override;
    /// Throws ErrorAlreadyExists when there is a data file of this @p id.
    void add(const QString &id, const std::shared_ptr<DataFile> &file);
    std::shared_ptr<DataFile> find(const QString &id) const override;
    void unpack(const QVector<std::shared_ptr<DataFile>> &files) const override;

    /// Reads the archive of the bundle's file name. Throws Error when its extension is another, or
    /// ErrorDoesNotExist when it can't be read or holds no project.
    void read();
    /// Replaces the file of the bundle's file name in one move; without a name nothing happens.
    /// Throws Error when it can't be written, the old file is then untouched.
    /// @p progress is called with the data files written and all there are.
    void write(const std::function<void(int done, int total)> &progress = {}) const;

private:
    struct Place
    {
        QString xmlName;
        QString dataFolder;
    };
    void refuseTooMuchToLoad(const QVector<std::shared_ptr<DataFile>> &files) const;
    void refuseTooMuchToSave(const QVector<std::shared_ptr<DataFile>> &files) const;
    Place placeIn(const QStringList &entryNames) const;

    QString m_bundleExtension;
    QString m_xmlExtension;
    QString m_fileName;
    QByteArray m_xml;
    bool m_isCapped = true;
    QVector<QString> m_ids; // in the order in which they were added
    QHash<QString, std::shared_ptr<DataFile>> m_files;
};
