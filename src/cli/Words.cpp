#include "cli/Words.h"

namespace {
constexpr char nameMark = '\x01';
}

std::string marked(const std::string &word)
{
    return !word.empty() && word.front() == '[' ? nameMark + word : word;
}

QString text(const std::string &word)
{
    const bool isMarked = !word.empty() && word.front() == nameMark;
    return QString::fromStdString(isMarked ? word.substr(1) : word);
}

QStringList texts(const std::vector<std::string> &words)
{
    QStringList result;
    for (const auto &word : words)
        result.append(text(word));
    return result;
}
