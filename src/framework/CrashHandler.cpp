#include "framework/CrashHandler.h"

#include <QtGlobal>

#if defined(Q_OS_LINUX) && defined(__GLIBC__)

#include "base/GLogger.h"
#include "base/LogRing.h"

#include <csignal>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <memory>

namespace {

struct Fault
{
    int signal;
    const char *name;
};
constexpr std::array<Fault, 5> faults{{{SIGSEGV, "SIGSEGV"},
                                       {SIGABRT, "SIGABRT"},
                                       {SIGBUS, "SIGBUS"},
                                       {SIGFPE, "SIGFPE"},
                                       {SIGILL, "SIGILL"}}};
constexpr unsigned patience = 10; // seconds for the report
constexpr int deepest = 96;       // calls that are told

/// Bytes that were made while the program was well.
template <std::size_t Size>
class Prepared
{
public:
    void set(const QByteArray &text)
    {
        m_size.store(0, std::memory_order_relaxed);
        const std::size_t size = std::min(std::size_t(text.size()), Size - 1);
        std::memcpy(m_bytes.data(), text.constData(), size);
        m_bytes[size] = '\0';
        m_size.store(size, std::memory_order_release);
    }
    const char *bytes() const { return m_bytes.data(); }
    std::size_t size() const { return m_size.load(std::memory_order_acquire); }

private:
    std::array<char, Size> m_bytes{};
    std::atomic<std::size_t> m_size{0};
};

Prepared<4096> path;
Prepared<4096> header;
Prepared<4096> graphics;
const LogRing *lastLines = nullptr;
std::atomic<int> firstSignal{0};
std::atomic<pid_t> reporter{0};

/// The stack for a handler of one thread.
class AlternateStack
{
public:
    AlternateStack()
    {
        stack_t present{};
        // A sanitizer has given each thread one already.
        if (sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0)
            return;
        const auto size = std::max<std::size_t>(std::size_t(SIGSTKSZ), 1 << 16);
        m_memory = std::make_unique_for_overwrite<char[]>(size); // NOLINT(*-avoid-c-arrays)
        stack_t stack{};
        stack.ss_sp = m_memory.get();
        stack.ss_size = size;
        sigaltstack(&stack, nullptr);
    }
    ~AlternateStack()
    {
        if (!m_memory)
            return;
        stack_t none{};
        none.ss_flags = SS_DISABLE;
        sigaltstack(&none, nullptr);
    }
    AlternateStack(const AlternateStack &) = delete;
    AlternateStack &operator=(const AlternateStack &) = delete;

private:
    std::unique_ptr<char[]> m_memory; // NOLINT(*-avoid-c-arrays)
};

// From here on everything may run in the handler: no memory, no locks, no toolkit.

pid_t ownThread()
{
    return pid_t(syscall(SYS_gettid));
}

void write(int file, const char *bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(file, bytes, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        bytes += written;
        size -= std::size_t(written);
    }
}

void write(int file, const char *text)
{
    write(file, text, std::strlen(text));
}

void writeNumber(int file, quintptr number, unsigned base)
{
    std::array<char, 24> digits{};
    std::size_t first = digits.size();
    do {
        digits[--first] = "0123456789abcdef"[number % base];
        number /= base;
    } while (number > 0);
    write(file, digits.data() + first, digits.size() - first);
}

const char *nameOf(int signal)
{
    for (const Fault &fault : faults) {
        if (fault.signal == signal)
            return fault.name;
    }
    return "?";
}

void writeSignal(int file, int signal, const siginfo_t &info)
{
    write(file, "Signal: ");
    writeNumber(file, quintptr(signal), 10);
    write(file, " ");
    write(file, nameOf(signal));
    if (info.si_code > 0 && signal != SIGABRT) {
        write(file, " at address 0x");
        writeNumber(file, reinterpret_cast<quintptr>(info.si_addr), 16);
    }
    std::array<char, 17> thread{};
    prctl(PR_GET_NAME, thread.data());
    write(file, "\nThread: ");
    writeNumber(file, quintptr(ownThread()), 10);
    write(file, " ");
    write(file, thread.data());
    write(file, "\n");
}

void writeLog(int file)
{
    write(file, "\nLog:\n");
    // Not on the stack, which may be a small one; there is one report only.
    static std::array<char, LogRing::lineBytes> line;
    const std::uint32_t end = lastLines->count();
    for (std::uint32_t i = end - std::min(end, LogRing::lines); i != end; ++i) {
        write(file, line.data(), lastLines->read(i, line.data()));
        write(file, "\n");
    }
}

/// Where the program was when the signal came, null where that is not known.
void *faultyInstruction(const void *context)
{
    const auto &machine = static_cast<const ucontext_t *>(context)->uc_mcontext;
#if defined(__x86_64__)
    return reinterpret_cast<void *>( // NOLINT(performance-no-int-to-ptr)
        machine.gregs[REG_RIP]);
#elif defined(__aarch64__)
    return reinterpret_cast<void *>(machine.pc);
#else
    Q_UNUSED(machine)
    return nullptr;
#endif
}

void writeCalls(int file, const void *context)
{
    static std::array<void *, deepest> calls;
    void *const place = faultyInstruction(context);
    write(file, "\nBacktrace:\n");
    auto *first = calls.data();
    auto *const end = first + backtrace(first, deepest);
    auto *const found = std::find(first, end, place);
    // The calls of the handler are left out. A call of what is no code can't be followed back.
    if (found == end && place)
        backtrace_symbols_fd(&place, 1, file);
    first = found == end ? first : found;
    // Where a call returns to may lie behind the end of its function, if it is not to return.
    for (auto *call = first + 1; call < end; ++call)
        *call = static_cast<char *>(*call) - 1;
    backtrace_symbols_fd(first, int(end - first), file);
}

void writeReport(int signal, const siginfo_t &info, const void *context)
{
    const int file = open(path.bytes(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    write(STDERR_FILENO, "The program was ended by ");
    write(STDERR_FILENO, nameOf(signal));
    write(STDERR_FILENO, ". ");
    if (file >= 0) {
        write(STDERR_FILENO, path.bytes(), path.size());
        write(STDERR_FILENO, " tells more.");
    }
    write(STDERR_FILENO, "\n");
    const int target = file >= 0 ? file : STDERR_FILENO;
    write(target, header.bytes(), header.size());
    writeSignal(target, signal, info);
    if (graphics.size() > 0) {
        write(target, "\nGraphics:\n");
        write(target, graphics.bytes(), graphics.size());
        write(target, "\n");
    }
    writeLog(target);
    // The last, since it is the most likely to fail.
    writeCalls(target, context);
    if (file >= 0)
        close(file);
}

/// From now on the signal does what it does by default, as soon as it is let through.
void raiseByDefault(int signal)
{
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigaction(signal, &action, nullptr);
    raise(signal);
}

[[noreturn]] void endNow(int signal)
{
    raiseByDefault(signal);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, signal);
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    _exit(128 + signal);
}

void giveUp(int /*signal*/)
{
    endNow(firstSignal.load());
}

void limitTime()
{
    struct sigaction action = {};
    action.sa_handler = giveUp;
    sigaction(SIGALRM, &action, nullptr);
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGALRM);
    pthread_sigmask(SIG_UNBLOCK, &blocked, nullptr);
    alarm(patience);
}

void handle(int signal, siginfo_t *info, void *context)
{
    pid_t nobody = 0;
    if (!reporter.compare_exchange_strong(nobody, ownThread())) {
        if (nobody == ownThread())
            endNow(firstSignal.load()); // the report itself failed
        while (true)
            pause(); // until the other thread's report is written, which ends the program
    }
    firstSignal.store(signal);
    limitTime();
    writeReport(signal, *info, context);
    // Held back until this returns, so that a core dump shows where the fault was.
    raiseByDefault(signal);
}

} // namespace

bool CrashHandler::isSupported()
{
    return true;
}

void CrashHandler::install(const QByteArray &reportPath, const QByteArray &reportHeader)
{
    path.set(reportPath);
    header.set(reportHeader);
    lastLines = &GLogger::lastLines();
    // Loads the library that it needs, for which there is no time later.
    std::array<void *, 1> calls{};
    backtrace(calls.data(), int(calls.size()));
    prepareThread();
    struct sigaction action = {};
    action.sa_sigaction = handle;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    // A second fault in the handler ends the program at once.
    for (const Fault &fault : faults)
        sigaddset(&action.sa_mask, fault.signal);
    for (const Fault &fault : faults)
        sigaction(fault.signal, &action, nullptr);
}

void CrashHandler::setGraphics(const QByteArray &text)
{
    graphics.set(text);
}

void CrashHandler::prepareThread()
{
    static thread_local const AlternateStack stack;
    Q_UNUSED(stack)
}

#else

bool CrashHandler::isSupported()
{
    return false;
}

void CrashHandler::install(const QByteArray & /*path*/, const QByteArray & /*header*/) {}
void CrashHandler::setGraphics(const QByteArray & /*text*/) {}
void CrashHandler::prepareThread() {}

#endif
