#include "cli/CliPrompts.h"

// Its projects are locked when they are saved, not when they are opened.
bool CliPrompts::askReadOnly(const QString &, const QString &)
{
    return true;
}

ProjectPrompts::MissingTextures CliPrompts::askMissingTextures(const QStringList &)
{
    if (!m_searched && !searchFolder.isEmpty())
        return MissingTextures::Search;
    return removesMissing ? MissingTextures::Remove : MissingTextures::Continue;
}

QString CliPrompts::askSearchFolder()
{
    m_searched = true;
    return searchFolder;
}

ResizedAnswer CliPrompts::askResized(const QStringList &)
{
    return resizedAnswer;
}

void CliPrompts::showSummary(const QStringList &changes)
{
    for (QString change : changes)
        m_console.data(change.replace(QLatin1Char('\n'), QLatin1Char(' ')));
}

void CliPrompts::tell(const QString &message)
{
    m_console.tell(message);
}

bool CliPrompts::showProgress(int done, int total)
{
    m_console.showProgress(done, total);
    return true;
}
