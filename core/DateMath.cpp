#include "core/DateMath.h"

#include "core/CalendarKit.h"
#include "core/CivilTime.h"
#include "core/Num.h"

#include <fmt/format.h>

#include <chrono>
#include <string_view>

namespace zelta::DateMath {

namespace {

constexpr std::int64_t secondsPerMinute = 60;
constexpr std::int64_t secondsPerHour = 3600;
constexpr std::int64_t secondsPerDay = 86400;
constexpr std::int64_t daysPerWeek = 7;
constexpr std::string_view minusSign = "\u2212";

/// Works for the smallest number too, which has no positive counterpart of its own type.
std::uint64_t magnitude(std::int64_t value)
{
    const auto bits = static_cast<std::uint64_t>(value);
    return value < 0 ? 0 - bits : bits;
}

std::string hmsOfMagnitude(std::uint64_t seconds)
{
    return fmt::format("{}h {:02}m {:02}s", seconds / secondsPerHour,
                       seconds % secondsPerHour / secondsPerMinute, seconds % secondsPerMinute);
}

/// "3 weeks", "1 week": the figure as it is given, the noun by the number.
std::string counted(std::string_view figure, std::int64_t number, std::string_view noun)
{
    return fmt::format("{} {}{}", figure, noun, number == 1 ? "" : "s");
}

std::string counted(std::int64_t number, std::string_view noun)
{
    return counted(fmt::format("{}", number), number, noun);
}

ResultRow daylightSavingRow(const Duration& span)
{
    const std::int64_t difference = span.elapsedSeconds - span.totalDays * secondsPerDay;
    return {.label = "Daylight-saving shift",
            .value = std::string(difference > 0 ? "+" : minusSign) + hmsOfMagnitude(magnitude(difference)),
            .note
            = "real elapsed time is " + dhms(span.elapsedSeconds) + " in " + span.options.timeZoneIdentifier,
            .weight = Weight::detail};
}

} // namespace

bool Duration::hasDSTShift() const
{
    return elapsedSeconds != totalDays * secondsPerDay;
}

std::string Duration::calendarPhrase() const
{
    std::string phrase;
    const auto add = [&phrase](std::int64_t number, std::string_view noun) {
        phrase += (phrase.empty() ? "" : ", ") + counted(number, noun);
    };
    if (years != 0)
        add(years, "year");
    if (months != 0)
        add(months, "month");
    if (days != 0 || phrase.empty())
        add(days, "day");
    return phrase;
}

std::vector<ResultRow> Duration::rows() const
{
    const Calendar calendar = options.calendar();
    std::vector<ResultRow> rows;
    const auto add = [&rows](Weight weight, std::string label, std::string value,
                             std::optional<std::string> note = std::nullopt) {
        rows.push_back({std::move(label), std::move(value), std::move(note), weight});
    };

    add(Weight::headline, "Total days", Num::integer(totalDays),
        options.includeEndDate ? "end date included" : "end date not included");
    add(Weight::headline, "Calendar breakdown", calendarPhrase());
    add(Weight::headline, "Workdays", Num::integer(workdays), "weekend: " + options.weekendRule.summary());
    add(Weight::primary, "From", CalendarKit::longDate(start, calendar));
    add(Weight::primary, "To", CalendarKit::longDate(end, calendar));
    add(Weight::primary, "Weeks and days",
        counted(Num::integer(totalWeeks), totalWeeks, "week") + " " + counted(remainderDays, "day"));
    add(Weight::primary, "Total weeks", Num::string(Decimal(totalDays) / daysPerWeek, 4, true));
    add(Weight::primary, "Total months", Num::integer(totalMonths), "whole calendar months");
    add(Weight::primary, "Weekend days", Num::integer(weekendDays));
    add(Weight::detail, "Hours", Num::integer(totalDays * 24));
    add(Weight::detail, "Minutes", Num::integer(totalDays * 1440));
    add(Weight::detail, "Seconds", Num::integer(totalDays * secondsPerDay));
    if (hasDSTShift())
        rows.push_back(daylightSavingRow(*this));
    if (reversed)
        add(Weight::detail, "Direction", "End date is before start date", "counts are shown as magnitudes");
    return rows;
}

Duration duration(Instant start, Instant end, const DateOptions& options)
{
    const Calendar calendar = options.calendar();
    Duration span;
    span.options = options;
    span.start = calendar.startOfDay(start);
    span.end = calendar.startOfDay(end);
    span.reversed = span.end < span.start;
    if (span.reversed)
        std::swap(span.start, span.end);
    span.effectiveEnd = span.end;
    if (options.includeEndDate)
        span.effectiveEnd = calendar.addingDays(span.end, 1).value_or(span.end);

    const CivilDay first = calendar.civilDay(span.start);
    const CivilDay last = calendar.civilDay(span.effectiveEnd);
    span.totalDays = daysBetween(first, last);
    span.totalMonths = monthsBetween(first, last);
    span.years = span.totalMonths / 12;
    span.months = span.totalMonths % 12;
    span.days = daysBetween(first.addingMonths(span.totalMonths), last);
    span.totalWeeks = span.totalDays / daysPerWeek;
    span.remainderDays = span.totalDays % daysPerWeek;
    span.weekendDays = countWeekendDays(span.totalDays, span.start, options.weekendRule, calendar);
    span.workdays = span.totalDays - span.weekendDays;
    span.elapsedSeconds
        = std::chrono::duration_cast<std::chrono::seconds>(span.effectiveEnd - span.start).count();
    return span;
}

std::int64_t countWeekendDays(std::int64_t days, Instant first, const WeekendRule& rule,
                              const Calendar& calendar)
{
    if (days < 1 || rule.days.empty())
        return 0;
    const int weekday = CalendarKit::weekday(first, calendar);
    std::int64_t count = days / daysPerWeek * rule.daysPerWeek();
    for (int i = 0; i < days % daysPerWeek; ++i)
        count += rule.isWeekend((weekday - 1 + i) % 7 + 1) ? 1 : 0;
    return count;
}

std::string hms(std::int64_t seconds)
{
    return std::string(seconds < 0 ? minusSign : "") + hmsOfMagnitude(magnitude(seconds));
}

std::string dhms(std::int64_t seconds)
{
    const std::uint64_t length = magnitude(seconds);
    if (length < secondsPerDay)
        return hms(seconds);
    const auto days = static_cast<std::int64_t>(length / secondsPerDay);
    return std::string(seconds < 0 ? minusSign : "") + counted(Num::integer(days), days, "day") + ", "
        + hmsOfMagnitude(length % secondsPerDay);
}

} // namespace zelta::DateMath
