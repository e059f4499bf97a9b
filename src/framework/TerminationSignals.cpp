#include "framework/TerminationSignals.h"

#include <QtGlobal>

#ifdef Q_OS_UNIX

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr std::array<int, 3> asking{SIGHUP, SIGINT, SIGTERM};

// Read and written in the handler, too.
std::array<std::atomic<int>, 2> ends{-1, -1};
static_assert(std::atomic<int>::is_always_lock_free);

void handle(int number)
{
    const int error = errno;
    const char byte = char(number);
    [[maybe_unused]] const auto written = ::write(ends[1].load(), &byte, 1);
    errno = error;
}

bool openPipe()
{
    std::array<int, 2> files{};
    if (pipe(files.data()) != 0)
        return false;
    for (std::size_t i = 0; i < files.size(); ++i) {
        fcntl(files[i], F_SETFD, FD_CLOEXEC);
        fcntl(files[i], F_SETFL, O_NONBLOCK);
        ends[i].store(files[i]);
    }
    return true;
}

void setHandler(void (*handler)(int))
{
    for (const int number : asking) {
        struct sigaction action = {};
        sigaction(number, nullptr, &action);
        if (action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
}
} // namespace

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
    if (!openPipe())
        return;
    auto *notifier = new QSocketNotifier(ends[0].load(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        char number = 0;
        if (::read(ends[0].load(), &number, 1) != 1)
            return;
        notifier->setEnabled(false);
        Q_EMIT received(number);
    });
    setHandler(handle);
}

TerminationSignals::~TerminationSignals()
{
    setHandler(SIG_DFL);
    for (auto &end : ends) {
        if (const int file = end.exchange(-1); file >= 0)
            ::close(file);
    }
}

#else

TerminationSignals::TerminationSignals(QObject *parent)
    : QObject(parent)
{
}

TerminationSignals::~TerminationSignals() = default;

#endif
