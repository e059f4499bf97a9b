#include "ShellText.h"

std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string quoted(const std::string &text)
{
    return "'" + replaced(text, "'", "'\\''") + "'";
}

std::string functionName(const std::string &program)
{
    return "_" + replaced(program, "-", "_");
}
