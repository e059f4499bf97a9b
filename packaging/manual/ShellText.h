#pragma once

#include <string>

/// A word in single quotes, for any of the shells.
std::string quoted(const std::string &text);
/// The text with every @p from replaced.
std::string replaced(std::string text, const std::string &from, const std::string &to);
/// The program's name as a part of a function's name.
std::string functionName(const std::string &program);
