#pragma once

#include "model/RecoveryFolder.h"
#include "model/RecoveryIndex.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class Project;

/// A snapshot whose program has ended without removing it.
struct RecoveryEntry
{
    std::unique_ptr<RecoveryFolder> folder; ///< nobody else takes it meanwhile
    std::optional<RecoveryIndex> index;     ///< nothing when it can't be read
};

/// The place of all snapshots: a folder with a folder for each.
class RecoveryStore
{
    Q_DECLARE_TR_FUNCTIONS(RecoveryStore)

public:
    /// @p root need not exist.
    explicit RecoveryStore(const QString &root);

    /// Null when it can't be made.
    std::unique_ptr<RecoveryFolder> createFolder() const;

    /// What is left of programs that are not running any more, the newest first. What was first
    /// shown to the user more than 7 days before @p now is removed instead, unless it was given
    /// up.
    std::vector<RecoveryEntry> takeLeftOvers(const QDateTime &now) const;

    /// The project of a snapshot under its own file name, its sprites not loaded; in
    /// @p damagedBodies the names of those whose surface is lost. Throws Error when it can't be
    /// read; the snapshot stays in any case.
    static std::shared_ptr<Project> read(const RecoveryEntry &entry, QStringList *damagedBodies);

private:
    QString m_root;
};
