#include "base/LogFile.h"

#include <QDir>

namespace {
QString olderNameIn(const QString &folder)
{
    return folder + QStringLiteral("/log.1.txt");
}
} // namespace

QString LogFile::nameIn(const QString &folder)
{
    return folder + QStringLiteral("/log.txt");
}

void LogFile::open(const QString &folder)
{
    m_folder = folder;
    QDir().mkpath(folder);
    reopen();
}

void LogFile::write(const QByteArray &line)
{
    if (!m_file.isOpen())
        return;
    makeRoom(line.size());
    // In one call, so that lines of several programs stay whole.
    m_file.write(line);
}

void LogFile::reopen()
{
    m_file.close();
    m_file.setFileName(nameIn(m_folder));
    // Without a buffer: the last lines before a fault are those that matter.
    m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void LogFile::makeRoom(qint64 size)
{
    if (m_file.size() + size <= limit)
        return;
    // Another program may have begun a new file already.
    reopen();
    if (m_file.size() + size <= limit)
        return;
    m_file.close();
    QFile::remove(olderNameIn(m_folder));
    QFile::rename(nameIn(m_folder), olderNameIn(m_folder));
    reopen();
    // What can't be moved away is not left to grow.
    if (m_file.size() + size > limit)
        m_file.resize(0);
}
