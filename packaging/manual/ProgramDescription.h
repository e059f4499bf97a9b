#pragma once

#include <string>
#include <vector>

/// What a command line takes, as manual pages and completions show it.
struct OptionDescription
{
    std::vector<std::string> names; ///< with their dashes
    std::string value;              ///< the word that stands for its value; empty for a flag
    std::string text;
    bool isNeeded = false;
};

struct ArgumentDescription
{
    std::string word;
    std::string text;
    bool isRepeated = false;
    bool isNeeded = true;
};

struct CommandDescription
{
    std::string name;
    std::string text;
    std::vector<OptionDescription> options;
    std::vector<ArgumentDescription> arguments;
};

struct ManualSection
{
    std::string title;
    std::vector<std::string> paragraphs;
};

/// A program is a command that may have commands of its own.
struct ProgramDescription : CommandDescription
{
    std::string version;
    std::vector<CommandDescription> commands;
    std::vector<ManualSection> sections; ///< at the end of the manual page
};

/// The program itself under an empty name, then its commands, each with the options that the
/// program has for all of them.
std::vector<CommandDescription> completedCommands(const ProgramDescription &program);

/// The programs of this project, from the tables that they read their own command lines with.
ProgramDescription describeCommandLine();
ProgramDescription describeEditor();
