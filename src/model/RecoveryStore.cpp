#include "model/RecoveryStore.h"

#include "base/Error.h"
#include "model/DataModelReader.h"
#include "model/Project.h"
#include "model/ProjectBundle.h"
#include "model/PropertyAngleImage.h"
#include "model/properties/PropertyT.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace {
constexpr int daysKept = 7;
// More than the longest XML text that is accepted, with all that may come before it.
constexpr qint64 longestIndex = qint64(96) << 20;

QByteArray readIndex(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(longestIndex) : QByteArray();
}

// The whole of it: random slopes of the largest surface hardly pack, and what is left of a damaged
// data file has no limit of its own.
QByteArray readDataFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Who comes back from a long holiday has seven days to decide, too. What was given up goes with its
// last offer, however late that comes.
bool isOver(const RecoveryEntry &entry, const QDateTime &now)
{
    if (entry.folder->hasMark(RecoveryFolder::Mark::GivenUp))
        return false;
    const QDateTime shown = entry.folder->timeOfMark(RecoveryFolder::Mark::Shown);
    return shown.isValid() && entry.index &&
           std::max(shown, entry.index->time).addDays(daysKept) < now;
}

QDateTime timeOf(const RecoveryEntry &entry)
{
    return entry.index ? entry.index->time : QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
}
} // namespace

RecoveryStore::RecoveryStore(const QString &root)
    : m_root(root)
{
}

std::unique_ptr<RecoveryFolder> RecoveryStore::createFolder() const
{
    return RecoveryFolder::create(m_root);
}

std::vector<RecoveryEntry> RecoveryStore::takeLeftOvers(const QDateTime &now) const
{
    std::vector<RecoveryEntry> entries;
    const QDir root(m_root);
    const auto names = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        RecoveryEntry entry{RecoveryFolder::take(root.filePath(name)), {}};
        // Without an index nothing was complete: the folder goes with the entry.
        if (!entry.folder || !QFile::exists(entry.folder->indexPath()))
            continue;
        entry.index = RecoveryIndex::fromBytes(readIndex(entry.folder->indexPath()));
        if (isOver(entry, now))
            RecoveryFolder::clear(entry.folder->path());
        else
            entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(), [](const auto &a, const auto &b) {
        return timeOf(a) > timeOf(b);
    });
    return entries;
}

std::shared_ptr<Project> RecoveryStore::read(const RecoveryEntry &entry, QStringList *damagedBodies)
{
    if (!entry.index)
        throw Error(tr("The snapshot in '%1' can't be read").arg(entry.folder->path()));
    ProjectBundle bundle(QStringLiteral(".vep"), QStringLiteral(".vexml"));
    bundle.setFileName(entry.index->projectPath);
    // Better a project that has to be made smaller than lost work.
    bundle.setUncapped();
    bundle.setXml(entry.index->xml);
    const auto &files = entry.index->dataFiles;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        auto dataFile = std::make_shared<DataFile>();
        dataFile->packed = readDataFile(entry.folder->filePath(file.value()));
        bundle.add(file.key(), dataFile);
    }
    DataModelReader reader(QStringLiteral(".vep"), QStringLiteral(".vexml"));
    auto project = reader.read(bundle, entry.index->projectPath);
    // A snapshot is packed in haste; saving packs better.
    for (Body *body : project->bodies().all()) {
        const auto &dataFile = body->paintedNormalMap().dataFile();
        if (!dataFile->damaged)
            dataFile->packed.clear();
    }
    *damagedBodies = reader.damagedBodies();
    return project;
}
