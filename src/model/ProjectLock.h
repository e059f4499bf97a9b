#pragma once

#include <QCoreApplication>
#include <QLockFile>
#include <QString>

#include <memory>

/// Keeps a project file to one writer by a lock file beside it. Owned by whoever works on the
/// project; given up when it goes, and by the next taker where its holder on this computer is dead.
class ProjectLock
{
    Q_DECLARE_TR_FUNCTIONS(ProjectLock)

public:
    /// Tries to take the project @p fileName, at once. Where no lock file can be made, as in a
    /// folder that is read-only, nobody is kept out.
    explicit ProjectLock(const QString &fileName);

    /// True when this one may write the project: nobody else has it.
    bool mayWrite() const { return m_mayWrite; }
    /// Who else has it, in words, such as "Vesperine (process 4711) of anna on atelier"; empty when
    /// this one may write. Names the lock file when its holder runs on another computer, whose
    /// death can't be noticed from here.
    QString otherHolder() const;
    /// True when it is the lock of @p fileName, whichever links lead there.
    bool isOf(const QString &fileName) const;

private:
    static QString lockPath(const QString &fileName);

    std::unique_ptr<QLockFile> m_lock;
    QString m_path;
    bool m_mayWrite = true;
};
