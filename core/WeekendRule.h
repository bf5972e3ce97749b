#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>

namespace zelta {

/// Which days of the week are weekend days. Weekdays are numbered 1 = Sunday to 7 = Saturday; a rule
/// without days means a working week of seven days.
///
///     WeekendRule::forPresetId("fri-sat").isWeekend(6)   // true: Friday
///     WeekendRule::forPresetId("sat-sun").summary()      // "Sun + Sat"
struct WeekendRule
{
    struct Preset;

    std::set<int> days; ///< May hold numbers outside 1 to 7; those match no weekday.

    static WeekendRule satSun();
    static WeekendRule friSat();
    static WeekendRule friSun();
    static WeekendRule friOnly();
    static WeekendRule sunOnly();
    static WeekendRule none();

    /// The rules to choose from, in the order of the picker.
    static std::span<const Preset> presets();

    /// The preset with exactly this id; that of Saturday and Sunday for an unknown one.
    static const Preset& preset(std::string_view id);
    static WeekendRule forPresetId(std::string_view id);

    [[nodiscard]] bool isWeekend(int weekday) const { return days.contains(weekday); }

    /// How many of the seven weekdays are weekend days.
    [[nodiscard]] int daysPerWeek() const;

    /// English abbreviations from Sunday on: "Sun + Sat", or "No weekend" for an empty rule.
    [[nodiscard]] std::string summary() const;

    friend bool operator==(const WeekendRule&, const WeekendRule&) = default;
};

/// A rule with its name in the picker and the id under which the choice is stored.
struct WeekendRule::Preset
{
    std::string id;
    std::string name;
    WeekendRule rule;

    friend bool operator==(const Preset&, const Preset&) = default;
};

} // namespace zelta
