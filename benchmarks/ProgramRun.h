#pragma once

#include <QStringList>

/// What one run of a program took.
struct Usage
{
    double seconds = 0.0;
    double processorSeconds = 0.0;
    double peakMebibytes = 0.0;
    int status = 0; ///< as it exited
};

/// Runs @p words, the program first, without its standard output. Throws std::runtime_error when it
/// can't be started or does not exit by itself.
Usage runProgram(const QStringList &words);
