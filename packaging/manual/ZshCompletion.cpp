#include "Completions.h"
#include "ShellText.h"
#include "ValueKind.h"

namespace {
std::string action(const std::string &value)
{
    switch (valueKind(value)) {
    case ValueKind::Project:
        return "_files -g \"*.(vep|vex)\"";
    case ValueKind::Sprite:
        return "_files -g \"(#i)*.(png|jpg|jpeg)\"";
    case ValueKind::File:
        return "_files";
    case ValueKind::Folder:
        return "_files -/";
    case ValueKind::Pattern:
        return "{ compadd -- ${(f)\"$(vesperine-cli patterns 2>/dev/null)\"}; _files }";
    case ValueKind::None:
        break;
    }
    return " ";
}

std::string plain(const std::string &text)
{
    return replaced(text, ":", "\\:");
}

std::string valueSpec(const std::string &value)
{
    return ":" + plain(value) + ":" + action(value);
}

// Each name of an option is a line of its own; it may be given again, as some of them may.
std::string optionLines(const CommandDescription &command, const std::string &indent)
{
    std::string lines;
    for (const OptionDescription &option : command.options)
        for (const std::string &name : option.names) {
            const std::string text = replaced(replaced(option.text, "[", "\\["), "]", "\\]");
            const std::string value = option.value.empty() ? "" : valueSpec(option.value);
            std::string spec = "*";
            spec.append(name).append("[").append(text).append("]").append(value);
            lines += " \\\n" + indent + quoted(spec);
        }
    return lines;
}

std::string argumentLines(const CommandDescription &command, const std::string &indent)
{
    std::string lines;
    for (const ArgumentDescription &argument : command.arguments)
        lines +=
            " \\\n" + indent + quoted((argument.isRepeated ? "*" : "") + valueSpec(argument.word));
    return lines;
}

std::string commandBranch(const CommandDescription &command)
{
    const std::string indent(16, ' ');
    return "        " + command.name + ")\n            _arguments -S" +
           optionLines(command, indent) + argumentLines(command, indent) + " ;;\n";
}
} // namespace

std::string zshCompletion(const ProgramDescription &program)
{
    const std::string indent(8, ' ');
    std::string script = "#compdef " + program.name + "\n\n_" + program.name + "()\n{\n";
    const auto commands = completedCommands(program);
    if (program.commands.empty())
        return script + "    _arguments -S" + optionLines(program, indent) +
               argumentLines(program, indent) + "\n}\n\n_" + program.name + " \"$@\"\n";
    std::string names;
    std::string branches;
    for (const CommandDescription &command : program.commands)
        names += indent + quoted(command.name + ":" + plain(command.text)) + "\n";
    for (auto command = commands.begin() + 1; command != commands.end(); ++command)
        branches += commandBranch(*command);
    return script + "    local curcontext=$curcontext state line\n    local -a commands=(\n" +
           names + "    )\n    _arguments -C -S" + optionLines(program, indent) + " \\\n" + indent +
           "'1:command:->command' \\\n" + indent + "'*::argument:->argument'\n" +
           "    case $state in\n    command) _describe -t commands command commands ;;\n" +
           "    argument)\n        case $words[1] in\n" + branches +
           "        esac ;;\n    esac\n}\n\n_" + program.name + " \"$@\"\n";
}
