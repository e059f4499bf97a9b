#include "Completions.h"
#include "ShellText.h"
#include "ValueKind.h"

namespace {
std::string offer(const std::string &value)
{
    switch (valueKind(value)) {
    case ValueKind::Project:
        return " -k -a '(__fish_complete_suffix .vep)'";
    case ValueKind::Sprite:
    case ValueKind::File:
        return " -F";
    case ValueKind::Folder:
        return " -a '(__fish_complete_directories)'";
    case ValueKind::Pattern:
        return " -F -a '(vesperine-cli patterns 2>/dev/null)'";
    case ValueKind::None:
        break;
    }
    return {};
}

// Names of more than one letter after one dash are a kind of their own.
std::string spelled(const std::string &name)
{
    if (name.rfind("--", 0) == 0)
        return " -l " + name.substr(2);
    return (name.size() == 2 ? " -s " : " -o ") + name.substr(1);
}

std::string lines(const CommandDescription &command, const std::string &start)
{
    std::string text;
    for (const OptionDescription &option : command.options) {
        text += start;
        for (const std::string &name : option.names)
            text += spelled(name);
        text += option.value.empty() ? "" : " -r" + offer(option.value);
        text += " -d " + quoted(option.text) + "\n";
    }
    for (const ArgumentDescription &argument : command.arguments)
        if (valueKind(argument.word) != ValueKind::None)
            text += start + offer(argument.word) + "\n";
    return text;
}
} // namespace

std::string fishCompletion(const ProgramDescription &program)
{
    const std::string start = "complete -c " + program.name;
    std::string script = "# Completion of " + program.name + " for fish.\n" + start + " -f\n";
    script += lines(program, start);
    for (const CommandDescription &command : program.commands)
        script += start + " -n __fish_use_subcommand -a " + command.name + " -d " +
                  quoted(command.text) + "\n";
    for (const CommandDescription &command : program.commands)
        script += lines(command, start + " -n '__fish_seen_subcommand_from " + command.name + "'");
    return script;
}
