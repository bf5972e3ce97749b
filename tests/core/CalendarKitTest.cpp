#include "core/CalendarKit.h"

#include "tests/support/Comparison.h"
#include "tests/support/Environment.h"
#include "tests/support/Oracle.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

using namespace zelta;
using namespace zelta::CalendarKit;
using zelta::test::Environment;
using zelta::test::Oracle;

namespace {

Instant at(const CivilTime& time, std::string_view zone)
{
    return Calendar(zone).instant(time).value();
}

std::vector<std::string> words(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::int64_t secondsOf(Instant instant)
{
    return std::chrono::floor<std::chrono::seconds>(instant.time_since_epoch()).count();
}

} // namespace

TEST(CalendarKitTexts, HaveTheirFixedForms)
{
    const Calendar paris("Europe/Paris");
    const Instant date = at({{2026, 3, 7}, 9, 5, 3}, "Europe/Paris");
    EXPECT_EQ(dayKey(date, paris), "2026-03-07");
    EXPECT_EQ(fullDate(date, paris), "Sat, 07 Mar 2026");
    EXPECT_EQ(longDate(date, paris), "Saturday, 7 March 2026");
    EXPECT_EQ(shortWeekday(date, paris), "Sat");
    EXPECT_EQ(weekday(date, paris), 7);
    EXPECT_EQ(clock(date, paris), "09:05");
    EXPECT_EQ(clock(date, paris, ClockSeconds::shown), "09:05:03");
    EXPECT_EQ(clock12(date, paris), "9:05 AM");
    EXPECT_EQ(clock12(date, paris, ClockSeconds::shown), "9:05:03 AM");
}

TEST(CalendarKitTexts, YearsArePaddedInKeysAndFullDatesOnly)
{
    const Calendar utc("UTC");
    EXPECT_EQ(dayKey(at({{7, 1, 2}}, "UTC"), utc), "0007-01-02");
    EXPECT_EQ(fullDate(at({{7, 1, 2}}, "UTC"), utc), "Tue, 02 Jan 0007");
    EXPECT_EQ(longDate(at({{7, 1, 2}}, "UTC"), utc), "Tuesday, 2 January 7");
    EXPECT_EQ(dayKey(at({{10000, 1, 1}}, "UTC"), utc), "10000-01-01");
}

TEST(CalendarKitTexts, MidnightAndNoonAreTwelve)
{
    const Calendar utc("UTC");
    EXPECT_EQ(clock12(at({{2026, 3, 7}, 0, 30}, "UTC"), utc), "12:30 AM");
    EXPECT_EQ(clock(at({{2026, 3, 7}, 0, 30}, "UTC"), utc), "00:30");
    EXPECT_EQ(clock12(at({{2026, 3, 7}, 12}, "UTC"), utc), "12:00 PM");
    EXPECT_EQ(clock12(at({{2026, 3, 7}, 11, 59}, "UTC"), utc), "11:59 AM");
    EXPECT_EQ(clock12(at({{2026, 3, 7}, 23, 59}, "UTC"), utc), "11:59 PM");
    EXPECT_EQ(clock(at({{2026, 3, 7}, 21, 40, 3}, "UTC"), utc, ClockSeconds::shown), "21:40:03");
}

TEST(CalendarKitTexts, PartsOfASecondBeforeTheEpochBelongToTheSecondBegun)
{
    EXPECT_EQ(clock(Instant(std::chrono::microseconds(-1)), Calendar("UTC"), ClockSeconds::shown),
              "23:59:59");
}

TEST(CalendarKitTexts, AgreeWithTheOracle)
{
    test::Comparison comparison("core/dates_oracle.py");
    const std::vector<std::string> zones {"Europe/Paris",     "Pacific/Apia",   "America/St_Johns",
                                          "Australia/Sydney", "Asia/Kathmandu", "UTC"};
    for (std::size_t i = 0; i < 20000; ++i) {
        const std::string& zone = zones[i % zones.size()];
        const Calendar zoned(zone);
        // Steps of some 22 days and an odd time, from 1500 to 2700.
        const std::int64_t second = -14'831'769'600 + static_cast<std::int64_t>(i) * 1'893'457;
        const Instant date {std::chrono::seconds(second)};
        comparison.add(fmt::format("text {} {}", zone, second),
                       fmt::format("{}|{}|{}|{}|{}", dayKey(date, zoned), fullDate(date, zoned),
                                   longDate(date, zoned), clock(date, zoned, ClockSeconds::shown),
                                   clock12(date, zoned, ClockSeconds::shown)));
    }
}

TEST(CalendarKitMonths, HaveTheirLengths)
{
    for (int month = 1; month <= 12; ++month) {
        const bool isShort = month == 4 || month == 6 || month == 9 || month == 11;
        EXPECT_EQ(daysInMonth(month, 2026), month == 2 ? 28 : isShort ? 30 : 31) << month;
    }
    EXPECT_EQ(daysInMonth(2, 2024), 29);
    EXPECT_EQ(daysInMonth(2, 1900), 28);
    EXPECT_EQ(daysInMonth(2, 2000), 29);
    for (const int month : {-1, 0, 13, 100})
        EXPECT_EQ(daysInMonth(month, 2026), 0) << month;
}

TEST(CalendarKitMakeDate, RefusesWhatDoesNotExist)
{
    const Calendar utc("UTC");
    const auto refuses = [&](int day, int month, std::int64_t year, int hour, int minute, int second) {
        return !makeDate(day, month, year, hour, minute, second, utc);
    };
    EXPECT_TRUE(refuses(29, 2, 2023, 0, 0, 0));
    EXPECT_TRUE(refuses(29, 2, 2025, 0, 0, 0));
    EXPECT_TRUE(refuses(29, 2, 1900, 0, 0, 0));
    EXPECT_TRUE(refuses(31, 4, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(32, 1, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(0, 1, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(-1, 1, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(0, 0, 0, 0, 0, 0));
    EXPECT_TRUE(refuses(1, 0, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(1, 13, 2026, 0, 0, 0));
    EXPECT_TRUE(refuses(1, 1, 0, 0, 0, 0));
    EXPECT_TRUE(refuses(1, 1, -5, 0, 0, 0));
    EXPECT_TRUE(refuses(1, 1, 2026, 24, 0, 0));
    EXPECT_TRUE(refuses(1, 1, 2026, -1, 0, 0));
    EXPECT_TRUE(refuses(1, 1, 2026, 0, 60, 0));
    EXPECT_TRUE(refuses(1, 1, 2026, 0, 0, 60));
    EXPECT_TRUE(refuses(1, 1, 2026, 0, -1, 0));
    EXPECT_TRUE(refuses(1, 1, 2026, 0, 0, -1));
    EXPECT_TRUE(refuses(1, 1, 9'000'000'000'000'000'000, 0, 0, 0));
}

TEST(CalendarKitMakeDate, MakesTheFirstAndTheLastDay)
{
    const Calendar utc("UTC");
    EXPECT_EQ(dayKey(makeDate(29, 2, 2024, 0, 0, 0, utc).value(), utc), "2024-02-29");
    EXPECT_EQ(dayKey(makeDate(1, 1, 1, 0, 0, 0, utc).value(), utc), "0001-01-01");
    EXPECT_EQ(dayKey(makeDate(31, 12, 9999, 23, 59, 59, utc).value(), utc), "9999-12-31");
}

TEST(CalendarKitMakeDate, TurnsToNoonWhereMidnightIsMissing)
{
    const auto made = [](int day, int month, int year, std::string_view zone) {
        const Calendar zoned(zone);
        const Instant date = makeDate(day, month, year, 0, 0, 0, zoned).value();
        return dayKey(date, zoned) + " " + clock(date, zoned);
    };
    EXPECT_EQ(made(4, 11, 2018, "America/Sao_Paulo"), "2018-11-04 12:00");
    EXPECT_EQ(made(26, 4, 2024, "Africa/Cairo"), "2024-04-26 12:00");
    EXPECT_EQ(made(31, 3, 2024, "Asia/Beirut"), "2024-03-31 12:00");
    EXPECT_EQ(made(10, 3, 2024, "America/Havana"), "2024-03-10 12:00");
    EXPECT_EQ(made(1, 10, 2023, "America/Asuncion"), "2023-10-01 12:00");
    EXPECT_EQ(made(3, 11, 2024, "America/Havana"), "2024-11-03 00:00");
}

TEST(CalendarKitMakeDate, ADayThatTheZoneSkippedIsNoDate)
{
    EXPECT_FALSE(makeDate(30, 12, 2011, 0, 0, 0, Calendar("Pacific/Apia")));
    EXPECT_FALSE(makeDate(30, 12, 2011, 12, 0, 0, Calendar("Pacific/Apia")));
    EXPECT_TRUE(makeDate(31, 12, 2011, 0, 0, 0, Calendar("Pacific/Apia")));
    EXPECT_TRUE(makeDate(30, 12, 2011, 0, 0, 0, Calendar("Pacific/Pago_Pago")));
}

TEST(CalendarKitStartOfDay, IsTheFirstMomentOfTheDay)
{
    const auto start = [](const CivilTime& time, std::string_view zone) {
        const Calendar zoned(zone);
        const Instant date = startOfDay(at(time, zone), zoned);
        return dayKey(date, zoned) + " " + clock(date, zoned);
    };
    EXPECT_EQ(start({{2018, 11, 4}, 15}, "America/Sao_Paulo"), "2018-11-04 01:00");
    EXPECT_EQ(start({{1919, 3, 31}, 15}, "America/Toronto"), "1919-03-31 00:30");
    EXPECT_EQ(start({{2026, 3, 7}, 15}, "America/Sao_Paulo"), "2026-03-07 00:00");

    // Havana's clocks go from 01:00 back to 00:00: the first of the two midnights counts.
    const Calendar havana("America/Havana");
    const Instant noon = at({{2024, 11, 3}, 12}, "America/Havana");
    EXPECT_EQ(noon - startOfDay(noon, havana), std::chrono::hours(13));
}

TEST(CalendarKitDayCount, CountsCalendarDays)
{
    const Calendar paris("Europe/Paris");
    const Instant before = at({{2026, 3, 28}, 23, 59, 59}, "Europe/Paris");
    const Instant after = at({{2026, 3, 30}}, "Europe/Paris");
    EXPECT_EQ(dayCount(before, after, paris), 2);
    EXPECT_EQ(dayCount(after, before, paris), -2);
    EXPECT_EQ(dayCount(after, after + std::chrono::hours(23), paris), 0);
    EXPECT_EQ(dayCount(at({{1, 1, 1}}, "UTC"), at({{9999, 12, 31}}, "UTC"), Calendar("UTC")), 3'652'058);
}

TEST(CalendarKitZones, EveryZoneAgreesWithTheOracleAroundEachChangeOfItsClocks)
{
    Oracle oracle("core/dates_oracle.py");
    const std::vector<std::string> zones = words(oracle.ask({"zones"}).front());
    ASSERT_GT(zones.size(), 400U);
    std::vector<std::string> questions;
    questions.reserve(zones.size());
    for (const std::string& zone : zones)
        questions.push_back("changes " + zone + " 1880 2045");
    const auto expected = oracle.ask(questions);

    std::size_t compared = 0;
    for (std::size_t i = 0; i < zones.size(); ++i) {
        const Calendar zoned(zones[i]);
        ASSERT_EQ(zoned.timeZoneIdentifier(), zones[i]);
        for (const std::string& line : words(expected[i])) {
            // "2011-12-30=none" or "2011-12-31=1325239200"
            const int year = std::stoi(line.substr(0, 4));
            const int month = std::stoi(line.substr(5, 2));
            const int day = std::stoi(line.substr(8, 2));
            const std::string first = line.substr(11);
            const auto date = makeDate(day, month, year, 0, 0, 0, zoned);
            ASSERT_EQ(date.has_value(), first != "none") << zones[i] << ' ' << line;
            if (date) {
                ASSERT_EQ(dayKey(*date, zoned), line.substr(0, 10)) << zones[i];
                ASSERT_EQ(std::to_string(secondsOf(startOfDay(*date, zoned))), first)
                    << zones[i] << ' ' << line;
            }
            ++compared;
        }
    }
    EXPECT_GT(compared, 100'000U);
}

TEST(CalendarKitZones, ADayCanBeTakenAlong)
{
    const Calendar paris = calendar("Europe/Paris");
    const Calendar lima = calendar("America/Lima");
    const Calendar apia = calendar("Pacific/Apia");
    const Instant date = makeDate(30, 12, 2011, 0, 0, 0, paris).value();
    EXPECT_EQ(sameDay(date, paris, lima), makeDate(30, 12, 2011, 0, 0, 0, lima));
    EXPECT_EQ(sameDay(date, paris, paris), date);
    EXPECT_EQ(sameDay(date, paris, apia), date) << "there was no such day";
}

TEST(CalendarKitZones, AnUnknownNameMeansTheSystemsZone)
{
    const Environment zone("TZ", "Asia/Tokyo");
    for (const char* unknown : {"", "Nowhere/Town", "europe/paris!", "/", "../../etc/passwd"})
        EXPECT_EQ(calendar(unknown).timeZoneIdentifier(), "Asia/Tokyo") << unknown;
    EXPECT_EQ(calendar("Europe/Paris").timeZoneIdentifier(), "Europe/Paris");
}

TEST(CalendarKitZones, TheEnvironmentNamesTheSystemsZoneAtEachUse)
{
    for (const char* spelling :
         {"Asia/Tokyo", ":Asia/Tokyo", "/usr/share/zoneinfo/Asia/Tokyo", ":/usr/share/zoneinfo/Asia/Tokyo",
          "posix/Asia/Tokyo", "right/Asia/Tokyo", "/usr/share/zoneinfo/right/Asia/Tokyo"}) {
        const Environment zone("TZ", spelling);
        EXPECT_EQ(systemTimeZoneId(), "Asia/Tokyo") << spelling;
    }
    const Environment zone("TZ", "America/Lima");
    EXPECT_EQ(systemTimeZoneId(), "America/Lima");
}

TEST(CalendarKitZones, AnEnvironmentThatNamesNoZoneIsPassedOver)
{
    const Environment unset("TZ", std::nullopt);
    const std::string system = systemTimeZoneId();
    EXPECT_EQ(calendar(system).timeZoneIdentifier(), system);
    for (const char* text :
         {"", ":", "Nowhere/Town", "CET-1CEST,M3.5.0,M10.5.0/3", ":/etc/localtime", "localtime"}) {
        const Environment zone("TZ", text);
        EXPECT_EQ(systemTimeZoneId(), system) << text;
    }
}
