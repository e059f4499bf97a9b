#pragma once

#include "base/GSettings.h"
#include "cli/CliPrompts.h"
#include "model/ProjectController.h"

/// What happened to a body's sprite and surface, the worst of it.
enum class BodyStatus { Ok, Missing, Unreadable, Changed, WrongSize, Empty, Damaged };

/// A project for the time of one command; its settings live in memory only.
class OpenedProject
{
public:
    explicit OpenedProject(Console &console);

    /// Reads the project, but no sprite: for commands that need few. Says why when it can't be
    /// read, and returns false.
    bool openWithoutSprites(const QString &path);
    /// Reads the project and its sprites. Says why when it can't be read, and returns false.
    bool open(const QString &path);
    /// Saves to @p outputPath, or where the project came from when it is empty. Says why when that
    /// fails.
    ExitCode save(const QString &outputPath);

    ProjectController &controller() { return m_controller; }
    CliPrompts &prompts() { return m_prompts; }
    QVector<Body *> bodies() const;
    /// The body of this name or of this "#INDEX" (from 1). Throws Error when there is none, or more
    /// than one of the name.
    Body &body(const QString &name) const;

private:
    Console &m_console;
    GSettings m_settings;
    CliPrompts m_prompts;
    ProjectController m_controller;
};

/// True for a name under which a project can be saved; else says so.
bool isProjectName(const QString &path, Console &console);

BodyStatus statusOf(const Body &body);
/// The word for a status in reports.
QString statusWord(BodyStatus status);
/// In brackets why the sprite of @p body can't be read, empty for any other status.
QString statusReason(const Body &body);
