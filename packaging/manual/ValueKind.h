#pragma once

#include <string>

/// What can be offered where a word of the command line stands for a value.
enum class ValueKind { None, Project, Sprite, File, Folder, Pattern };

ValueKind valueKind(const std::string &word);
