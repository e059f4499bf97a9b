#include "ProgramRun.h"

#include <QVector>

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {
double secondsOf(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) / 1e6;
}
} // namespace

Usage runProgram(const QStringList &words)
{
    QList<QByteArray> bytes;
    for (const QString &word : words)
        bytes.append(word.toLocal8Bit());
    QVector<char *> arguments;
    for (QByteArray &word : bytes)
        arguments.append(word.data());
    arguments.append(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    timespec start{};
    timespec end{};
    clock_gettime(CLOCK_MONOTONIC, &start);
    const int problem =
        posix_spawn(&child, arguments.first(), &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (problem != 0)
        throw std::runtime_error(bytes.first().toStdString() + " can't be started");
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    clock_gettime(CLOCK_MONOTONIC, &end);
    if (!WIFEXITED(status))
        throw std::runtime_error(bytes.first().toStdString() + " was ended");
    return {double(end.tv_sec - start.tv_sec) + double(end.tv_nsec - start.tv_nsec) / 1e9,
            secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
            double(usage.ru_maxrss) / 1024.0,
            WEXITSTATUS(status)};
}
