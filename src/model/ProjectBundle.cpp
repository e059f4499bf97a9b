#include "model/ProjectBundle.h"

#include "base/Error.h"
#include "imaging/AngleImage.h"
#include "imaging/PoolTask.h"
#include "model/AvailableMemory.h"
#include "model/Inflation.h"
#include "model/ProjectArchive.h"
#include "model/SaveDevice.h"
#include "model/properties/PropertyByteArray.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <deque>

namespace {
// The largest value that a data file may hold is the largest surface.
constexpr qint64 maximumValueSize = 8 + 4 * AngleImage::maximumCells;
constexpr qint64 mostValues = qint64(8) << 30; // all of a project's

QString inMebibytes(qint64 bytes)
{
    return QString::number(bytes >> 20);
}

QString withPoint(const QString &extension)
{
    return extension.startsWith(QLatin1Char('.')) ? extension : QLatin1Char('.') + extension;
}

QString dataFolderName()
{
    return QStringLiteral("datafiles/");
}

// Packs the files that are not packed so far, all at once, and hands them on one by one in order.
class Packer
{
public:
    explicit Packer(const QVector<std::shared_ptr<DataFile>> &files)
    {
        for (const auto &file : files) {
            const bool isPacked = !file->packed.isEmpty() || file->damaged;
            const QByteArray value = file->value;
            m_tasks.push_back(isPacked ? PoolTask<QByteArray>() : PoolTask<QByteArray>([value] {
                return qCompress(value);
            }));
        }
    }

    const QByteArray &packNext(DataFile &file)
    {
        auto task = std::move(m_tasks.front());
        m_tasks.pop_front();
        if (task.isValid())
            file.packed = task.take();
        return file.packed;
    }

private:
    std::deque<PoolTask<QByteArray>> m_tasks;
};
} // namespace

ProjectBundle::ProjectBundle(const QString &bundleExtension, const QString &xmlExtension)
    : m_bundleExtension(withPoint(bundleExtension))
    , m_xmlExtension(withPoint(xmlExtension))
{
}

void ProjectBundle::add(PropertyByteArray &property)
{
    // A data file that was missing stays missing, so that the next load tells of it again.
    const auto &file = property.dataFile();
    if (!file->damaged || !file->packed.isEmpty())
        add(property.dataFileId(), file);
}

void ProjectBundle::add(const QString &id, const std::shared_ptr<DataFile> &file)
{
    if (m_files.contains(id))
        throw ErrorAlreadyExists(
            tr("Data file '%1' already exists in bundle '%2'").arg(id, m_fileName));
    m_ids.append(id);
    m_files.insert(id, file);
}

std::shared_ptr<DataFile> ProjectBundle::find(const QString &id) const
{
    return m_files.value(id);
}

void ProjectBundle::unpack(const QVector<std::shared_ptr<DataFile>> &files) const
{
    using Unpacked = std::optional<QByteArray>;
    // Several bodies may name one file.
    QSet<const DataFile *> seen;
    QVector<std::shared_ptr<DataFile>> sound;
    for (const auto &file : files) {
        if (!file->damaged && !seen.contains(file.get()))
            sound.append(file);
        seen.insert(file.get());
    }
    refuseTooMuchToLoad(sound);
    std::deque<PoolTask<Unpacked>> tasks;
    for (const auto &file : std::as_const(sound)) {
        const QByteArray packed = file->packed;
        tasks.emplace_back([packed] { return unpackBytes(packed, maximumValueSize); });
    }
    for (const auto &file : std::as_const(sound)) {
        const Unpacked value = tasks.front().take();
        tasks.pop_front();
        file->value = value.value_or(QByteArray());
        file->damaged = !value;
    }
}

void ProjectBundle::read()
{
    if (!m_fileName.endsWith(m_bundleExtension))
        throw Error(tr("File type of '%1' not supported").arg(m_fileName));
    ProjectArchiveReader archive;
    QString reason;
    if (!archive.open(m_fileName, &reason)) {
        qInfo("'%s' refused: %s", qUtf8Printable(m_fileName), qUtf8Printable(reason));
        throw ErrorDoesNotExist(tr("Failed to load '%1'").arg(m_fileName));
    }
    const auto [xmlName, dataFolder] = placeIn(archive.entryNames());
    if (archive.isDamaged(xmlName))
        throw ErrorDoesNotExist(tr("Failed to load '%1'").arg(m_fileName));
    m_xml = archive.content(xmlName).value_or(QByteArray());
    if (QString::fromUtf8(m_xml).isEmpty())
        throw ErrorDoesNotExist(tr("Project file '%1' not found in '%2'").arg(xmlName, m_fileName));
    for (const QString &name : archive.entryNames()) {
        if (!name.startsWith(dataFolder) || name.endsWith(QLatin1Char('/')))
            continue;
        auto file = std::make_shared<DataFile>();
        file->damaged = archive.isDamaged(name);
        file->packed =
            file->damaged ? archive.remains(name) : archive.content(name).value_or(QByteArray());
        add(name.mid(dataFolder.size()), file);
    }
}

void ProjectBundle::write(const std::function<void(int done, int total)> &progress) const
{
    if (m_fileName.isEmpty())
        return;
    QVector<std::shared_ptr<DataFile>> files;
    for (const QString &id : m_ids)
        files.append(m_files.value(id));
    refuseTooMuchToSave(files);
    SaveDevice device(m_fileName);
    if (!device.open(QIODevice::WriteOnly))
        throw Error(tr("File location '%1' not writable").arg(m_fileName));
    Packer packer(files);
    ProjectArchiveWriter archive(device);
    archive.addDirectory(dataFolderName());
    bool fits = archive.addFile(QStringLiteral("project") + m_xmlExtension, m_xml);
    for (int i = 0; fits && i < files.size(); ++i) {
        fits = archive.addFile(dataFolderName() + m_ids[i], packer.packNext(*files[i]));
        if (progress)
            progress(i + 1, files.size());
    }
    // The device knows better than the archive why something could not be written.
    if (!fits || !archive.close() || !device.commit()) {
        const bool isDevice = device.hasFailed() || archive.reason().isEmpty();
        throw Error(tr("Failed to save '%1': %2")
                        .arg(m_fileName, isDevice ? device.problem() : archive.reason()));
    }
}

// A file of some kilobytes may claim what no machine holds.
void ProjectBundle::refuseTooMuchToLoad(const QVector<std::shared_ptr<DataFile>> &files) const
{
    qint64 claimed = 0;
    for (const auto &file : files)
        claimed += std::max<qint64>(0, unpackedSize(file->packed, maximumValueSize));
    if (m_isCapped && claimed > mostValues)
        throw Error(tr("Failed to load '%1': its surfaces take %2 MiB, more than the 8192 that a "
                       "project may have. Go back to an older copy of it.")
                        .arg(m_fileName, inMebibytes(claimed)));
    const qint64 memory = availableMemory();
    if (claimed > memory)
        throw Error(tr("Failed to load '%1': its surfaces need %2 MiB of memory, %3 are free. "
                       "Close other programs, or open it on a machine with more memory.")
                        .arg(m_fileName, inMebibytes(claimed), inMebibytes(memory)));
}

// Better no file than one that can't be opened again.
void ProjectBundle::refuseTooMuchToSave(const QVector<std::shared_ptr<DataFile>> &files) const
{
    qint64 size = 0;
    for (const auto &file : files)
        size += file->value.size();
    if (size > mostValues)
        throw Error(tr("Failed to save '%1': its surfaces take %2 MiB, more than the 8192 that a "
                       "project may have. Remove sprites, and give them a project of their own.")
                        .arg(m_fileName, inMebibytes(size)));
}

// Older bundles hold everything inside one folder that is named after the project.
ProjectBundle::Place ProjectBundle::placeIn(const QStringList &entryNames) const
{
    QString first = entryNames.value(0);
    if (first.endsWith(QLatin1Char('/')))
        first.chop(1);
    if (!first.endsWith(QLatin1String(".veproject")))
        return {QStringLiteral("project") + m_xmlExtension, dataFolderName()};
    const QString stem = QFileInfo(first).completeBaseName();
    const QString folder = stem + QStringLiteral(".veproject/");
    return {folder + stem + m_xmlExtension, folder + dataFolderName()};
}
