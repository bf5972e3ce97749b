#include "core/DateMath.h"

#include "core/CalendarKit.h"
#include "tests/support/Comparison.h"
#include "tests/support/Environment.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace zelta;
using zelta::test::Environment;

namespace {

Instant at(const CivilDay& day, const std::string& zone)
{
    return Calendar(zone).instantOrAfterJump({day}).value();
}

DateMath::Duration span(const CivilDay& from, const CivilDay& to, bool includeEndDate = false,
                        const std::string& zone = "UTC", const WeekendRule& rule = WeekendRule::satSun())
{
    return DateMath::duration(at(from, zone), at(to, zone), {includeEndDate, rule, zone});
}

const ResultRow* rowNamed(const std::vector<ResultRow>& rows, std::string_view label)
{
    for (const ResultRow& row : rows) {
        if (row.label == label)
            return &row;
    }
    return nullptr;
}

std::string digits(const WeekendRule& rule)
{
    std::string text;
    for (const int day : rule.days)
        text += std::to_string(day);
    return text.empty() ? "-" : text;
}

std::string written(const CivilDay& day)
{
    return fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
}

/// Spans asked of the oracle and computed here.
class Comparison
{
public:
    void add(const std::string& zone, const CivilDay& from, const CivilDay& to, bool includeEndDate,
             const WeekendRule& rule)
    {
        const auto calendar = m_calendars.try_emplace(zone, zone).first->second;
        const auto start = calendar.instantOrAfterJump({from});
        const auto end = calendar.instantOrAfterJump({to});
        if (!start || !end)
            return;
        const auto result = DateMath::duration(*start, *end, {includeEndDate, rule, zone});
        ASSERT_EQ(result.reversed, to < from);
        ASSERT_EQ(result.workdays + result.weekendDays, result.totalDays);
        ASSERT_EQ(result.totalWeeks * 7 + result.remainderDays, result.totalDays);
        m_comparison.add(fmt::format("span {} {} {} {} {}", zone, written(from), written(to),
                                     includeEndDate ? 1 : 0, digits(rule)),
                         fmt::format("{} {} {} {} {} {} {}", result.totalDays, result.years, result.months,
                                     result.days, result.totalMonths, result.weekendDays,
                                     result.elapsedSeconds));
    }

private:
    std::map<std::string, Calendar> m_calendars;
    test::Comparison m_comparison {"core/dates_oracle.py"};
};

} // namespace

TEST(DateMathDuration, AnEmptySpanIsZeroThroughout)
{
    const auto result = span({2026, 3, 7}, {2026, 3, 7});
    EXPECT_EQ(result.totalDays, 0);
    EXPECT_EQ(result.calendarPhrase(), "0 days");
    EXPECT_EQ(result.workdays, 0);
    EXPECT_FALSE(result.reversed);
    const auto rows = result.rows();
    EXPECT_EQ(rowNamed(rows, "Weeks and days")->value, "0 weeks 0 days");
    EXPECT_EQ(rowNamed(rows, "Total weeks")->value, "0");
}

TEST(DateMathDuration, OneDayIncludedIsOneDay)
{
    const auto saturday = span({2026, 3, 7}, {2026, 3, 7}, true);
    EXPECT_EQ(saturday.totalDays, 1);
    EXPECT_EQ(saturday.calendarPhrase(), "1 day");
    EXPECT_EQ(saturday.workdays, 0);
    EXPECT_EQ(saturday.weekendDays, 1);
    EXPECT_EQ(rowNamed(saturday.rows(), "Weeks and days")->value, "0 weeks 1 day");
    EXPECT_EQ(span({2026, 3, 9}, {2026, 3, 9}, true).workdays, 1);
}

TEST(DateMathDuration, BreaksDownWithClamping)
{
    const auto phrase
        = [](const CivilDay& from, const CivilDay& to) { return span(from, to).calendarPhrase(); };
    EXPECT_EQ(phrase({2026, 1, 15}, {2026, 3, 20}), "2 months, 5 days");
    EXPECT_EQ(phrase({2024, 5, 10}, {2025, 5, 9}), "11 months, 29 days");
    EXPECT_EQ(phrase({2024, 5, 10}, {2025, 5, 10}), "1 year");
    EXPECT_EQ(phrase({2024, 5, 10}, {2025, 7, 13}), "1 year, 2 months, 3 days");
    EXPECT_EQ(phrase({2024, 5, 10}, {2026, 6, 11}), "2 years, 1 month, 1 day");
    EXPECT_EQ(phrase({2026, 1, 31}, {2026, 2, 28}), "1 month");
    EXPECT_EQ(phrase({2024, 1, 31}, {2024, 2, 28}), "28 days");
    EXPECT_EQ(phrase({2024, 1, 31}, {2024, 2, 29}), "1 month");
    EXPECT_EQ(phrase({2026, 1, 31}, {2026, 3, 1}), "1 month, 1 day");
    EXPECT_EQ(phrase({2024, 2, 29}, {2025, 2, 28}), "1 year");
    EXPECT_EQ(phrase({2024, 2, 29}, {2025, 3, 29}), "1 year, 1 month");
    EXPECT_EQ(phrase({2024, 2, 29}, {2025, 3, 28}), "1 year, 28 days");
    EXPECT_EQ(span({2026, 1, 15}, {2026, 3, 20}).totalMonths, 2);
}

TEST(DateMathDuration, CountsTheLeapDay)
{
    EXPECT_EQ(span({2024, 2, 28}, {2024, 3, 1}).totalDays, 2);
    EXPECT_EQ(span({2025, 2, 28}, {2025, 3, 1}).totalDays, 1);
    EXPECT_EQ(span({2024, 1, 1}, {2025, 1, 1}).totalDays, 366);
    EXPECT_EQ(span({1900, 1, 1}, {1901, 1, 1}).totalDays, 365);
}

TEST(DateMathDuration, ReachesFromTheFirstDayToTheLast)
{
    const auto result = span({1, 1, 1}, {9999, 12, 31}, true);
    EXPECT_EQ(result.totalDays, 3'652'059);
    EXPECT_EQ(result.calendarPhrase(), "9999 years");
    EXPECT_EQ(result.totalMonths, 119'988);
    EXPECT_EQ(result.elapsedSeconds, 3'652'059LL * 86400);
    EXPECT_EQ(rowNamed(result.rows(), "Seconds")->value, "315,537,897,600");
    EXPECT_EQ(rowNamed(result.rows(), "Total weeks")->value, "521,722.7143");
}

TEST(DateMathDuration, OnlyTheCalendarDayOfAnInputCounts)
{
    const std::string zone = "Europe/Paris";
    const Instant from = at({2026, 3, 2}, zone) + std::chrono::hours(23);
    const Instant to = at({2026, 4, 15}, zone) + std::chrono::hours(1);
    EXPECT_EQ(DateMath::duration(from, to, {false, WeekendRule::satSun(), zone}),
              span({2026, 3, 2}, {2026, 4, 15}, false, zone));
    EXPECT_FALSE(DateMath::duration(from, at({2026, 3, 2}, zone), {false, {}, zone}).reversed);
}

TEST(DateMathDuration, ASkippedDayCountsOnTheCalendarButNotOnTheClock)
{
    const auto result = span({2011, 12, 29}, {2011, 12, 31}, false, "Pacific/Apia");
    EXPECT_EQ(result.totalDays, 2);
    EXPECT_EQ(result.elapsedSeconds, 86400);
    EXPECT_EQ(rowNamed(result.rows(), "Daylight-saving shift")->value, "\u221224h 00m 00s");

    // The day to be counted with the end date is the one that never was: the end stays.
    const auto included = span({2011, 12, 28}, {2011, 12, 29}, true, "Pacific/Apia");
    EXPECT_EQ(included.totalDays, 1);
    EXPECT_EQ(included.effectiveEnd, included.end);
    EXPECT_EQ(included.rows().front().note, "end date included");
}

TEST(DateMathRows, AreTheseInThisOrder)
{
    const auto rows = span({2026, 3, 2}, {2026, 4, 15}, false, "Europe/Paris").rows();
    const std::vector<ResultRow> expected {
        {"Total days", "44", "end date not included", Weight::headline},
        {"Calendar breakdown", "1 month, 13 days", std::nullopt, Weight::headline},
        {"Workdays", "32", "weekend: Sun + Sat", Weight::headline},
        {"From", "Monday, 2 March 2026", std::nullopt, Weight::primary},
        {"To", "Wednesday, 15 April 2026", std::nullopt, Weight::primary},
        {"Weeks and days", "6 weeks 2 days", std::nullopt, Weight::primary},
        {"Total weeks", "6.2857", std::nullopt, Weight::primary},
        {"Total months", "1", "whole calendar months", Weight::primary},
        {"Weekend days", "12", std::nullopt, Weight::primary},
        {"Hours", "1,056", std::nullopt, Weight::detail},
        {"Minutes", "63,360", std::nullopt, Weight::detail},
        {"Seconds", "3,801,600", std::nullopt, Weight::detail},
        {"Daylight-saving shift", "\u22121h 00m 00s",
         "real elapsed time is 43 days, 23h 00m 00s in Europe/Paris", Weight::detail}};
    EXPECT_EQ(rows, expected);
}

TEST(DateMathRows, AReversedSpanHasTheSameCountsAndSaysSo)
{
    const auto forwards = span({2026, 3, 2}, {2026, 4, 15}, true, "Europe/Paris");
    const auto backwards = span({2026, 4, 15}, {2026, 3, 2}, true, "Europe/Paris");
    EXPECT_TRUE(backwards.reversed);
    auto expected = forwards.rows();
    expected.push_back(
        {"Direction", "End date is before start date", "counts are shown as magnitudes", Weight::detail});
    EXPECT_EQ(backwards.rows(), expected);
    EXPECT_EQ(expected[4].value, "Wednesday, 15 April 2026");
    EXPECT_EQ(expected[0].note, "end date included");
}

TEST(DateMathRows, TellTheShiftOfTheClocksOnlyWhereThereIsOne)
{
    const auto shift = [](const CivilDay& from, const CivilDay& to, const std::string& zone) {
        const auto result = span(from, to, false, zone);
        const auto rows = result.rows();
        const ResultRow* row = rowNamed(rows, "Daylight-saving shift");
        EXPECT_EQ(result.hasDSTShift(), row != nullptr);
        return row ? row->value + " / " + row->note.value() : "none";
    };
    EXPECT_EQ(shift({2026, 10, 20}, {2026, 10, 30}, "Europe/Paris"),
              "+1h 00m 00s / real elapsed time is 10 days, 1h 00m 00s in Europe/Paris");
    EXPECT_EQ(shift({2026, 3, 29}, {2026, 3, 30}, "Europe/Paris"),
              "\u22121h 00m 00s / real elapsed time is 23h 00m 00s in Europe/Paris");
    EXPECT_EQ(shift({2026, 1, 1}, {2026, 12, 31}, "Europe/Paris"), "none");
    EXPECT_EQ(shift({2026, 1, 1}, {2026, 7, 1}, "UTC"), "none");
    EXPECT_EQ(shift({2026, 1, 1}, {2026, 7, 1}, "Asia/Tokyo"), "none");
    EXPECT_EQ(shift({2026, 7, 1}, {2026, 10, 20}, "Australia/Lord_Howe"),
              "\u22120h 30m 00s / real elapsed time is 110 days, 23h 30m 00s in Australia/Lord_Howe");
}

TEST(DateMathRows, AnUnknownZoneIsNamedAsItWasGiven)
{
    const Environment zone("TZ", "Europe/Paris");
    const std::string system = systemTimeZoneId();
    const auto given = DateMath::duration(at({2026, 3, 2}, system), at({2026, 4, 15}, system),
                                          {false, WeekendRule::none(), "Nowhere/Town"});
    const auto named = DateMath::duration(at({2026, 3, 2}, system), at({2026, 4, 15}, system),
                                          {false, WeekendRule::none(), system});
    EXPECT_EQ(given.elapsedSeconds, named.elapsedSeconds);
    ASSERT_TRUE(given.hasDSTShift());
    const auto rows = given.rows();
    EXPECT_TRUE(rowNamed(rows, "Daylight-saving shift")->note->ends_with(" in Nowhere/Town"));
}

TEST(DateMathRows, UnderNoRuleEveryDayIsAWorkday)
{
    const auto result = span({2026, 3, 2}, {2026, 4, 15}, false, "UTC", WeekendRule::none());
    EXPECT_EQ(result.workdays, 44);
    EXPECT_EQ(rowNamed(result.rows(), "Weekend days")->value, "0");
    EXPECT_EQ(rowNamed(result.rows(), "Workdays")->note, "weekend: No weekend");
}

TEST(DateMathRows, WeeksHaveFourPlacesRoundedHalfAway)
{
    const auto weeks = [](int days) {
        return rowNamed(span({2026, 1, 1}, CivilDay {2026, 1, 1}.addingDays(days)).rows(), "Total weeks")
            ->value;
    };
    EXPECT_EQ(weeks(10), "1.4286");
    EXPECT_EQ(weeks(7), "1");
    EXPECT_EQ(weeks(1), "0.1429");
    EXPECT_EQ(weeks(365), "52.1429");
    EXPECT_EQ(weeks(7777), "1,111");
    EXPECT_EQ(rowNamed(span({2026, 1, 1}, {2026, 1, 8}).rows(), "Weeks and days")->value, "1 week 0 days");
    EXPECT_EQ(rowNamed(span({1, 1, 1}, {2026, 1, 8}).rows(), "Weeks and days")->value,
              "105,660 weeks 3 days");
}

TEST(DateMathTexts, OfElapsedTimes)
{
    EXPECT_EQ(DateMath::hms(0), "0h 00m 00s");
    EXPECT_EQ(DateMath::hms(3600), "1h 00m 00s");
    EXPECT_EQ(DateMath::hms(3661), "1h 01m 01s");
    EXPECT_EQ(DateMath::hms(-3600), "\u22121h 00m 00s");
    EXPECT_EQ(DateMath::hms(360'000), "100h 00m 00s");
    EXPECT_EQ(DateMath::dhms(86399), "23h 59m 59s");
    EXPECT_EQ(DateMath::dhms(-86399), "\u221223h 59m 59s");
    EXPECT_EQ(DateMath::dhms(86400), "1 day, 0h 00m 00s");
    EXPECT_EQ(DateMath::dhms(90061), "1 day, 1h 01m 01s");
    EXPECT_EQ(DateMath::dhms(-90061), "\u22121 day, 1h 01m 01s");
    EXPECT_EQ(DateMath::dhms(2'588'400), "29 days, 23h 00m 00s");
    EXPECT_EQ(DateMath::dhms(86400LL * 12345), "12,345 days, 0h 00m 00s");
    EXPECT_EQ(DateMath::hms(std::numeric_limits<std::int64_t>::min()), "\u22122562047788015215h 30m 08s");
}

TEST(DateMathWeekendDays, AgreeWithAWalkDayByDay)
{
    const Calendar utc("UTC");
    for (const WeekendRule::Preset& preset : WeekendRule::presets()) {
        for (int start = 0; start < 7; ++start) {
            const CivilDay first {2026, 3, 1 + start};
            std::int64_t walked = 0;
            for (int days = 0; days <= 400; ++days) {
                ASSERT_EQ(DateMath::countWeekendDays(days, at(first, "UTC"), preset.rule, utc), walked)
                    << preset.id << ' ' << start << ' ' << days;
                walked += preset.rule.isWeekend(first.addingDays(days).weekday()) ? 1 : 0;
            }
        }
    }
    EXPECT_EQ(DateMath::countWeekendDays(-5, at({2026, 3, 1}, "UTC"), WeekendRule::satSun(), utc), 0);
}

TEST(DateMathWeekendDays, NumbersThatAreNoWeekdayCountNothing)
{
    EXPECT_EQ(DateMath::countWeekendDays(70, at({2026, 3, 1}, "UTC"), {{0, 7, 9}}, Calendar("UTC")), 10);
}

TEST(DateMathDuration, SpansAcrossBothChangesOfTheClocksAgreeWithTheOracle)
{
    // Forty zones with daylight saving in 2015 or later, both hemispheres, by an hour or half of one.
    const std::vector<std::string> zones {
        "Africa/Cairo",        "Africa/Casablanca", "Africa/El_Aaiun",
        "America/Adak",        "America/Anchorage", "America/Asuncion",
        "America/Chicago",     "America/Denver",    "America/Godthab",
        "America/Halifax",     "America/Havana",    "America/Los_Angeles",
        "America/Miquelon",    "America/New_York",  "America/Port-au-Prince",
        "America/Santiago",    "America/Sao_Paulo", "America/St_Johns",
        "America/Toronto",     "Antarctica/Troll",  "Asia/Amman",
        "Asia/Beirut",         "Asia/Gaza",         "Asia/Jerusalem",
        "Asia/Tehran",         "Atlantic/Azores",   "Australia/Adelaide",
        "Australia/Lord_Howe", "Australia/Sydney",  "Europe/Athens",
        "Europe/Dublin",       "Europe/Istanbul",   "Europe/Lisbon",
        "Europe/London",       "Europe/Paris",      "Pacific/Apia",
        "Pacific/Auckland",    "Pacific/Chatham",   "Pacific/Easter",
        "Pacific/Fiji"};
    ASSERT_EQ(zones.size(), 40U);
    Comparison comparison;
    for (const std::string& zone : zones) {
        for (int i = 0; i < 240; ++i) {
            // From every week of the years to a day 1 to 180 days on, forwards and backwards.
            const CivilDay from = CivilDay {2015, 1, 1}.addingDays(i * 7 + i % 7);
            const CivilDay to = from.addingDays((i * 53) % 180 + 1);
            const WeekendRule& rule = WeekendRule::presets()[static_cast<std::size_t>(i) % 6].rule;
            comparison.add(zone, i % 3 == 0 ? to : from, i % 3 == 0 ? from : to, i % 2 == 0, rule);
        }
    }
}

TEST(DateMathDuration, SpansAcrossLeapDaysAndMissingMidnightsAgreeWithTheOracle)
{
    Comparison comparison;
    // Around the leap day, across 30 December 2011, and where 00:00 is skipped.
    const std::vector<std::pair<std::string, CivilDay>> centres {{"Europe/Paris", {2024, 2, 29}},
                                                                 {"UTC", {2000, 2, 29}},
                                                                 {"UTC", {1900, 3, 1}},
                                                                 {"Pacific/Apia", {2011, 12, 30}},
                                                                 {"America/Sao_Paulo", {2018, 11, 4}},
                                                                 {"Africa/Cairo", {2024, 4, 26}},
                                                                 {"Asia/Beirut", {2024, 3, 31}},
                                                                 {"America/Havana", {2024, 3, 10}},
                                                                 {"America/Havana", {2024, 11, 3}},
                                                                 {"America/Asuncion", {2023, 10, 1}},
                                                                 {"America/St_Johns", {2006, 4, 2}},
                                                                 {"America/Toronto", {1919, 3, 31}}};
    for (const auto& [zone, centre] : centres) {
        for (int before = -3; before <= 3; ++before) {
            for (int after = -3; after <= 40; ++after) {
                const auto& rule = WeekendRule::presets()[static_cast<std::size_t>(after + 3) % 6].rule;
                for (const bool include : {false, true})
                    comparison.add(zone, centre.addingDays(before), centre.addingDays(after), include, rule);
            }
        }
    }
}

TEST(DateMathDuration, RandomSpansOfAllYearsAgreeWithTheOracle)
{
    constexpr unsigned seed = 20260307;
    std::mt19937 random(seed);
    const auto day = [&random] {
        const std::int64_t days = std::uniform_int_distribution<std::int64_t>(0, 3'651'300)(random);
        return CivilDay {2, 1, 1}.addingDays(days);
    };
    Comparison comparison;
    const std::vector<std::string> zones {"UTC", "Europe/Paris", "Pacific/Apia", "America/New_York"};
    for (std::size_t i = 0; i < 12000; ++i)
        comparison.add(zones[i % zones.size()], day(), day(), i % 2 == 0, WeekendRule::presets()[i % 6].rule);
}
