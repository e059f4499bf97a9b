#include "support/SaidBy.h"

#include <QProcess>

QByteArray said(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool hasEnded = process.waitForFinished(120000);
    QByteArray words = process.readAll();
    if (!hasEnded || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), words.constData());
    return words;
}
