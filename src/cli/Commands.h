#pragma once

#include "cli/Console.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the commands take; paths as they were typed.
struct CreateOptions
{
    QString project;
    QStringList sprites;
    bool force = false;
};

/// For commands that change a project.
struct ChangeOptions
{
    QString project;
    QString outputProject; ///< saved there instead, when not empty
    QStringList items;     ///< sprites, bodies or settings
};

struct RepairOptions
{
    QString project;
    QString outputProject;
    QString searchFolder;
    bool removeMissing = false;
    bool clearResized = false;
};

struct ImportOptions
{
    QString project;
    QString outputProject;
    QString body;
    QString image;
};

struct ExportOptions
{
    QStringList projects;
    std::optional<QString> output;
    std::optional<QString> suffix;
    int jobs = 0; ///< 0 for one a processor
};

struct InfoOptions
{
    QStringList projects;
    bool json = false;
};

ExitCode runCreate(const CreateOptions &options, Console &console);
ExitCode runAdd(const ChangeOptions &options, Console &console);
ExitCode runRemove(const ChangeOptions &options, Console &console);
ExitCode runSet(const ChangeOptions &options, Console &console);
ExitCode runImport(const ImportOptions &options, Console &console);
ExitCode runRepair(const RepairOptions &options, Console &console);
ExitCode runExport(const ExportOptions &options, Console &console);
ExitCode runInfo(const InfoOptions &options, Console &console);
/// Names every body with trouble.
ExitCode runCheck(const QStringList &projects, Console &console);
