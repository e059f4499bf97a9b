#include "framework/CrashLog.h"

#include "base/DataFolder.h"
#include "base/GLogger.h"
#include "framework/CrashHandler.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>

#if __has_include(<cxxabi.h>)
#include <cxxabi.h>

#include <cstdlib>
#endif

namespace {

constexpr qint64 longest = 1 << 20; // bytes of a report that are read

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CrashLog)
};

QFileInfoList reportsIn(const QString &folder, const QString &pattern)
{
    return QDir(folder).entryInfoList({pattern}, QDir::Files, QDir::Time);
}

QByteArray header()
{
    const QStringList lines{
        QStringLiteral("%1 %2").arg(QCoreApplication::applicationName(),
                                    QCoreApplication::applicationVersion()),
        QStringLiteral("Qt %1 (built with %2), %3")
            .arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR), QSysInfo::buildAbi()),
        QStringLiteral("%1, kernel %2")
            .arg(QSysInfo::prettyProductName(), QSysInfo::kernelVersion()),
        QStringLiteral("Started: %1").arg(QDateTime::currentDateTime().toString(Qt::ISODate)),
        QString()};
    return lines.join(QLatin1Char('\n')).toUtf8();
}

QString readableName(const QString &symbol)
{
#if __has_include(<cxxabi.h>)
    int status = 0;
    char *const name =
        abi::__cxa_demangle(symbol.toLatin1().constData(), nullptr, nullptr, &status);
    QString readable = name ? QString::fromUtf8(name) : symbol;
    std::free(name); // NOLINT(*-no-malloc): the library's way to hand it over
    return readable;
#else
    return symbol;
#endif
}

QString withReadableNames(const QString &text)
{
    static const QRegularExpression symbols(QStringLiteral("\\b_Z\\w+"));
    QString readable;
    int end = 0;
    auto matches = symbols.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        readable += text.mid(end, match.capturedStart() - end) + readableName(match.captured());
        end = match.capturedEnd();
    }
    return readable + text.mid(end);
}

QString readText(QFile &file)
{
    return withReadableNames(QString::fromUtf8(file.read(longest)));
}

} // namespace

QString CrashLog::folder()
{
    return dataFolder() + QStringLiteral("/crashes");
}

void CrashLog::start()
{
    GLogger::keepIn(dataFolder());
    install(folder());
}

void CrashLog::install(const QString &folder)
{
    if (!CrashHandler::isSupported() || !QDir().mkpath(folder))
        return;
    const QFileInfoList former = reportsIn(folder, QStringLiteral("fault-*.txt"));
    for (const QFileInfo &report : former.mid(kept))
        QFile::remove(report.filePath());
    const QString name =
        QStringLiteral("fault-%1-%2.new.txt")
            .arg(QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")))
            .arg(QCoreApplication::applicationPid());
    CrashHandler::install(QFile::encodeName(QDir(folder).absoluteFilePath(name)), header());
}

std::optional<CrashLog::Report> CrashLog::takeUnread(const QString &folder)
{
    std::optional<Report> newest;
    for (const QFileInfo &report : reportsIn(folder, QStringLiteral("fault-*.new.txt"))) {
        const QDateTime time = report.lastModified(); // later there is no such file
        // Before it is shown: what can't be shown is not tried at every start.
        QString path = report.filePath();
        path.replace(QLatin1String(".new.txt"), QLatin1String(".txt"));
        QFile file(report.filePath());
        if (!file.rename(path) || newest || !file.open(QIODevice::ReadOnly))
            continue;
        newest = Report{path, time, readText(file)};
    }
    return newest;
}

std::optional<CrashLog::Report> CrashLog::lastTaken(const QString &folder)
{
    for (const QFileInfo &report : reportsIn(folder, QStringLiteral("fault-*.txt"))) {
        QFile file(report.filePath());
        if (!report.fileName().endsWith(QLatin1String(".new.txt")) &&
            file.open(QIODevice::ReadOnly))
            return Report{report.filePath(), report.lastModified(), readText(file)};
    }
    return {};
}

QString CrashLog::explain(const Report &report)
{
    const auto tells = [&report](const char *signal) {
        return report.text.contains(QLatin1String(signal));
    };
    if (tells(" SIGSEGV") || tells(" SIGBUS"))
        return Words::tr("It used memory that it does not own.");
    if (tells(" SIGABRT"))
        return Words::tr("It stopped itself because something was not as it must be.");
    if (tells(" SIGFPE"))
        return Words::tr("It came to a calculation that has no result.");
    if (tells(" SIGILL"))
        return Words::tr("It came to an instruction that this processor does not know.");
    return {};
}
