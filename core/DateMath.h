#pragma once

#include "core/Calendar.h"
#include "core/DateOptions.h"
#include "core/Instant.h"
#include "core/ResultRow.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zelta {

/// The span between two dates. Counts follow calendar days, so that leap days and changes of daylight
/// saving never shift them; the time that really passed is given beside them.
///
///     2 March to 15 April 2026, end date not included, in Europe/Paris: 44 days, "1 month, 13 days",
///     32 workdays, and one hour less than 44 times 24 because the clocks went forward on 29 March.
namespace DateMath {

/// All counts are magnitudes: `start` is the earlier date, whichever was given first.
struct Duration
{
    Instant start {}; ///< Start of day of the earlier date.
    Instant end {}; ///< Start of day of the later date.
    Instant effectiveEnd {}; ///< A day after `end` when the end date is included.
    bool reversed = false; ///< The end date was given before the start date.
    DateOptions options;
    std::int64_t totalDays = 0;
    std::int64_t years = 0; ///< Breakdown in whole years, then whole months, then days.
    std::int64_t months = 0;
    std::int64_t days = 0;
    std::int64_t totalMonths = 0; ///< Whole calendar months.
    std::int64_t totalWeeks = 0;
    std::int64_t remainderDays = 0; ///< What the weeks leave over, [0, 6].
    std::int64_t workdays = 0;
    std::int64_t weekendDays = 0;
    std::int64_t elapsedSeconds = 0; ///< Real time from `start` to `effectiveEnd`.

    /// The real time is not 24 hours for each day, because the clocks were changed.
    [[nodiscard]] bool hasDSTShift() const;
    /// "1 year, 2 months, 3 days"; "0 days" for an empty span.
    [[nodiscard]] std::string calendarPhrase() const;
    /// The span as the page shows it, in order.
    [[nodiscard]] std::vector<ResultRow> rows() const;

    friend bool operator==(const Duration&, const Duration&) = default;
};

/// Only the calendar days of the two instants count, in the options' time zone.
///
/// Years and months are the most that can be added to the start, clamped to the end of a shorter
/// month, without passing the end; so `years` × 12 + `months` is always `totalMonths`.
Duration duration(Instant start, Instant end, const DateOptions& options);

/// Weekend days among so many consecutive days from `first` on; 0 for less than one day. Constant time.
std::int64_t countWeekendDays(std::int64_t days, Instant first, const WeekendRule& rule,
                              const Calendar& calendar);

std::string hms(std::int64_t seconds); ///< "26h 03m 09s", with "−" before a negative time.
std::string dhms(std::int64_t seconds); ///< "1 day, 2h 03m 09s"; as `hms` below a day.

} // namespace DateMath

} // namespace zelta
