#pragma once

#include "core/Calendar.h"
#include "core/Instant.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The one place for calendar rules and for date and clock texts, which are English from fixed tables and
/// the same on every machine. Weekdays are numbered 1 = Sunday to 7 = Saturday, months 1 to 12.
namespace zelta::CalendarKit {

/// Whether a clock text ends with its seconds.
enum class ClockSeconds { hidden, shown };

// Indexed by weekday or month number; entry 0 is never shown.
inline constexpr std::array<std::string_view, 8> weekdayShort {"",    "Sun", "Mon", "Tue",
                                                               "Wed", "Thu", "Fri", "Sat"};
inline constexpr std::array<std::string_view, 8> weekdayLong {"",          "Sunday",   "Monday", "Tuesday",
                                                              "Wednesday", "Thursday", "Friday", "Saturday"};
inline constexpr std::array<std::string_view, 13> monthShort {"",    "Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
inline constexpr std::array<std::string_view, 13> monthLong {
    "",     "January", "February",  "March",   "April",    "May",     "June",
    "July", "August",  "September", "October", "November", "December"};

using zelta::systemTimeZoneId;

/// The program's calendar in this zone, or in the system's for an unknown identifier.
Calendar calendar(std::string_view timeZoneIdentifier);

constexpr bool isLeapYear(std::int64_t year)
{
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

/// 28 to 31; 0 for a month number outside 1 to 12.
int daysInMonth(int month, std::int64_t year);

/// The instant of a date and time that a person typed; nothing for one that does not exist. Where the
/// clocks jumped over the asked time, the day is kept and the time becomes noon.
/// A day that the zone skipped whole (Pacific/Apia, 30 December 2011) is no date, nor is one before year 1.
std::optional<Instant> makeDate(int day, int month, std::int64_t year, int hour, int minute, int second,
                                const Calendar& calendar);

Instant startOfDay(Instant date, const Calendar& calendar);

/// The start in `to` of the civil day that `date` has in `from`; `date` itself where both calendars have the
/// same zone, or `to` has no such day.
Instant sameDay(Instant date, const Calendar& from, const Calendar& to);

int weekday(Instant date, const Calendar& calendar);

/// Calendar days from one date's day to another's: a day of 23 or 25 hours counts as one. Negative when
/// `to` is the earlier.
std::int64_t dayCount(Instant from, Instant to, const Calendar& calendar);

std::string_view shortWeekday(Instant date, const Calendar& calendar); ///< "Sat"
std::string dayKey(Instant date, const Calendar& calendar); ///< "2026-03-07"
std::string fullDate(Instant date, const Calendar& calendar); ///< "Sat, 07 Mar 2026"
std::string longDate(Instant date, const Calendar& calendar); ///< "Saturday, 7 March 2026"

/// "21:40" or "21:40:03".
std::string clock(Instant date, const Calendar& calendar, ClockSeconds seconds = ClockSeconds::hidden);
/// "9:40 PM" or "9:40:03 PM"; midnight and noon are 12.
std::string clock12(Instant date, const Calendar& calendar, ClockSeconds seconds = ClockSeconds::hidden);

} // namespace zelta::CalendarKit
