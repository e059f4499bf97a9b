#include "support/Program.h"

#include <QProcess>

Program::Program(const QString &path, const QString &folder)
    : m_path(path)
    , m_folder(folder)
{
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder + QStringLiteral("/config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder + QStringLiteral("/data"));
}

int Program::run(const char *line)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder);
    process.start(m_path, QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    // With all NUL bytes in it.
    const QByteArray said = process.readAllStandardOutput();
    output = QString::fromUtf8(said.constData(), said.size());
    words = QString::fromUtf8(process.readAllStandardError());
    return process.exitCode();
}
