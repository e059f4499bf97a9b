#include "model/AvailableMemory.h"

#include <QByteArray>
#include <QFile>

#include <limits>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {
// Of a line such as "MemAvailable:   12345 kB"; -1 without it.
qint64 bytesOf(const QByteArray &name, const QByteArray &report)
{
    const int at = report.indexOf(name + ':');
    if (at < 0)
        return -1;
    const QByteArray line = report.mid(at, report.indexOf('\n', at) - at);
    return line.simplified().split(' ').value(1).toLongLong() << 10;
}

qint64 physicalMemory()
{
#ifdef Q_OS_UNIX
    return qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE);
#else
    return std::numeric_limits<qint64>::max();
#endif
}
} // namespace

qint64 availableMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    const QByteArray report = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const qint64 memory = bytesOf("MemAvailable", report);
    if (memory < 0)
        return physicalMemory();
    return memory + qMax<qint64>(0, bytesOf("SwapFree", report));
}
