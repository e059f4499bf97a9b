#pragma once

#include "cli/SurfaceCommandLine.h"

#include <memory>

/// The whole command line of the program: the tree of commands, with the places that the parser
/// writes to. Manual pages and completions are made from the same tree.
class CommandLine
{
public:
    CommandLine();
    ~CommandLine();

    /// Follows the arguments of main(); the exit status.
    int run(int argc, char **argv);
    const CLI::App &tree() const { return *m_app; }

private:
    CLI::App *command(const char *name, const char *description);
    void project(CLI::App *command);
    void outputProject(CLI::App *command);
    void body(CLI::App *command);
    void items(CLI::App *command, const char *name, const char *description);
    void projects(CLI::App *command);
    ChangeOptions change() const;
    void addCreate();
    void addChange(const char *name,
                   const char *description,
                   const char *item,
                   const char *itemDescription,
                   ExitCode (*run)(const ChangeOptions &, Console &));
    void addChanges();
    void addRepair();
    ResizedAnswer resizedAnswer() const;
    void addImport();
    void addReports();
    void addExport();
    void addPictures();
    void setVerbosity() const;

    std::unique_ptr<CLI::App> m_app;
    std::function<ExitCode(Console &)> m_command;
    SurfaceCommandLine m_surfaces{m_command};
    int m_verbosity = 0;
    bool m_quiet = false;
    bool m_endsPathsInNull = false;
    std::string m_project;
    std::string m_outputProject;
    std::vector<std::string> m_projects;
    std::vector<std::string> m_items;
    std::string m_search;
    std::string m_body;
    std::string m_image;
    std::string m_output;
    std::string m_suffix;
    std::string m_light;
    int m_jobs = 0;
    int m_size = 256;
    bool m_force = false;
    bool m_overwrite = false;
    bool m_removeMissing = false;
    bool m_clearResized = false;
    bool m_scaleResized = false;
    std::string m_anchor;
    bool m_json = false;
};
