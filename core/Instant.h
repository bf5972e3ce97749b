#pragma once

#include <chrono>

namespace zelta {

/// A moment in time, counted in microseconds from 1970-01-01 00:00:00 UTC without leap seconds.
/// Reaches from 290,000 years before to 290,000 years after that; nanoseconds would end in the year 2262.
using Instant = std::chrono::sys_time<std::chrono::microseconds>;

} // namespace zelta
