#include "base/GLogger.h"

#include "base/LogFile.h"
#include "base/LogRing.h"
#include "base/MessageListener.h"

#include <QByteArray>
#include <QDateTime>
#include <QLoggingCategory>
#include <QString>

#include <atomic>
#include <cstdio>
#include <mutex>

namespace {
struct Log
{
    std::mutex mutex; // of those who write; who reads the ring needs none
    LogRing ring;
    LogFile file;
};

// Never destroyed, since the toolkit writes messages to the very end.
Log &log()
{
    static auto *const instance = new Log;
    return *instance;
}

std::atomic<int> verbosity{GLogger::warnings};

struct Level
{
    int number;
    const char *name;
};

Level levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return {GLogger::debugging, "debug"};
    case QtInfoMsg:
        return {GLogger::information, "info"};
    case QtWarningMsg:
        return {GLogger::warnings, "warning"};
    case QtCriticalMsg:
        return {3, "critical"};
    case QtFatalMsg:
        break;
    }
    return {2, "fatal"};
}

void keep(const QByteArray &line)
{
    const QList<QByteArray> parts = line.split('\n');
    const std::lock_guard lock(log().mutex);
    for (const QByteArray &part : parts)
        log().ring.add(part.constData(), std::size_t(part.size()));
    log().file.write(line + '\n');
}

void writeMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    MessageListener::tell(message);
    const Level level = levelOf(type);
    if (level.number <= verbosity.load(std::memory_order_relaxed)) {
        const QByteArray line = message.toLocal8Bit() + '\n';
        std::fwrite(line.constData(), 1, size_t(line.size()), stderr);
        std::fflush(stderr);
    }
    // What the log's own file has to say must not come back to it.
    static thread_local bool isKeeping = false;
    if (isKeeping)
        return;
    isKeeping = true;
    keep(QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toLatin1() + ' ' + level.name +
         ": " + message.toUtf8());
    isKeeping = false;
}

QLoggingCategory::CategoryFilter formerFilter = nullptr;

// What a user mutes by rules, as in QT_LOGGING_RULES, is not said to anybody who listens either.
// The decoders of Qt 5 warn in the default category, the one of Qt 6 for JPEGs in its own.
void keepWarnings(QLoggingCategory *category)
{
    formerFilter(category);
    for (const char *name : {"default", "qt.gui.imageio.jpeg"}) {
        if (qstrcmp(category->categoryName(), name) == 0)
            category->setEnabled(QtWarningMsg, true);
    }
}
} // namespace

void GLogger::install()
{
    log();
    qInstallMessageHandler(writeMessage);
    if (!formerFilter)
        formerFilter = QLoggingCategory::installFilter(keepWarnings);
}

void GLogger::setVerbosity(int level)
{
    verbosity.store(level, std::memory_order_relaxed);
}

void GLogger::keepIn(const QString &folder)
{
    const std::lock_guard lock(log().mutex);
    log().file.open(folder);
}

const LogRing &GLogger::lastLines()
{
    return log().ring;
}
