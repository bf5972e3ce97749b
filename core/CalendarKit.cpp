#include "core/CalendarKit.h"

#include <fmt/format.h>

#include <cstddef>

namespace zelta::CalendarKit {

namespace {

template <std::size_t N> std::string_view entry(const std::array<std::string_view, N>& table, int number)
{
    return table[static_cast<std::size_t>(number)];
}

} // namespace

Calendar calendar(std::string_view timeZoneIdentifier)
{
    return Calendar(timeZoneIdentifier);
}

int daysInMonth(int month, std::int64_t year)
{
    switch (month) {
    case 2:
        return isLeapYear(year) ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return month >= 1 && month <= 12 ? 31 : 0;
    }
}

std::optional<Instant> makeDate(int day, int month, std::int64_t year, int hour, int minute, int second,
                                const Calendar& calendar)
{
    const bool isDay = year >= 1 && day >= 1 && day <= daysInMonth(month, year);
    const bool isTime = hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
    if (!isDay || !isTime)
        return std::nullopt;
    const CivilDay civilDay {year, month, day};
    if (const auto date = calendar.instant({civilDay, hour, minute, second}))
        return date;
    return calendar.instant({civilDay, 12});
}

Instant startOfDay(Instant date, const Calendar& calendar)
{
    return calendar.startOfDay(date);
}

Instant sameDay(Instant date, const Calendar& from, const Calendar& to)
{
    return from == to ? date : to.instantOrAfterJump({from.civilDay(date)}).value_or(date);
}

int weekday(Instant date, const Calendar& calendar)
{
    return calendar.civilDay(date).weekday();
}

std::int64_t dayCount(Instant from, Instant to, const Calendar& calendar)
{
    return daysBetween(calendar.civilDay(from), calendar.civilDay(to));
}

std::string_view shortWeekday(Instant date, const Calendar& calendar)
{
    return entry(weekdayShort, weekday(date, calendar));
}

std::string dayKey(Instant date, const Calendar& calendar)
{
    const CivilDay day = calendar.civilDay(date);
    return fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
}

std::string fullDate(Instant date, const Calendar& calendar)
{
    const CivilDay day = calendar.civilDay(date);
    return fmt::format("{}, {:02} {} {:04}", entry(weekdayShort, day.weekday()), day.day,
                       entry(monthShort, day.month), day.year);
}

std::string longDate(Instant date, const Calendar& calendar)
{
    const CivilDay day = calendar.civilDay(date);
    return fmt::format("{}, {} {} {}", entry(weekdayLong, day.weekday()), day.day,
                       entry(monthLong, day.month), day.year);
}

std::string clock(Instant date, const Calendar& calendar, ClockSeconds seconds)
{
    const CivilTime time = calendar.civilTime(date);
    if (seconds == ClockSeconds::shown)
        return fmt::format("{:02}:{:02}:{:02}", time.hour, time.minute, time.second);
    return fmt::format("{:02}:{:02}", time.hour, time.minute);
}

std::string clock12(Instant date, const Calendar& calendar, ClockSeconds seconds)
{
    const CivilTime time = calendar.civilTime(date);
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    const std::string_view suffix = time.hour < 12 ? "AM" : "PM";
    if (seconds == ClockSeconds::shown)
        return fmt::format("{}:{:02}:{:02} {}", hour, time.minute, time.second, suffix);
    return fmt::format("{}:{:02} {}", hour, time.minute, suffix);
}

} // namespace zelta::CalendarKit
