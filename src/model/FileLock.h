#pragma once

#include <QString>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QLockFile;
QT_END_NAMESPACE

/// A lock by a file that names its holder. Owned by the holder; the file goes with it, and what a
/// killed holder leaves keeps nobody out, whatever is in it.
class FileLock
{
public:
    /// What tells whether somebody has the lock, where the file system keeps locks.
    enum class Rule {
        Text,  ///< the kernel's lock, or a text that names another computer
        Kernel ///< the kernel's lock alone, for files that no other computer uses
    };
    explicit FileLock(QString path, Rule rule = Rule::Text);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    enum class Taking {
        Done,
        Held,      ///< somebody else has it, or may have it: its file can't be opened
        Impossible ///< nobody can have it: there is no file and none can be made
    };
    /// Tries to take the lock, at once.
    Taking take();
    bool isTaken() const;
    /// False after take() found that the file system keeps no locks: only the file's text tells
    /// others.
    bool isKept() const { return m_isKept; }
    void release();

    struct Holder
    {
        qint64 process = 0;
        QString start; ///< of the process, where the system tells it
        QString program;
        QString host;
        bool isElsewhere = false; ///< on another computer, whose processes can't be seen from here
    };
    /// Whom the file names; nothing while it names nobody.
    std::optional<Holder> holder() const;
    const QString &path() const { return m_path; }

private:
#ifdef Q_OS_UNIX
    std::optional<Taking> tryToTake();
    std::optional<Taking> takeFile(int handle);

    int m_handle = -1;
#else
    std::unique_ptr<QLockFile> m_lock;
#endif
    QString m_path;
    Rule m_rule;
    bool m_isKept = true;
};
