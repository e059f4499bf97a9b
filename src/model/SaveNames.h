#pragma once

#include <QString>

// The names of new files beside the files that they are to replace, as long as they are written.

/// The name of the new file of @p target; savers side by side take different numbers. Who has such
/// a file holds its lock.
QString savingName(const QString &target, int number);
/// How many savers may be at work on one file.
constexpr int mostSavers = 8;
/// Removes the files of these names that killed savers of @p target left.
void removeAbandoned(const QString &target);

/// The same where the file system keeps no locks: the name tells whose file it is.
QString savingNameOfThisProcess(const QString &target);
/// Removes the files of these names that killed savers of @p target left some seconds ago or before
/// this program first saved in the folder.
void removeUnlockedAbandoned(const QString &target);
