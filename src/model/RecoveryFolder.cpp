#include "model/RecoveryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace {
QString lockName()
{
    return QStringLiteral("lock");
}

QString indexName()
{
    return QStringLiteral("index");
}

QString dataSuffix()
{
    return QStringLiteral(".data");
}

QString newName()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}
} // namespace

RecoveryFolder::RecoveryFolder(const QString &path)
    : m_path(path)
    , m_lock(QDir(path).filePath(lockName()), FileLock::Rule::Kernel)
{
}

std::unique_ptr<RecoveryFolder> RecoveryFolder::create(const QString &root)
{
    // A program that starts right now may take a new folder for one left behind, and remove it.
    constexpr int attempts = 8;
    for (int i = 0; i < attempts; ++i) {
        const QString path = QDir(root).filePath(newName());
        if (!QDir().mkpath(path))
            return nullptr;
        if (auto folder = take(path))
            return folder;
        QDir().rmdir(path);
    }
    return nullptr;
}

std::unique_ptr<RecoveryFolder> RecoveryFolder::take(const QString &path)
{
    std::unique_ptr<RecoveryFolder> folder(new RecoveryFolder(path));
    if (folder->m_lock.take() != FileLock::Taking::Done)
        return nullptr;
    return folder;
}

RecoveryFolder::~RecoveryFolder()
{
    if (!m_lock.isTaken())
        return;
    const bool isEmpty = !QFile::exists(indexPath());
    if (isEmpty)
        clear(m_path);
    m_lock.release();
    if (isEmpty)
        QDir().rmdir(m_path);
}

QString RecoveryFolder::indexPath() const
{
    return filePath(indexName());
}

QString RecoveryFolder::filePath(const QString &name) const
{
    return QDir(m_path).filePath(name);
}

bool RecoveryFolder::hasMark(Mark mark) const
{
    return QFile::exists(markPath(mark));
}

QDateTime RecoveryFolder::timeOfMark(Mark mark) const
{
    return QFileInfo(markPath(mark)).lastModified();
}

bool RecoveryFolder::setMark(Mark mark, bool isSet)
{
    QFile file(markPath(mark));
    if (file.exists() == isSet)
        return true;
    return isSet ? file.open(QIODevice::WriteOnly) : file.remove();
}

QString RecoveryFolder::markPath(Mark mark) const
{
    switch (mark) {
    case Mark::Shown:
        return filePath(QStringLiteral("shown"));
    case Mark::Tried:
        return filePath(QStringLiteral("tried"));
    case Mark::GivenUp:
        break;
    }
    return filePath(QStringLiteral("given-up"));
}

void RecoveryFolder::clear(const QString &path)
{
    QDir folder(path);
    folder.remove(indexName());
    const auto names = folder.entryList(QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        if (name != lockName())
            folder.remove(name);
    }
}

void RecoveryFolder::removeOthers(const QString &path, const QSet<QString> &names)
{
    QDir folder(path);
    const auto present = folder.entryList({QLatin1Char('*') + dataSuffix()}, QDir::Files);
    for (const QString &name : present) {
        if (!names.contains(name))
            folder.remove(name);
    }
}

QString RecoveryFolder::newDataFileName()
{
    return newName() + dataSuffix();
}
