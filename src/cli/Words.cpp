#include "cli/Words.h"

#include "base/PlainText.h"

#include <QFile>

#include <algorithm>

namespace {
constexpr char nameMark = '\x01';

bool isOptionWithoutValue(const std::string &word)
{
    return word.rfind("--", 0) == 0 && word.find('=') == word.size() - 1;
}
} // namespace

std::vector<std::string> parserWords(int argc, char **argv)
{
    std::vector<std::string> words;
    bool hasOptions = true;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        hasOptions = hasOptions && word != "--";
        if (hasOptions && isOptionWithoutValue(word)) {
            // The parser would take the next word for the value, be it an option.
            words.push_back(word.substr(0, word.size() - 1));
            words.emplace_back();
        } else {
            words.push_back(!word.empty() && word.front() == '[' ? nameMark + word : word);
        }
    }
    std::reverse(words.begin(), words.end());
    return words;
}

std::optional<QString> wordWithoutText(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray word(argv[i]);
        if (QFile::encodeName(QFile::decodeName(word)) != word)
            return shownBytes(word);
    }
    return std::nullopt;
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
