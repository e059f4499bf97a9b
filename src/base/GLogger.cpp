#include "base/GLogger.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <cstdio>

namespace {
std::atomic<int> verbosity{GLogger::warnings};

int levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return GLogger::debugging;
    case QtInfoMsg:
        return GLogger::information;
    case QtWarningMsg:
        return GLogger::warnings;
    case QtCriticalMsg:
        return 3;
    case QtFatalMsg:
        break;
    }
    return 2;
}

void writeMessage(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (levelOf(type) > verbosity.load(std::memory_order_relaxed))
        return;
    const QByteArray line = message.toLocal8Bit() + '\n';
    std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
    std::fflush(stderr);
}
} // namespace

void GLogger::install()
{
    qInstallMessageHandler(writeMessage);
}

void GLogger::setVerbosity(int level)
{
    verbosity.store(level, std::memory_order_relaxed);
}
