#pragma once

#include "cli/Console.h"
#include "model/ProjectPrompts.h"

#include <QMap>
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
    ResizedAnswer resized;
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
    bool overwrite = false; ///< also files that are no normal maps of this program
    int jobs = 0;           ///< 0 for one a processor
};

struct LitOptions
{
    QString project;
    QString body;
    QString light; ///< X,Y[,Z] as it was typed
    QString output;
};

struct ThumbnailOptions
{
    QString project;
    QString output;
    int size = 0; ///< of the square's sides
};

struct InfoOptions
{
    QStringList projects;
    bool json = false;
};

/// For commands that change the surfaces in a project.
struct SurfaceOptions
{
    QString project;
    QString outputProject;
    QStringList bodies;            ///< none for all
    QMap<QString, QString> values; ///< as they were typed, under their options' names
    bool isDown = false;
    bool isTile = false;
};

struct GenerateOptions
{
    QStringList sprites;
    std::optional<QString> bevel; ///< each the option's values with commas between them
    std::optional<QString> emboss;
    std::optional<QString> structure;
    bool isDown = false;
    bool isTile = false;
    QString output;
    QString suffix;
    int jobs = 0; ///< 0 for one a processor
};

ExitCode runCreate(const CreateOptions &options, Console &console);
ExitCode runAdd(const ChangeOptions &options, Console &console);
ExitCode runRemove(const ChangeOptions &options, Console &console);
ExitCode runSet(const ChangeOptions &options, Console &console);
ExitCode runImport(const ImportOptions &options, Console &console);
ExitCode runRepair(const RepairOptions &options, Console &console);
ExitCode runExport(const ExportOptions &options, Console &console);
/// Writes a body's sprite as it looks in the light of a lamp.
ExitCode runLit(const LitOptions &options, Console &console);
/// Writes a small picture of the first bodies.
ExitCode runThumbnail(const ThumbnailOptions &options, Console &console);
ExitCode runInfo(const InfoOptions &options, Console &console);
/// Names every body with trouble.
ExitCode runCheck(const QStringList &projects, Console &console);
ExitCode runBevel(const SurfaceOptions &options, Console &console);
ExitCode runEmboss(const SurfaceOptions &options, Console &console);
ExitCode runSmooth(const SurfaceOptions &options, Console &console);
ExitCode runStructure(const SurfaceOptions &options, Console &console);
ExitCode runErase(const SurfaceOptions &options, Console &console);
ExitCode runFill(const SurfaceOptions &options, Console &console);
ExitCode runGenerate(const GenerateOptions &options, Console &console);
ExitCode runPatterns(bool json, Console &console);
