#include "ProgramDescription.h"
#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>

#include <sstream>

namespace {
bool isHelp(const CLI::App &app, const CLI::Option *option)
{
    return option == app.get_help_ptr();
}

std::vector<std::string> namesOf(const CLI::Option &option)
{
    std::vector<std::string> names;
    for (const std::string &name : option.get_snames())
        names.push_back("-" + name);
    for (const std::string &name : option.get_lnames())
        names.push_back("--" + name);
    return names;
}

// The help of a command itself is the program's, said once.
void describe(const CLI::App &app, CommandDescription &command, bool withHelp)
{
    command.name = app.get_name();
    command.text = app.get_description();
    for (const CLI::Option *option : app.get_options()) {
        const bool isFlag = option->get_expected_max() == 0 || option->get_type_size() == 0;
        if (option->get_positional())
            command.arguments.push_back({option->get_name(true),
                                         option->get_description(),
                                         option->get_items_expected_max() > 1,
                                         option->get_required()});
        else if (withHelp || !isHelp(app, option))
            command.options.push_back({namesOf(*option),
                                       isFlag ? std::string() : option->get_type_name(),
                                       option->get_description(),
                                       option->get_required()});
    }
}

std::vector<std::string> linesOf(const std::string &text)
{
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}
} // namespace

ProgramDescription describeCommandLine()
{
    const CommandLine commandLine;
    const CLI::App &tree = commandLine.tree();
    ProgramDescription program;
    describe(tree, program, true);
    program.version = VESPERINE_VERSION;
    for (const CLI::App *each : tree.get_subcommands({})) {
        CommandDescription command;
        describe(*each, command, false);
        program.commands.push_back(command);
    }
    program.sections = {{"NOTES", linesOf(tree.get_footer())},
                        {"EXAMPLES",
                         {"vesperine-cli generate sprites/ --bevel 12 --emboss 2 --output maps",
                          "vesperine-cli create game.vep sprites/",
                          "vesperine-cli bevel game.vep --width 12",
                          "vesperine-cli export game.vep --output maps"}},
                        {"SEE ALSO", {"vesperine(1)"}}};
    return program;
}
