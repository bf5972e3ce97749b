#pragma once

#include "core/DateOptions.h"
#include "core/Instant.h"

#include <cstdint>

namespace zelta {

/// Which month a month view shows, and which day in it is selected.
struct MonthCursor
{
    Instant anchor {}; ///< Any day of the month that is shown.
    Instant selected {};

    /// Shows and selects this day.
    void goTo(Instant day);

    /// Shows the month so many months later and selects its first day. Before year 1 there is none: the month
    /// stays.
    void step(int months, const DateOptions& options);

    /// Selects the day so many days later and shows its month, so that a selection moved by keys stays in
    /// sight.
    void moveSelected(std::int64_t days, const DateOptions& options);

    friend bool operator==(const MonthCursor&, const MonthCursor&) = default;
};

} // namespace zelta
