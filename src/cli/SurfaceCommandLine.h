#pragma once

#include "cli/Commands.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The commands that give sprites a surface, with the places that the parser writes to. Owned
/// by whoever parses.
class SurfaceCommandLine
{
public:
    using Command = std::function<ExitCode(Console &)>;

    /// Puts what is to be done into @p command once a line is parsed.
    explicit SurfaceCommandLine(Command &command)
        : m_command(command)
    {
    }

    void addTo(CLI::App &app);

private:
    using Run = ExitCode (*)(const SurfaceOptions &, Console &);

    CLI::App *
    addSurface(CLI::App &app, const std::string &name, const std::string &description, Run run);
    /// An option of a surface command, under the name without dashes; @p word stands for its value.
    void addValue(CLI::App *command,
                  const std::string &name,
                  const std::string &word,
                  const std::string &description);
    void addNeeded(CLI::App *command,
                   const std::string &name,
                   const std::string &word,
                   const std::string &description);
    void addDown(CLI::App *command);
    void addTile(CLI::App *command);
    void addEffects(CLI::App &app);
    void addPaints(CLI::App &app);
    void addGenerate(CLI::App &app);
    void addPatterns(CLI::App &app);
    SurfaceOptions surfaceOptions(const CLI::App &command) const;

    Command &m_command;
    std::string m_project;
    std::string m_outputProject;
    std::vector<std::string> m_bodies;
    std::map<std::string, std::string> m_values;
    std::vector<std::string> m_sprites;
    std::string m_output;
    std::string m_suffix = "_n";
    int m_jobs = 0;
    bool m_down = false;
    bool m_tile = false;
    bool m_json = false;
};
