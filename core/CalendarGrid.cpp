#include "core/CalendarGrid.h"

#include "core/CalendarKit.h"

#include <fmt/format.h>

#include <cstddef>

namespace zelta {

std::string WeekRow::id() const
{
    return days.empty() ? fmt::format("{}", isoWeek) : days.front().key;
}

namespace CalendarGrid {

namespace {

constexpr int daysPerWeek = 7;
constexpr std::size_t maxRows = 6;

/// Days of one week, and what they are marked against.
struct Marks
{
    const Calendar& calendar;
    const WeekendRule& weekendRule;
    CivilDay shown; ///< A day of the month that is shown.
    CivilDay today;

    [[nodiscard]] DayCell cell(Instant date) const
    {
        const CivilDay day = calendar.civilDay(date);
        return {.key = CalendarKit::dayKey(date, calendar),
                .date = date,
                .dayNumber = day.day,
                .monthNumber = day.month,
                .inPeriod = day.month == shown.month && day.year == shown.year,
                .isToday = day == today,
                .isWeekend = weekendRule.isWeekend(day.weekday())};
    }

    [[nodiscard]] WeekRow row(Instant weekStart) const
    {
        WeekRow row {calendar.civilDay(weekStart).isoWeek(), {}};
        for (int i = 0; i < daysPerWeek; ++i) {
            if (const auto date = calendar.addingDays(weekStart, i))
                row.days.push_back(cell(*date));
        }
        return row;
    }
};

} // namespace

std::array<std::string_view, 7> weekdayHeadings(const Calendar& calendar, NameLength length)
{
    const auto& names
        = length == NameLength::abbreviated ? CalendarKit::weekdayShort : CalendarKit::weekdayLong;
    std::array<std::string_view, 7> headings;
    for (std::size_t i = 0; i < headings.size(); ++i)
        headings[i] = names[(calendar.firstWeekday - 1 + i) % headings.size() + 1];
    return headings;
}

Instant startOfWeek(Instant containing, const Calendar& calendar)
{
    const Instant start = calendar.startOfDay(containing);
    const int back = (calendar.civilDay(start).weekday() - calendar.firstWeekday + daysPerWeek) % daysPerWeek;
    return calendar.addingDays(start, -back).value_or(start);
}

std::vector<WeekRow> month(Instant containing, const DateOptions& options, Instant today)
{
    const Calendar calendar = options.calendar();
    const CivilDay shown = calendar.civilDay(containing);
    const auto first = CalendarKit::makeDate(1, shown.month, shown.year, 0, 0, 0, calendar);
    if (!first)
        return {};

    const Marks marks {calendar, options.weekendRule, shown, calendar.civilDay(today)};
    const int lastDay = CalendarKit::daysInMonth(shown.month, shown.year);
    std::vector<WeekRow> rows;
    std::optional<Instant> weekStart = startOfWeek(*first, calendar);
    while (weekStart && rows.size() < maxRows) {
        rows.push_back(marks.row(*weekStart));
        const DayCell& last = rows.back().days.back();
        if (!last.inPeriod || last.dayNumber >= lastDay)
            break;
        weekStart = calendar.addingDays(*weekStart, daysPerWeek);
    }
    return rows;
}

std::string title(Instant date, const DateOptions& options)
{
    const CivilDay day = options.calendar().civilDay(date);
    return fmt::format("{} {}", CalendarKit::monthLong[static_cast<std::size_t>(day.month)], day.year);
}

Instant shift(Instant date, int months, const DateOptions& options)
{
    const Calendar calendar = options.calendar();
    CivilTime time = calendar.civilTime(date);
    time.day = time.day.addingMonths(months);
    if (time.day.year < 1)
        return date;
    if (const auto shifted = calendar.instantOrAfterJump(time))
        return *shifted;
    time.day = time.day.addingDays(1);
    return calendar.instantOrAfterJump(time).value_or(date);
}

} // namespace CalendarGrid

} // namespace zelta
