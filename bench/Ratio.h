#pragma once

#include <string>

/// Benchmarks that stand beside their comparison in the same run.
///
/// A subject has one benchmark called "NAME/ours" and one or more called "NAME/…" after what it is measured
/// against:
///
///     BENCHMARK(addOurs)->Name("decimal-add/ours");
///     BENCHMARK(addBoost)->Name("decimal-add/boost");
///     BENCHMARK(addIntel)->Name("decimal-add/intel");
///     const bench::Budget addBudget("decimal-add", 1.0);
///
/// After the run a line "ratio decimal-add 0.41 budget 1" says how much of the fastest comparison's time ours
/// took. Medians of several interleaved repetitions are compared, so that a busy moment of the machine falls
/// on all alike.
namespace zelta::bench {

/// Declares at most how many times the fastest comparison's time the subject `name` may take. Lives as a
/// constant.
class Budget
{
public:
    Budget(std::string name, double limit);
};

/// Declares at most how many milliseconds the benchmark "NAME/ours" may take: a frame is 16.
class TimeBudget
{
public:
    TimeBudget(std::string name, double milliseconds);
};

/// Runs every benchmark that the arguments leave and prints the table and the lines. Returns the exit status.
int run(int argc, char** argv);

} // namespace zelta::bench
