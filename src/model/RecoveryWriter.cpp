#include "model/RecoveryWriter.h"

#include "base/Error.h"
#include "model/FileWriting.h"
#include "model/Project.h"
#include "model/XmlGuard.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <exception>
#include <utility>

namespace {
constexpr int thumbnailSide = 192;
constexpr int fastest = 1; // the level of compression: four times as fast as the usual one

QString noMemory()
{
    return RecoveryWriter::tr("There is not enough memory");
}

struct SurfaceFile
{
    QString path;
    QByteArray value;
    QByteArray packed;
};

// Lets go of each surface as soon as it is packed.
QString writeSurfaces(QVector<SurfaceFile> &files)
{
    for (SurfaceFile &file : files) {
        const QByteArray packed =
            file.packed.isEmpty() ? qCompress(file.value, fastest) : file.packed;
        file.value.clear();
        if (packed.isEmpty())
            return noMemory();
        if (QString problem = writeFile(file.path, packed); !problem.isEmpty())
            return problem;
    }
    return {};
}

QByteArray pngOf(const QImage &image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

struct Completion
{
    QString folder;
    QString indexPath;
    QString thumbnailPath;
    RecoveryIndex index;
    XmlElements elements;
    ThumbnailParts thumbnail;
};

// The index comes last of all that it names; only then may go what it doesn't.
QString complete(Completion parts)
{
    const QImage thumbnail = litThumbnail(parts.thumbnail, thumbnailSide);
    if (thumbnail.isNull() || !writeFile(parts.thumbnailPath, pngOf(thumbnail)).isEmpty())
        parts.index.thumbnail.clear();
    parts.index.xml = textOf(toDocument(parts.elements), 1).toUtf8();
    if (const auto problem = findXmlProblem(parts.index.xml))
        return problem->message;
    if (QString problem = writeFile(parts.indexPath, parts.index.toBytes()); !problem.isEmpty())
        return problem;
    RecoveryFolder::removeOthers(parts.folder, parts.index.fileNames());
    return {};
}
} // namespace

RecoveryWriter::RecoveryWriter(RecoveryStore store, QObject *parent)
    : QObject(parent)
    , m_store(std::move(store))
{
    connect(
        this, &RecoveryWriter::pieceFinished, this, &RecoveryWriter::goOn, Qt::QueuedConnection);
}

RecoveryWriter::~RecoveryWriter()
{
    disconnect();
    if (!m_waiting.empty())
        m_problem = QStringLiteral("the program ends");
    m_waiting.clear();
    finish();
}

void RecoveryWriter::write(Project &project, const FileStamp &file)
{
    if (isBusy())
        return;
    forgetLostFolder();
    try {
        m_snapshot = takeSnapshot(project, file);
    } catch (const Error &error) {
        Q_EMIT failed(error.message());
        return;
    }
    if (m_lastSnapshot && m_snapshot.isSameAs(*m_lastSnapshot))
        return;
    if (!m_folder)
        m_folder = m_store.createFolder();
    if (!m_folder) {
        m_snapshot = {};
        Q_EMIT failed(tr("No folder can be made for it"));
        return;
    }
    m_stage = Stage::Packing;
    queueSurfaces();
    goOn();
}

void RecoveryWriter::drop()
{
    forgetLast();
    m_waiting.clear();
    m_hasAdopted = false;
    if (!m_folder)
        return;
    m_isDropped = true;
    if (!isBusy())
        tidy();
}

// It was kept through a crash: a wrong answer to one question shall not lose it.
void RecoveryWriter::giveUp()
{
    if (m_hasAdopted)
        finish();
    if (!hasAdopted()) {
        drop();
        return;
    }
    confirmAdopted();
    m_hasAdopted = false;
    forgetLast();
    m_folder->setMark(RecoveryFolder::Mark::GivenUp);
    m_folder.reset();
}

void RecoveryWriter::adopt(RecoveryEntry entry, Project &project)
{
    finish();
    m_folder = std::move(entry.folder);
    // Nobody has seen what becomes of it.
    m_folder->setMark(RecoveryFolder::Mark::Shown, false);
    m_folder->setMark(RecoveryFolder::Mark::GivenUp, false);
    m_hasAdopted = true;
    m_lastSnapshot = takeSnapshot(project);
    m_lastSnapshot->shrink();
    m_lastFiles = entry.index->fileNames();
    m_lastWritten.clear();
    for (const auto &surface : std::as_const(m_lastSnapshot->surfaces)) {
        const QString name = entry.index->dataFiles.value(surface.id);
        if (!name.isEmpty())
            m_lastWritten.insert(surface.id, {surface.revision, name});
    }
}

// Somebody may have cleared the place meanwhile: then there is nothing to promise.
bool RecoveryWriter::hasAdopted() const
{
    return m_hasAdopted && m_folder && QFile::exists(m_folder->indexPath());
}

void RecoveryWriter::confirmAdopted()
{
    if (m_folder)
        m_folder->setMark(RecoveryFolder::Mark::Tried, false);
}

void RecoveryWriter::forgetLast()
{
    m_lastSnapshot.reset();
    m_lastWritten.clear();
    m_lastFiles.clear();
}

// Somebody may have cleared the place meanwhile.
void RecoveryWriter::forgetLostFolder()
{
    if (!m_folder || QFileInfo(m_folder->path()).isDir())
        return;
    m_folder.reset();
    forgetLast();
}

// In pieces that are not long to wait for, and not so small that handing them over costs more.
void RecoveryWriter::queueSurfaces()
{
    constexpr int mostFiles = 64;
    constexpr qint64 enoughBytes = qint64(8) << 20;
    m_writing.clear();
    QVector<SurfaceFile> piece;
    qint64 bytes = 0;
    const auto queue = [&] {
        m_waiting.emplace_back([files = piece]() mutable { return writeSurfaces(files); });
        piece.clear();
        bytes = 0;
    };
    for (const auto &surface : std::as_const(m_snapshot.surfaces)) {
        Written written = m_lastWritten.value(surface.id);
        if (written.name.isEmpty() || written.revision != surface.revision) {
            written = {surface.revision, RecoveryFolder::newDataFileName()};
            piece.append({m_folder->filePath(written.name), surface.value, surface.packed});
            bytes += surface.packed.isEmpty() ? surface.value.size() : 0;
        }
        m_writing.insert(surface.id, written);
        if (piece.size() == mostFiles || bytes >= enoughBytes)
            queue();
    }
    if (!piece.isEmpty())
        queue();
    for (auto &surface : m_snapshot.surfaces) {
        surface.value.clear();
        surface.packed.clear();
    }
}

RecoveryWriter::Work RecoveryWriter::completion()
{
    m_index = {};
    m_index.projectPath = m_snapshot.projectPath;
    m_index.projectFile = m_snapshot.projectFile;
    m_index.time = m_snapshot.time;
    m_index.thumbnail = RecoveryFolder::newDataFileName();
    for (auto file = m_writing.cbegin(); file != m_writing.cend(); ++file)
        m_index.dataFiles.insert(file.key(), file.value().name);
    const Completion parts{m_folder->path(),
                           m_folder->indexPath(),
                           m_folder->filePath(m_index.thumbnail),
                           m_index,
                           m_snapshot.elements,
                           m_snapshot.thumbnail};
    m_snapshot.shrink();
    return [parts] { return complete(parts); };
}

// Rather no snapshot than an end of the program for one.
void RecoveryWriter::start(Work work)
{
    auto guarded = [work = std::move(work)] {
        try {
            return work();
        } catch (const std::exception &) {
            return noMemory();
        }
    };
    m_tasks.emplace_back(std::move(guarded), [this] { Q_EMIT pieceFinished(QPrivateSignal()); });
}

void RecoveryWriter::goOn()
{
    for (auto task = m_tasks.begin(); task != m_tasks.end();) {
        if (!task->isFinished()) {
            ++task;
            continue;
        }
        if (const QString problem = task->take(); m_problem.isEmpty())
            m_problem = problem;
        task = m_tasks.erase(task);
    }
    if (!m_problem.isEmpty())
        m_waiting.clear();
    while (!m_waiting.empty() && int(m_tasks.size()) < backgroundThreads()) {
        start(std::move(m_waiting.front()));
        m_waiting.pop_front();
    }
    if (m_tasks.empty() && isBusy())
        finishStage();
}

void RecoveryWriter::finishStage()
{
    const QString problem = std::exchange(m_problem, {});
    if (m_stage == Stage::Tidying) {
        m_stage = Stage::Idle;
        if (m_isDropped)
            tidy();
        return;
    }
    if (m_isDropped || !problem.isEmpty()) {
        m_snapshot = {};
        const bool isFailure = !m_isDropped;
        tidy();
        if (isFailure)
            Q_EMIT failed(problem);
        return;
    }
    if (m_stage == Stage::Packing) {
        m_stage = Stage::Completing;
        start(completion());
        return;
    }
    m_stage = Stage::Idle;
    m_lastSnapshot = std::exchange(m_snapshot, {});
    m_lastWritten = m_writing;
    m_lastFiles = m_index.fileNames();
    Q_EMIT written();
}

// Removes what no snapshot names, the dropped one's files among them.
void RecoveryWriter::tidy()
{
    m_stage = Stage::Tidying;
    start([path = m_folder->path(), names = m_lastFiles, all = std::exchange(m_isDropped, false)] {
        if (all)
            RecoveryFolder::clear(path);
        else
            RecoveryFolder::removeOthers(path, names);
        return QString();
    });
}

void RecoveryWriter::finish()
{
    while (isBusy()) {
        for (const auto &task : m_tasks)
            task.wait();
        goOn();
    }
}
