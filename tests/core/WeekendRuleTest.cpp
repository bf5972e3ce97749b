#include "core/WeekendRule.h"

#include <gtest/gtest.h>

#include <vector>

using namespace zelta;

TEST(WeekendRulePresets, AreInThePickersOrder)
{
    const std::vector<WeekendRule::Preset> expected {{"sat-sun", "Saturday & Sunday", {{7, 1}}},
                                                     {"fri-sat", "Friday & Saturday (Gulf)", {{6, 7}}},
                                                     {"fri-sun", "Friday & Sunday", {{6, 1}}},
                                                     {"fri", "Friday only", {{6}}},
                                                     {"sun", "Sunday only", {{1}}},
                                                     {"none", "No weekend (7-day week)", {}}};
    const auto presets = WeekendRule::presets();
    EXPECT_EQ(std::vector(presets.begin(), presets.end()), expected);
}

TEST(WeekendRulePresets, AreFoundByTheirExactIdOnly)
{
    for (const WeekendRule::Preset& preset : WeekendRule::presets())
        EXPECT_EQ(WeekendRule::forPresetId(preset.id), preset.rule) << preset.id;
    for (const char* unknown : {"", "SAT-SUN", "Fri", "fri ", " none", "sat"})
        EXPECT_EQ(WeekendRule::forPresetId(unknown), WeekendRule::satSun()) << '"' << unknown << '"';
}

TEST(WeekendRule, AnEmptyRuleHasNoWeekend)
{
    for (int weekday = 0; weekday <= 8; ++weekday)
        EXPECT_FALSE(WeekendRule::none().isWeekend(weekday));
}

TEST(WeekendRule, KnowsItsDays)
{
    for (int weekday = 1; weekday <= 7; ++weekday) {
        EXPECT_EQ(WeekendRule::friSat().isWeekend(weekday), weekday == 6 || weekday == 7) << weekday;
        EXPECT_EQ(WeekendRule::sunOnly().isWeekend(weekday), weekday == 1) << weekday;
    }
}

TEST(WeekendRuleSummary, BeginsWithSunday)
{
    EXPECT_EQ(WeekendRule::satSun().summary(), "Sun + Sat");
    EXPECT_EQ(WeekendRule::friSat().summary(), "Fri + Sat");
    EXPECT_EQ(WeekendRule::friSun().summary(), "Sun + Fri");
    EXPECT_EQ(WeekendRule::friOnly().summary(), "Fri");
    EXPECT_EQ(WeekendRule::sunOnly().summary(), "Sun");
    EXPECT_EQ(WeekendRule::none().summary(), "No weekend");
    EXPECT_EQ((WeekendRule {{1, 2, 3, 4, 5, 6, 7}}.summary()), "Sun + Mon + Tue + Wed + Thu + Fri + Sat");
}

TEST(WeekendRule, NumbersThatAreNoWeekdayMatchNothing)
{
    const WeekendRule rule {{-1, 0, 3, 8}};
    EXPECT_EQ(rule.days.size(), 4U);
    EXPECT_EQ(rule.summary(), "Tue");
    EXPECT_EQ(rule.daysPerWeek(), 1);
    EXPECT_NE(rule, (WeekendRule {{3}}));
}
