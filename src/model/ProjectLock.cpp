#include "model/ProjectLock.h"

#include "base/GFileName.h"

#include <QDir>
#include <QFileInfo>
#include <QtDebug>

ProjectLock::ProjectLock(const QString &fileName)
    : m_lock(lockPath(fileName))
{
    const auto taking = m_lock.take();
    m_mayWrite = taking != FileLock::Taking::Held;
    if (taking == FileLock::Taking::Impossible)
        qWarning() << "The project can't be locked by" << m_lock.path();
}

QString ProjectLock::otherHolder() const
{
    if (m_mayWrite)
        return {};
    const QString path = QDir::toNativeSeparators(m_lock.path());
    const auto holder = m_lock.holder();
    // It may have been given up or be half written at this moment.
    if (!holder)
        return tr("%1 (lock file '%2')").arg(tr("another program"), path);
    const QString owner = QFileInfo(m_lock.path()).owner();
    const QString number = QString::number(holder->process);
    const QString words =
        owner.isEmpty()
            ? tr("%1 (process %2) on %3").arg(holder->program, number, holder->host)
            : tr("%1 (process %2) of %4 on %3").arg(holder->program, number, holder->host, owner);
    return holder->isElsewhere ? tr("%1. If it no longer runs there, remove '%2'").arg(words, path)
                               : tr("%1 (lock file '%2')").arg(words, path);
}

bool ProjectLock::isOf(const QString &fileName) const
{
    return lockPath(fileName) == m_lock.path();
}

QString ProjectLock::lockPath(const QString &fileName)
{
    const QFileInfo file(GFileName(fileName).canonicalPath());
    return file.dir().filePath(QStringLiteral(".%1.lock").arg(file.fileName()));
}
