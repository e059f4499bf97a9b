#pragma once

#include <functional>
#include <string>

/// Of any beginning.
double wallSeconds();
/// What the calling thread has computed; neither waiting nor other threads' work counts.
double threadSeconds();

/// What one row of the table measures. Both own what they need and may run any number of times.
struct Contest
{
    std::function<void()> work;
    std::function<void()> reference;
    /// Called after each of the two, in nobody's time.
    std::function<void()> tidyUp = [] {};
    double (*clock)() = wallSeconds;
};

/// Adds a row to the table: the speed of the work relative to that of its reference (2 is twice as
/// fast), which shall be @p goal or more. @p prepare makes the data when the row's turn comes, so
/// that the rows do not stay in memory side by side.
///
/// Work and reference are timed one after the other, round by round, and the row shows the median
/// of the rounds' ratios: a machine that slows down for a while slows both. Returns true, for a
/// constant at file level: const bool row = addRatio("...", 2.0, [] { return Contest{...}; });
bool addRatio(const std::string &name, double goal, const std::function<Contest()> &prepare);

/// Adds a row for what has an absolute limit: the share of @p budget to the median of some
/// measurements, which shall be 1 or more. @p prepare makes what measures, in the budget's unit.
bool addBudget(const std::string &name,
               double budget,
               const std::function<std::function<double()>()> &prepare);
