#include "core/WeekendRule.h"

#include "core/CalendarKit.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zelta {

WeekendRule WeekendRule::satSun()
{
    return {{7, 1}};
}

WeekendRule WeekendRule::friSat()
{
    return {{6, 7}};
}

WeekendRule WeekendRule::friSun()
{
    return {{6, 1}};
}

WeekendRule WeekendRule::friOnly()
{
    return {{6}};
}

WeekendRule WeekendRule::sunOnly()
{
    return {{1}};
}

WeekendRule WeekendRule::none()
{
    return {};
}

std::span<const WeekendRule::Preset> WeekendRule::presets()
{
    static const auto all = std::to_array<Preset>({
        {"sat-sun", "Saturday & Sunday", satSun()},
        {"fri-sat", "Friday & Saturday (Gulf)", friSat()},
        {"fri-sun", "Friday & Sunday", friSun()},
        {"fri", "Friday only", friOnly()},
        {"sun", "Sunday only", sunOnly()},
        {"none", "No weekend (7-day week)", none()},
    });
    return all;
}

const WeekendRule::Preset& WeekendRule::preset(std::string_view id)
{
    const auto all = presets();
    const auto found = std::ranges::find(all, id, &Preset::id);
    return found == all.end() ? all.front() : *found;
}

WeekendRule WeekendRule::forPresetId(std::string_view id)
{
    return preset(id).rule;
}

int WeekendRule::daysPerWeek() const
{
    return static_cast<int>(std::ranges::count_if(days, [](int day) { return day >= 1 && day <= 7; }));
}

std::string WeekendRule::summary() const
{
    if (days.empty())
        return "No weekend";
    std::string text;
    for (const int day : days) {
        if (day < 1 || day > 7)
            continue;
        if (!text.empty())
            text += " + ";
        text += CalendarKit::weekdayShort[static_cast<std::size_t>(day)];
    }
    return text;
}

} // namespace zelta
