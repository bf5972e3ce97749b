#include "bench/Ratio.h"
#include "core/CalendarKit.h"
#include "core/DateMath.h"

#include <benchmark/benchmark.h>

// A span of all the years that can be typed, beside a span of one day: counting is arithmetic, not a walk.

namespace zelta::bench {
namespace {

void span(benchmark::State& state, int endDay, int endMonth, std::int64_t endYear)
{
    const DateOptions options {.includeEndDate = true, .timeZoneIdentifier = "Europe/Paris"};
    const Calendar calendar = options.calendar();
    const Instant start = CalendarKit::makeDate(1, 1, 1, 0, 0, 0, calendar).value();
    const Instant end = CalendarKit::makeDate(endDay, endMonth, endYear, 0, 0, 0, calendar).value();
    for (auto _ : state) {
        auto result = DateMath::duration(start, end, options);
        benchmark::DoNotOptimize(result);
    }
}

BENCHMARK_CAPTURE(span, all, 31, 12, 9999)->Name("date-span/ours");
BENCHMARK_CAPTURE(span, day, 2, 1, 1)->Name("date-span/one-day");

const Budget spanBudget("date-span", 1.25);

} // namespace
} // namespace zelta::bench
