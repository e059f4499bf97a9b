#pragma once

#include "ProgramDescription.h"

/// What a shell reads to complete the program's command line.
std::string bashCompletion(const ProgramDescription &program);
std::string zshCompletion(const ProgramDescription &program);
std::string fishCompletion(const ProgramDescription &program);
