#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// Runs the real command line program in a folder, with settings of its own.
class Program
{
public:
    Program(const QString &path, const QString &folder);

    /// Runs a line of words that hold no blanks; its exit status, -1 when it crashed or hung.
    int run(const char *line);
    bool says(const char *text) const { return words.contains(QLatin1String(text)); }

    QString output; ///< of the last run, on standard output
    QString words;  ///< and on standard error
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    QString m_path;
    QString m_folder;
};
