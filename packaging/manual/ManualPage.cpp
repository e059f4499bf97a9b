#include "ManualPage.h"

#include <algorithm>
#include <sstream>

namespace {
// Text as roff shows it: no dash becomes a hyphen, no first dot a request.
std::string shown(const std::string &text)
{
    std::string result;
    for (const char letter : text) {
        if (letter == '\\')
            result += "\\e";
        else if (letter == '-')
            result += "\\-";
        else if (letter == '"')
            result += "\\(dq";
        else if (letter == '\'')
            result += "\\(aq";
        else
            result += letter;
    }
    return result.rfind('.', 0) == 0 ? "\\&" + result : result;
}

std::string bold(const std::string &text)
{
    return "\\fB" + shown(text) + "\\fR";
}

std::string italic(const std::string &text)
{
    return "\\fI" + shown(text) + "\\fR";
}

std::string spelled(const OptionDescription &option)
{
    std::string line;
    for (const std::string &name : option.names)
        line += (line.empty() ? "" : ", ") + bold(name);
    return option.value.empty() ? line : line + " " + italic(option.value);
}

std::string spelled(const ArgumentDescription &argument)
{
    const std::string word = italic(argument.word) + (argument.isRepeated ? "..." : "");
    return argument.isNeeded ? word : "[" + word + "]";
}

// What has to be given is spelled out, the rest is options.
void writeSynopsis(std::ostream &page, const std::string &name, const CommandDescription &command)
{
    page << bold(name);
    const auto &options = command.options;
    for (const OptionDescription &option : options)
        if (option.isNeeded)
            page << ' ' << spelled(option);
    if (!std::all_of(
            options.begin(), options.end(), [](const auto &each) { return each.isNeeded; }))
        page << " [" << italic("OPTION") << "]...";
    for (const ArgumentDescription &argument : command.arguments)
        page << ' ' << spelled(argument);
    page << '\n';
}

void writeRows(std::ostream &page, const CommandDescription &command)
{
    for (const ArgumentDescription &argument : command.arguments)
        page << ".TP\n" << italic(argument.word) << '\n' << shown(argument.text) << '\n';
    for (const OptionDescription &option : command.options)
        page << ".TP\n" << spelled(option) << '\n' << shown(option.text) << '\n';
}

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    return text;
}

// The title line wants it without the full stop.
std::string purpose(const ProgramDescription &program)
{
    std::string text = program.text;
    if (!text.empty() && text.back() == '.')
        text.pop_back();
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}
} // namespace

std::string manualPage(const ProgramDescription &program)
{
    std::ostringstream page;
    page << ".TH " << shown(upperCase(program.name)) << R"( 1 "" "Vesperine )"
         << shown(program.version) << "\" \"User Commands\"\n.nh\n.ad l\n.SH NAME\n"
         << shown(program.name) << " \\- " << shown(purpose(program)) << "\n.SH SYNOPSIS\n";
    if (program.commands.empty())
        writeSynopsis(page, program.name, program);
    else
        page << bold(program.name) << ' ' << italic("COMMAND") << " [" << italic("OPTION")
             << "]... " << italic("ARGUMENT") << "...\n";
    page << ".SH OPTIONS\n";
    writeRows(page, program);
    if (!program.commands.empty())
        page << ".SH COMMANDS\n";
    for (const CommandDescription &command : program.commands) {
        page << ".SS " << shown(command.name) << '\n';
        writeSynopsis(page, command.name, command);
        page << ".PP\n" << shown(command.text) << ".\n";
        writeRows(page, command);
    }
    for (const ManualSection &section : program.sections) {
        page << ".SH \"" << section.title << "\"\n";
        for (const std::string &paragraph : section.paragraphs)
            page << ".PP\n" << shown(paragraph) << '\n';
    }
    return page.str();
}
