#include "ProgramDescription.h"

std::vector<CommandDescription> completedCommands(const ProgramDescription &program)
{
    std::vector<CommandDescription> commands{program};
    commands.front().name.clear();
    for (CommandDescription command : program.commands) {
        command.options.insert(
            command.options.end(), program.options.begin(), program.options.end());
        commands.push_back(command);
    }
    return commands;
}
