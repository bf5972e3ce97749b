#include "app/pages/MonthCursor.h"

#include "core/CalendarKit.h"

#include <gtest/gtest.h>

#include <string>

namespace zelta {
namespace {

DateOptions in(const std::string& zone)
{
    return {.weekendRule = WeekendRule::satSun(), .timeZoneIdentifier = zone};
}

MonthCursor at(const CivilDay& day, const std::string& zone = "UTC")
{
    MonthCursor cursor;
    cursor.goTo(Calendar(zone).instantOrAfterJump({day}).value());
    return cursor;
}

/// "shown month / selected day"
std::string told(const MonthCursor& cursor, const std::string& zone = "UTC")
{
    const Calendar calendar(zone);
    return CalendarKit::dayKey(cursor.anchor, calendar).substr(0, 7) + " / "
        + CalendarKit::dayKey(cursor.selected, calendar);
}

TEST(MonthCursor, PagingSelectsTheFirstOfTheMonth)
{
    MonthCursor cursor = at({2026, 1, 31});
    cursor.step(1, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-02 / 2026-02-01");
    cursor.step(-1, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-01 / 2026-01-01");
    cursor.step(-1, in("UTC"));
    EXPECT_EQ(told(cursor), "2025-12 / 2025-12-01");
    cursor.selected = at({2025, 12, 24}).selected;
    cursor.step(12, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-12 / 2026-12-01") << "the same month of another year";
}

TEST(MonthCursor, PagingToTheMonthOfTheSelectedDayKeepsIt)
{
    // A click on a neighbour's day selects it without changing the month that is shown.
    MonthCursor cursor = at({2026, 3, 10});
    cursor.selected = at({2026, 4, 3}).selected;
    cursor.step(1, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-04 / 2026-04-03");
}

TEST(MonthCursor, StopsAtYearOne)
{
    MonthCursor cursor = at({1, 1, 20});
    cursor.step(-1, in("UTC"));
    EXPECT_EQ(cursor, at({1, 1, 20}));
    cursor = at({1, 1, 1});
    cursor.moveSelected(-1, in("UTC"));
    EXPECT_EQ(cursor, at({1, 1, 1}));
}

TEST(MonthCursor, PagesOnPastASkippedDay)
{
    const std::string zone = "Pacific/Apia";
    MonthCursor cursor = at({2011, 11, 30}, zone);
    cursor.step(1, in(zone));
    EXPECT_EQ(told(cursor, zone), "2011-12 / 2011-12-01");
    cursor.step(1, in(zone));
    EXPECT_EQ(told(cursor, zone), "2012-01 / 2012-01-01");
}

TEST(MonthCursor, AMissingFirstMidnightIsSelectedAtNoon)
{
    const std::string zone = "America/Asuncion";
    MonthCursor cursor = at({2023, 9, 15}, zone);
    cursor.step(1, in(zone));
    EXPECT_EQ(told(cursor, zone), "2023-10 / 2023-10-01");
    EXPECT_EQ(CalendarKit::clock(cursor.selected, Calendar(zone)), "12:00");
}

TEST(MonthCursor, AMovedSelectionStaysInSight)
{
    MonthCursor cursor = at({2026, 2, 28});
    cursor.moveSelected(1, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-03 / 2026-03-01");
    cursor.moveSelected(-7, in("UTC"));
    EXPECT_EQ(told(cursor), "2026-02 / 2026-02-22");
}

TEST(MonthCursor, AMovedSelectionPassesOverASkippedDay)
{
    const std::string zone = "Pacific/Apia";
    MonthCursor cursor = at({2011, 12, 29}, zone);
    cursor.moveSelected(1, in(zone));
    EXPECT_EQ(told(cursor, zone), "2011-12 / 2011-12-31");
    cursor.moveSelected(-1, in(zone));
    EXPECT_EQ(told(cursor, zone), "2011-12 / 2011-12-29");
}

} // namespace
} // namespace zelta
