#include "model/RecoverySnapshot.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/properties/DataFiles.h"
#include "model/properties/PropertyByteArray.h"

#include <QSet>

#include <algorithm>

namespace {
/// Collects the surfaces without leaving a trace in the project, as saving does.
class SurfaceCollector : public DataFiles
{
public:
    explicit SurfaceCollector(QVector<RecoverySnapshot::Surface> &surfaces)
        : m_surfaces(surfaces)
    {
    }

    void add(PropertyByteArray &property) override
    {
        const QString &id = property.dataFileId();
        if (m_ids.contains(id))
            throw ErrorAlreadyExists(
                QCoreApplication::translate("RecoverySnapshot",
                                            "Two surfaces of the project are named '%1'")
                    .arg(id));
        m_ids.insert(id);
        const auto kept = property.keptDataFile();
        // One that was missing stays missing.
        if (kept && kept->damaged && kept->packed.isEmpty())
            return;
        m_surfaces.append({id, property.revision(), property.value(), {}});
        if (kept)
            m_surfaces.last().packed = kept->packed;
    }

    std::shared_ptr<DataFile> find(const QString &) const override { return nullptr; }
    void unpack(const QVector<std::shared_ptr<DataFile>> &) const override {}

private:
    QVector<RecoverySnapshot::Surface> &m_surfaces;
    QSet<QString> m_ids;
};
} // namespace

bool RecoverySnapshot::isSameAs(const RecoverySnapshot &other) const
{
    const auto isSameSurface = [](const Surface &a, const Surface &b) {
        return a.id == b.id && a.revision == b.revision;
    };
    return projectPath == other.projectPath && elements == other.elements &&
           std::equal(surfaces.begin(),
                      surfaces.end(),
                      other.surfaces.begin(),
                      other.surfaces.end(),
                      isSameSurface);
}

void RecoverySnapshot::shrink()
{
    thumbnail = {};
    for (Surface &surface : surfaces) {
        surface.value.clear();
        surface.packed.clear();
    }
}

RecoverySnapshot takeSnapshot(Project &project, const FileStamp &file)
{
    RecoverySnapshot snapshot;
    snapshot.projectPath = project.filename().value().path();
    snapshot.projectFile = file;
    snapshot.time = QDateTime::currentDateTimeUtc();
    SurfaceCollector collector(snapshot.surfaces);
    snapshot.elements = PropertyXMLWriter(QString(), collector).elementsOf(project);
    snapshot.thumbnail = thumbnailPartsOf(project);
    return snapshot;
}
