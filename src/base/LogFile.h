#pragma once

#include <QFile>

/// The log on disk: "log.txt" in a folder, and the older "log.1.txt" once the first is full. It is
/// no thread's own and never fails: what can't be written is lost. Several running programs may
/// share it.
class LogFile
{
public:
    static constexpr qint64 limit = 1 << 20; ///< bytes of each of the two files

    /// Makes the folder when it is missing.
    void open(const QString &folder);
    /// Appends @p line, which ends with a line break.
    void write(const QByteArray &line);

    static QString nameIn(const QString &folder);

private:
    void reopen();
    void makeRoom(qint64 size);

    QString m_folder;
    QFile m_file;
};
