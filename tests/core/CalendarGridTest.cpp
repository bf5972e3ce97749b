#include "core/CalendarGrid.h"

#include "core/CalendarKit.h"
#include "tests/support/Comparison.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zelta;

namespace {

DateOptions in(const std::string& zone, const WeekendRule& rule = WeekendRule::satSun())
{
    return {.weekendRule = rule, .timeZoneIdentifier = zone};
}

Instant at(const CivilDay& day, const std::string& zone)
{
    return Calendar(zone).instantOrAfterJump({day}).value();
}

std::string digits(const WeekendRule& rule)
{
    std::string text;
    for (const int day : rule.days)
        text += std::to_string(day);
    return text.empty() ? "-" : text;
}

/// As the oracle writes a month.
std::string written(const std::vector<WeekRow>& rows)
{
    std::string text;
    for (const WeekRow& row : rows) {
        text += fmt::format("{}{}:", text.empty() ? "" : " ", row.isoWeek);
        for (const DayCell& cell : row.days) {
            text += fmt::format("{}{}{}{}{}", &cell == &row.days.front() ? "" : ",", cell.key,
                                cell.inPeriod ? "p" : "", cell.isWeekend ? "w" : "", cell.isToday ? "t" : "");
        }
    }
    return text;
}

void compareWithOracle(const std::string& zone, int fromYear, int toYear)
{
    test::Comparison comparison("core/dates_oracle.py");
    const Calendar calendar(zone);
    for (int year = fromYear; year <= toYear; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const auto number = static_cast<std::size_t>(year) * 12 + static_cast<std::size_t>(month);
            const DateOptions options = in(zone, WeekendRule::presets()[number % 6].rule);
            // Today is inside the month, in a neighbour's part of the grid, or far away.
            const CivilDay first {year, month, 1};
            const CivilDay today = first.addingDays(static_cast<int>(number % 41) - (year > 1 ? 5 : 0));
            const Instant inside = at(first.addingDays(static_cast<int>(number % 28)), zone);
            comparison.add(
                fmt::format("grid {} {} {} {:04}-{:02}-{:02} {}", zone, year, month, today.year, today.month,
                            today.day, digits(options.weekendRule)),
                written(CalendarGrid::month(inside, options, calendar.instantOrAfterJump({today}).value())));
        }
    }
}

} // namespace

TEST(CalendarGridMonth, EveryMonthOfTheseYearsAgreesWithTheOracle)
{
    compareWithOracle("UTC", 1, 9999);
}

TEST(CalendarGridMonth, MonthsWithSkippedMidnightsAgreeWithTheOracle)
{
    for (const char* zone : {"Pacific/Apia", "America/Sao_Paulo", "Africa/Cairo", "Asia/Beirut",
                             "America/Havana", "America/Asuncion", "Pacific/Kwajalein", "Europe/Paris"})
        compareWithOracle(zone, 1900, 2050);
}

TEST(CalendarGridMonth, LeavesOutADayThatTheZoneSkipped)
{
    const auto rows = CalendarGrid::month(at({2011, 12, 1}, "Pacific/Apia"), in("Pacific/Apia"), Instant {});
    ASSERT_EQ(rows.size(), 5U);
    ASSERT_EQ(rows.back().days.size(), 6U);
    EXPECT_EQ(rows.back().days[3].key, "2011-12-29");
    EXPECT_EQ(rows.back().days[4].key, "2011-12-31");
}

TEST(CalendarGridMonth, AFebruaryThatFillsItsWeeksHasFourRows)
{
    const auto rows = CalendarGrid::month(at({2021, 2, 17}, "UTC"), in("UTC"), Instant {});
    ASSERT_EQ(rows.size(), 4U);
    for (const WeekRow& row : rows) {
        for (const DayCell& cell : row.days)
            EXPECT_TRUE(cell.inPeriod) << cell.key;
    }
    EXPECT_EQ(rows.front().id(), "2021-02-01");
}

TEST(CalendarGridMonth, AMonthThatBeginsOnASundayHasSixRows)
{
    const auto rows = CalendarGrid::month(at({2026, 3, 7}, "UTC"), in("UTC"), at({2026, 3, 7}, "UTC"));
    ASSERT_EQ(rows.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_FALSE(rows[0].days[i].inPeriod);
    const DayCell expected {.key = "2026-03-07",
                            .date = at({2026, 3, 7}, "UTC"),
                            .dayNumber = 7,
                            .monthNumber = 3,
                            .inPeriod = true,
                            .isToday = true,
                            .isWeekend = true};
    EXPECT_EQ(rows[1].days[5], expected);
}

TEST(CalendarGridMonth, TheFirstDaysOfAYearMayBelongToTheLastWeekOfTheYearBefore)
{
    const auto rows = CalendarGrid::month(at({2027, 1, 1}, "UTC"), in("UTC"), Instant {});
    EXPECT_EQ(rows.front().isoWeek, 53);
    EXPECT_EQ(rows.front().id(), "2026-12-28");
}

TEST(CalendarGridMonth, AMonthWhoseFirstMidnightIsMissingStillHasAGrid)
{
    const auto rows
        = CalendarGrid::month(at({2023, 10, 9}, "America/Asuncion"), in("America/Asuncion"), Instant {});
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(rows[0].days[6].key, "2023-10-01");
    EXPECT_TRUE(rows[0].days[6].inPeriod);
}

TEST(CalendarGridMonth, UnderNoRuleNothingIsShaded)
{
    for (const WeekRow& row :
         CalendarGrid::month(at({2026, 3, 7}, "UTC"), in("UTC", WeekendRule::none()), Instant {})) {
        for (const DayCell& cell : row.days)
            EXPECT_FALSE(cell.isWeekend);
    }
}

TEST(CalendarGridMonth, ThereIsNothingBeforeYearOne)
{
    EXPECT_TRUE(CalendarGrid::month(at({0, 12, 1}, "UTC"), in("UTC"), Instant {}).empty());
    EXPECT_TRUE(CalendarGrid::month(at({-44, 3, 15}, "UTC"), in("UTC"), Instant {}).empty());
    EXPECT_EQ(CalendarGrid::month(at({1, 1, 1}, "UTC"), in("UTC"), Instant {}).front().id(), "0001-01-01");
}

TEST(CalendarGridRow, WithoutDaysIsNamedByItsWeek)
{
    EXPECT_EQ((WeekRow {53, {}}.id()), "53");
}

TEST(CalendarGridHeadings, BeginWithMonday)
{
    const auto brief = CalendarGrid::weekdayHeadings(Calendar("UTC"), CalendarGrid::NameLength::abbreviated);
    EXPECT_EQ(brief.front(), "Mon");
    EXPECT_EQ(brief.back(), "Sun");
    const auto full = CalendarGrid::weekdayHeadings(Calendar("UTC"), CalendarGrid::NameLength::full);
    EXPECT_EQ(full.front(), "Monday");
    EXPECT_EQ(full[5], "Saturday");
    EXPECT_EQ(full.back(), "Sunday");
}

TEST(CalendarGridStartOfWeek, IsTheMondayOnOrBefore)
{
    const Calendar paris("Europe/Paris");
    for (int day = 23; day <= 29; ++day) {
        const Instant late = paris.instant({{2026, 3, day}, 23, 30}).value();
        EXPECT_EQ(CalendarKit::dayKey(CalendarGrid::startOfWeek(late, paris), paris), "2026-03-23") << day;
    }
}

TEST(CalendarGridTitle, IsMonthAndYear)
{
    EXPECT_EQ(CalendarGrid::title(at({2026, 3, 7}, "UTC"), in("UTC")), "March 2026");
    EXPECT_EQ(CalendarGrid::title(at({33, 4, 3}, "UTC"), in("UTC")), "April 33");
}

TEST(CalendarGridShift, ClampsToTheEndOfAShorterMonth)
{
    const auto shifted = [](const CivilDay& day, int months, const std::string& zone) {
        return CalendarKit::dayKey(CalendarGrid::shift(at(day, zone), months, in(zone)), Calendar(zone));
    };
    EXPECT_EQ(shifted({2026, 1, 31}, 1, "UTC"), "2026-02-28");
    EXPECT_EQ(shifted({2024, 1, 31}, 1, "UTC"), "2024-02-29");
    EXPECT_EQ(shifted({2026, 3, 31}, -1, "UTC"), "2026-02-28");
    EXPECT_EQ(shifted({2026, 12, 15}, 1, "UTC"), "2027-01-15");
    EXPECT_EQ(shifted({2026, 1, 15}, -1, "UTC"), "2025-12-15");
    EXPECT_EQ(shifted({9999, 12, 31}, 1, "UTC"), "10000-01-31");
}

TEST(CalendarGridShift, GoesOnPastASkippedDayAndStopsAtYearOne)
{
    const Calendar apia("Pacific/Apia");
    const Instant november = at({2011, 11, 30}, "Pacific/Apia");
    EXPECT_EQ(CalendarKit::dayKey(CalendarGrid::shift(november, 1, in("Pacific/Apia")), apia), "2011-12-31");
    const Instant first = at({1, 1, 20}, "UTC");
    EXPECT_EQ(CalendarGrid::shift(first, -1, in("UTC")), first);
}
