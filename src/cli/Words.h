#pragma once

#include <QStringList>

#include <string>
#include <vector>

// The parser takes a word in brackets for a list of its own; here it is a name. Marked, it passes.

std::string marked(const std::string &word);

/// The text of a word that may be marked.
QString text(const std::string &word);
QStringList texts(const std::vector<std::string> &words);
