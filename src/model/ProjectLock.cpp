#include "model/ProjectLock.h"

#include "base/GFileName.h"
#include "model/LockTaking.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QtDebug>

ProjectLock::ProjectLock(const QString &fileName)
    : m_path(lockPath(fileName))
{
    m_lock = std::make_unique<QLockFile>(m_path);
    if (takeLock(*m_lock))
        return;
    m_mayWrite = m_lock->error() != QLockFile::LockFailedError;
    if (m_mayWrite)
        qWarning() << "The project can't be locked by" << m_path;
}

QString ProjectLock::otherHolder() const
{
    if (m_mayWrite)
        return {};
    qint64 process = 0;
    QString host;
    QString program;
    // It may have been given up or be half written at this moment.
    if (!m_lock->getLockInfo(&process, &host, &program) || program.isEmpty())
        return tr("another program");
    const QString owner = QFileInfo(m_path).owner();
    const QString number = QString::number(process);
    const QString words = owner.isEmpty()
                              ? tr("%1 (process %2) on %3").arg(program, number, host)
                              : tr("%1 (process %2) of %4 on %3").arg(program, number, host, owner);
    const bool mayBeDead = host != QSysInfo::machineHostName();
    return mayBeDead ? tr("%1. If it no longer runs there, remove '%2'")
                           .arg(words, QDir::toNativeSeparators(m_path))
                     : words;
}

bool ProjectLock::isOf(const QString &fileName) const
{
    return lockPath(fileName) == m_path;
}

QString ProjectLock::lockPath(const QString &fileName)
{
    const QFileInfo file(GFileName(fileName).canonicalPath());
    return file.dir().filePath(QStringLiteral(".%1.lock").arg(file.fileName()));
}
