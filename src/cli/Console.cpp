#include "cli/Console.h"

#include "base/PlainText.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>
#include <unistd.h>

namespace {
bool write(FILE *stream, const QByteArray &bytes)
{
    const auto size = size_t(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

// Names of files in it do nothing to a terminal.
bool writeLine(FILE *stream, const QString &line)
{
    return write(stream, shownText(line).toUtf8() + '\n');
}
} // namespace

void Console::data(const QString &line)
{
    if (!m_lostData)
        m_lostData = !writeLine(stdout, line);
}

void Console::path(const QString &path)
{
    if (!m_endsPathsInNull)
        data(path);
    else if (!m_lostData)
        m_lostData = !write(stdout, QFile::encodeName(path) + '\0');
}

bool Console::isComplete()
{
    if (m_lostData)
        complain(QStringLiteral("Not all output could be written"));
    return !m_lostData;
}

void Console::tell(const QString &line)
{
    if (m_quiet)
        return;
    endProgress();
    writeLine(stderr, line);
}

void Console::complain(const QString &line)
{
    endProgress();
    writeLine(stderr, line);
}

void Console::showProgress(int done, int total)
{
    constexpr int width = 40;
    if (m_quiet || total < 2 || isatty(STDERR_FILENO) == 0)
        return;
    const int filled = width * done / total;
    const QString bar = QStringLiteral("\r[%1%2] %3/%4")
                            .arg(QString(filled, QLatin1Char('=')),
                                 QString(width - filled, QLatin1Char(' ')),
                                 QString::number(done),
                                 QString::number(total));
    std::fputs(bar.toUtf8().constData(), stderr);
    m_showsProgress = true;
    if (done == total)
        endProgress();
}

void Console::endProgress()
{
    if (m_showsProgress)
        std::fputc('\n', stderr);
    m_showsProgress = false;
}
