#pragma once

#include "ProgramDescription.h"

/// The manual page in the man macros of roff.
std::string manualPage(const ProgramDescription &program);
