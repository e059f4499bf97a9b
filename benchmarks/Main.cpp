// The measurements of the program, each as its speed relative to a reference of the same run:
// milliseconds of one machine say nothing about another.

#include "base/Resources.h"
#include "ui/VesperineApplication.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

class RatioTable : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override
    {
        std::printf("%-66s %9s %7s %7s\n", "speed relative to a reference", "ms", "ratio", "goal");
        return true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            report(run);
        std::fflush(stdout);
    }

private:
    static void report(const Run &run)
    {
        // The library appends "/iterations:1".
        const std::string &name = run.run_name.function_name;
        if (run.error_occurred) {
            std::printf("%-66s %s\n", name.c_str(), run.error_message.c_str());
            return;
        }
        const double ratio = run.counters.at("ratio");
        const double goal = run.counters.at("goal");
        std::printf("%-66s %9.3f %7.2f %7.2f  %s\n",
                    name.c_str(),
                    double(run.counters.at("milliseconds")),
                    ratio,
                    goal,
                    ratio >= goal ? "met" : "NOT MET");
    }
};

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    initialiseResources();
    VesperineApplication::prepare();
    if (const QString problem = GApplication::missingDisplay(); !problem.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(problem));
        return 1;
    }
    // The user's settings are no business of ours, nor of the programs that are started.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", settings.path().toLocal8Bit());
    const GApplication application(argc, argv);
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}
