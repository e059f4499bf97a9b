#include "Ratio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace {

double secondsOf(const std::function<void()> &work, double (*clock)())
{
    const double start = clock();
    work();
    return clock() - start;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void measure(benchmark::State &state, double goal, const std::function<Contest()> &prepare)
{
    constexpr std::size_t fewestRounds = 21;
    constexpr double shortestTime = 1.0;
    const Contest contest = prepare();
    // The first touch of the memory is nobody's work.
    contest.work();
    contest.tidyUp();
    contest.reference();
    contest.tidyUp();

    std::vector<double> ratios;
    std::vector<double> times;
    for ([[maybe_unused]] auto once : state) {
        for (double total = 0.0; total < shortestTime || ratios.size() < fewestRounds;) {
            const double work = secondsOf(contest.work, contest.clock);
            contest.tidyUp();
            const double reference = secondsOf(contest.reference, contest.clock);
            contest.tidyUp();
            times.push_back(work);
            ratios.push_back(reference / work);
            total += work + reference;
        }
    }
    state.counters["ratio"] = median(ratios);
    state.counters["goal"] = goal;
    state.counters["milliseconds"] = 1000.0 * median(times);
}

void spend(benchmark::State &state,
           double budget,
           const std::function<std::function<double()>()> &prepare)
{
    constexpr int rounds = 5;
    const auto measured = prepare();
    std::vector<double> values;
    for ([[maybe_unused]] auto once : state) {
        for (int round = 0; round < rounds; ++round)
            values.push_back(measured());
    }
    state.counters["milliseconds"] = median(values);
    state.counters["ratio"] = budget / median(values);
    state.counters["goal"] = 1.0;
}

} // namespace

double wallSeconds()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + 1e-9 * double(time.tv_nsec);
}

bool addRatio(const std::string &name, double goal, const std::function<Contest()> &prepare)
{
    benchmark::RegisterBenchmark(name.c_str(), measure, goal, prepare)->Iterations(1);
    return true;
}

bool addBudget(const std::string &name,
               double budget,
               const std::function<std::function<double()>()> &prepare)
{
    benchmark::RegisterBenchmark(name.c_str(), spend, budget, prepare)->Iterations(1);
    return true;
}
