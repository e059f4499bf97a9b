#pragma once

#include <QStringList>

#include <optional>
#include <string>
#include <vector>

// The parser takes a word in brackets for a list of its own; here it is a name. Marked, it passes.

/// The words of a command line but the program's name, as the parser expects them: marked, and from
/// the last to the first.
std::vector<std::string> parserWords(int argc, char **argv);

/// The first word, as it is shown, whose bytes are no text; nothing when there is none. As a text
/// it would lead to another file.
std::optional<QString> wordWithoutText(int argc, char **argv);

/// The text of a word that may be marked.
QString text(const std::string &word);
QStringList texts(const std::vector<std::string> &words);
