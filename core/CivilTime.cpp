#include "core/CivilTime.h"

#include <cctz/civil_time.h>

#include <algorithm>

namespace zelta {

namespace {

cctz::civil_day toCctz(const CivilDay& day)
{
    return cctz::civil_day(day.year, day.month, day.day);
}

CivilDay fromCctz(const cctz::civil_day& day)
{
    return {day.year(), day.month(), day.day()};
}

} // namespace

int CivilDay::weekday() const
{
    // The library counts from Monday = 0.
    return (static_cast<int>(cctz::get_weekday(toCctz(*this))) + 1) % 7 + 1;
}

int CivilDay::isoWeek() const
{
    // A week belongs to the year that its Thursday is in.
    const int daysSinceMonday = (weekday() + 5) % 7;
    const cctz::civil_day thursday = toCctz(*this) + (3 - daysSinceMonday);
    return (cctz::get_yearday(thursday) - 1) / 7 + 1;
}

CivilDay CivilDay::addingDays(std::int64_t count) const
{
    return fromCctz(toCctz(*this) + count);
}

CivilDay CivilDay::addingMonths(std::int64_t count) const
{
    const cctz::civil_month target = cctz::civil_month(year, month) + count;
    const int lastDay = (cctz::civil_day(target + 1) - 1).day();
    return {target.year(), target.month(), std::min(day, lastDay)};
}

std::int64_t daysBetween(const CivilDay& from, const CivilDay& to)
{
    return toCctz(to) - toCctz(from);
}

std::int64_t monthsBetween(const CivilDay& from, const CivilDay& to)
{
    const std::int64_t months
        = cctz::civil_month(to.year, to.month) - cctz::civil_month(from.year, from.month);
    return from.addingMonths(months) > to ? months - 1 : months;
}

} // namespace zelta
