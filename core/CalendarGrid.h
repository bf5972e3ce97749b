#pragma once

#include "core/Calendar.h"
#include "core/DateOptions.h"
#include "core/Instant.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelta {

/// One day of a month's grid.
struct DayCell
{
    std::string key; ///< "2026-03-07"; identifies the cell.
    Instant date {}; ///< A moment of the day, as a rule its start.
    int dayNumber = 0; ///< [1, 31]
    int monthNumber = 0; ///< [1, 12]
    bool inPeriod = false; ///< Belongs to the month that is shown, not to a neighbour of it.
    bool isToday = false;
    bool isWeekend = false;

    friend bool operator==(const DayCell&, const DayCell&) = default;
};

/// One week of a month's grid, from Monday on. A day that the time zone skipped whole is left out.
struct WeekRow
{
    int isoWeek = 0; ///< ISO 8601 number of the week, [1, 53].
    std::vector<DayCell> days;

    /// The key of the first day; the week's number for a row without days.
    [[nodiscard]] std::string id() const;

    friend bool operator==(const WeekRow&, const WeekRow&) = default;
};

/// The weeks that a month touches: four for a February of 28 days that begins on a Monday, six for a long
/// month that begins late in the week. The first and the last are filled up with the neighbours' days.
namespace CalendarGrid {

enum class NameLength { abbreviated, full };

/// "Mon" to "Sun", or "Monday" to "Sunday".
std::array<std::string_view, 7> weekdayHeadings(const Calendar& calendar, NameLength length);

/// Start of the Monday on or before the date.
Instant startOfWeek(Instant containing, const Calendar& calendar);

/// The rows of the month that the date is in; none for a month before year 1.
std::vector<WeekRow> month(Instant containing, const DateOptions& options, Instant today);

/// "March 2026"
std::string title(Instant date, const DateOptions& options);

/// The date so many calendar months later, in whole seconds, its day clamped to the end of a shorter month; a
/// day that the zone skipped whole gives the next one. There is nothing before year 1: the date stays.
Instant shift(Instant date, int months, const DateOptions& options);

} // namespace CalendarGrid

} // namespace zelta
