#include "Completions.h"
#include "ShellText.h"
#include "ValueKind.h"

#include <set>
#include <sstream>

namespace {
// Folders are always offered, since what is wanted may lie in them. The shell takes the sign in
// --option=VALUE for a word of its own.
constexpr auto opening = R"sh(# Completion of @PROGRAM@ for bash.

@NAME@_values()
{
    local kind
    for kind in "${@:2}"; do
        case $kind in
        file) compgen -f -- "$1" ;;
        project)
            compgen -f -X '!*.vep' -- "$1"
            compgen -f -X '!*.vex' -- "$1" ;;
        pattern | sprite)
            [[ $kind == pattern ]] && compgen -W "$(@PROGRAM@ patterns 2>/dev/null)" -- "$1"
            compgen -f -X '!*.[pP][nN][gG]' -- "$1"
            compgen -f -X '!*.[jJ][pP][gG]' -- "$1"
            compgen -f -X '!*.[jJ][pP][eE][gG]' -- "$1" ;;
        esac
        compgen -d -- "$1"
    done | sort -u
}

@NAME@_offer()
{
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(@NAME@_values "$@")
}

@NAME@()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i
    [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD - 2]}
    [[ $word == = ]] && word=''
    COMPREPLY=()
)sh";

constexpr auto commandSearch = R"sh(    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        @COMMANDS@)
            command=${COMP_WORDS[i]}
            break ;;
        esac
    done
)sh";

std::string kindWord(const std::string &value)
{
    switch (valueKind(value)) {
    case ValueKind::Project:
        return " project";
    case ValueKind::Sprite:
        return " sprite";
    case ValueKind::File:
        return " file";
    case ValueKind::Folder:
        return " folder";
    case ValueKind::Pattern:
        return " pattern";
    case ValueKind::None:
        break;
    }
    return {};
}

std::string joined(const std::vector<std::string> &words, const std::string &separator)
{
    std::string text;
    for (const std::string &word : words)
        text += (text.empty() ? "" : separator) + word;
    return text;
}

std::string offerWords(const std::vector<std::string> &words)
{
    return "mapfile -t COMPREPLY < <(compgen -W " + quoted(joined(words, " ")) + " -- \"$word\")";
}

std::string caseLine(const std::string &pattern, const std::string &action)
{
    return "    " + pattern + ") " + action + " ;;\n";
}

// A value of which nothing is known gets no offer, and no file either.
std::string valueCases(const CommandDescription &command, const std::string &function)
{
    std::string cases;
    for (const OptionDescription &option : command.options) {
        if (option.value.empty())
            continue;
        const std::string kind = kindWord(option.value);
        std::string action = function;
        action.append("_offer \"$word\"").append(kind).append("; return");
        cases +=
            caseLine(command.name + ":" + option.names.back(), kind.empty() ? "return" : action);
    }
    return cases;
}

std::string optionCase(const CommandDescription &command)
{
    std::vector<std::string> names;
    for (const OptionDescription &option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return caseLine("'" + command.name + "':-*", offerWords(names));
}

std::string argumentCase(const CommandDescription &command, const std::string &function)
{
    std::set<std::string> kinds;
    for (const ArgumentDescription &argument : command.arguments)
        kinds.insert(kindWord(argument.word));
    const std::string words = joined({kinds.begin(), kinds.end()}, "");
    return words.empty()
               ? std::string()
               : caseLine("'" + command.name + "':*", function + "_offer \"$word\"" + words);
}
} // namespace

std::string bashCompletion(const ProgramDescription &program)
{
    const std::string function = functionName(program.name);
    std::vector<std::string> names;
    for (const CommandDescription &command : program.commands)
        names.push_back(command.name);
    std::string values;
    std::string words;
    for (const CommandDescription &command : completedCommands(program)) {
        values += valueCases(command, function);
        words += optionCase(command) + argumentCase(command, function);
    }
    std::string script = opening;
    if (!names.empty()) {
        script += replaced(commandSearch, "@COMMANDS@", joined(names, " | "));
        words += caseLine("'':*", offerWords(names));
    }
    if (!values.empty())
        script += "    case $command:$before in\n" + values + "    esac\n";
    script +=
        "    case $command:$word in\n" + words + "    esac\n}\n\ncomplete -F @NAME@ @PROGRAM@\n";
    return replaced(replaced(script, "@NAME@", function), "@PROGRAM@", program.name);
}
