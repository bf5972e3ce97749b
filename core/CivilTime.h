#pragma once

#include <cstdint>
#include <utility> // and with it <compare>, which Qt's moc cannot read on its own

namespace zelta {

/// A day on the wall calendar (proleptic Gregorian), the same day in every time zone. Arithmetic on civil
/// days never meets a missing or a doubled midnight; that is why days are counted here and not on instants.
///
///     CivilDay {2024, 1, 31}.addingMonths(1)                    // 29 February 2024
///     daysBetween({2026, 3, 28}, {2026, 3, 30})                 // 2, whatever the clocks did
struct CivilDay
{
    std::int64_t year = 1970;
    int month = 1; ///< [1, 12]
    int day = 1; ///< [1, 31]

    /// 1 = Sunday to 7 = Saturday.
    [[nodiscard]] int weekday() const;
    /// Number of the ISO 8601 week, [1, 53]: weeks begin on Monday, week 1 holds the year's first Thursday.
    [[nodiscard]] int isoWeek() const;

    [[nodiscard]] CivilDay addingDays(std::int64_t count) const;
    /// Keeps the day of the month where the target month has it, else takes that month's last day.
    [[nodiscard]] CivilDay addingMonths(std::int64_t count) const;

    friend auto operator<=>(const CivilDay&, const CivilDay&) = default;
};

/// Days from one civil day to another; negative when the second is the earlier one.
std::int64_t daysBetween(const CivilDay& from, const CivilDay& to);

/// Whole months from one civil day to a later one or the same: the most that can be added to `from` without
/// passing `to`.
std::int64_t monthsBetween(const CivilDay& from, const CivilDay& to);

/// What a clock on the wall shows, with the day it shows it on.
struct CivilTime
{
    CivilDay day;
    int hour = 0; ///< [0, 23]
    int minute = 0; ///< [0, 59]
    int second = 0; ///< [0, 59]

    friend auto operator<=>(const CivilTime&, const CivilTime&) = default;
};

} // namespace zelta
