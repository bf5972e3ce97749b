#include "bench/Ratio.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <iostream>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace zelta::bench {

namespace {

struct Line
{
    std::string name;
    double limit = 0;
    double reference = 0; ///< nanoseconds; 0 when the comparison is measured
};

std::vector<Line>& lines()
{
    static std::vector<Line> all;
    return all;
}

/// Shows the usual table and keeps the median of each benchmark, in nanoseconds.
class MedianReporter : public benchmark::ConsoleReporter
{
public:
    MedianReporter()
        : ConsoleReporter(OO_Tabular)
    { }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                m_medians[run.run_name.str()] = run.real_accumulated_time * 1e9 / double(run.iterations);
    }

    /// One line for each subject that was run.
    void report() const
    {
        for (const Line& line : lines()) {
            const auto [ours, fastest] = times(line);
            if (ours == 0)
                continue; // left out by a filter
            const double ratio = ours / (line.reference > 0 ? line.reference : fastest);
            std::cout << "ratio " << line.name << ' ' << ratio << " budget " << line.limit << '\n';
        }
    }

private:
    /// Our time and that of the fastest comparison.
    std::pair<double, double> times(const Line& line) const
    {
        double ours = 0;
        double fastest = std::numeric_limits<double>::infinity();
        const std::string prefix = line.name + '/';
        for (const auto& [name, time] : m_medians) {
            if (!name.starts_with(prefix))
                continue;
            if (name.substr(prefix.size()).starts_with("ours"))
                ours = time;
            else
                fastest = std::min(fastest, time);
        }
        return {ours, fastest};
    }

    std::map<std::string, double> m_medians;
};

} // namespace

Budget::Budget(std::string name, double limit)
{
    lines().push_back({std::move(name), limit, 0});
}

TimeBudget::TimeBudget(std::string name, double milliseconds)
{
    lines().push_back({std::move(name), 1, milliseconds * 1e6});
}

int run(int argc, char** argv)
{
    // What is given on the command line comes last and wins.
    std::vector<std::string> arguments
        = {argv[0], "--benchmark_repetitions=5", "--benchmark_min_time=0.05",
           "--benchmark_enable_random_interleaving=true", "--benchmark_report_aggregates_only=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = int(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.report();
    return 0;
}

} // namespace zelta::bench
