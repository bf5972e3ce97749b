#include "app/pages/DateFields.h"

#include "core/CalendarKit.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelta {
namespace {

using State = DateFields::State;

const Calendar& utc()
{
    static const Calendar calendar("UTC");
    return calendar;
}

std::string said(const DateFields& fields)
{
    const DateFields::Entry entry = fields.read(utc());
    switch (entry.state) {
    case State::unfinished:
        return "unfinished";
    case State::notReal:
        return "not real";
    case State::real:
        return CalendarKit::dayKey(entry.date, utc());
    }
    return {};
}

TEST(DateFields, WriteADateInFull)
{
    const Instant date = CalendarKit::makeDate(7, 3, 2026, 0, 0, 0, utc()).value();
    EXPECT_EQ(DateFields::of(date, utc()), (DateFields {"07", "03", "2026"}));
    const Instant early = CalendarKit::makeDate(31, 12, 7, 0, 0, 0, utc()).value();
    EXPECT_EQ(DateFields::of(early, utc()), (DateFields {"31", "12", "0007"}));
}

TEST(DateFields, ReadWhatTheyWrite)
{
    EXPECT_EQ(said({"07", "03", "2026"}), "2026-03-07");
    EXPECT_EQ(said({"29", "02", "2024"}), "2024-02-29");
    EXPECT_EQ(said({"01", "01", "0001"}), "0001-01-01");
    EXPECT_EQ(said({"31", "12", "9999"}), "9999-12-31");
}

TEST(DateFields, ReadNumbersHoweverTheyAreTyped)
{
    for (const char* seven : {"7", "07", "007", " 7 ", "+7", "\t7", "\u00A07", " +07 "})
        EXPECT_EQ(said({seven, "3", "2026"}), "2026-03-07") << '"' << seven << '"';
}

TEST(DateFields, WhatIsNoNumberIsUnfinished)
{
    for (const char* text : {"", " ", "7a", "a7", "seven", "7.", "7,0", "0x7", "+", "-", "+-7", "--7", "++7",
                             "7 7", "- 7", "٧", "７", "12345678901234567890", "07/03/2026"}) {
        EXPECT_EQ(said({text, "03", "2026"}), "unfinished") << '"' << text << '"';
        EXPECT_EQ(said({"07", text, "2026"}), "unfinished") << '"' << text << '"';
    }
    EXPECT_EQ(said({"31", "04", ""}), "unfinished");
    EXPECT_EQ(said({"99", "99", "year"}), "unfinished");
}

TEST(DateFields, AYearHasFourCharactersAsTyped)
{
    for (const char* year : {"2", "20", "202", "26", "02026", "2026 ", " 2026", "12026", "+2026"})
        EXPECT_EQ(said({"07", "03", year}), "unfinished") << '"' << year << '"';
    EXPECT_EQ(said({"07", "03", "0026"}), "0026-03-07");
    EXPECT_EQ(said({"07", "03", "+026"}), "0026-03-07");
    EXPECT_EQ(said({"07", "03", " 26 "}), "0026-03-07");
}

TEST(DateFields, ACompleteDateThatDoesNotExistIsNotReal)
{
    for (const DateFields& fields : std::vector<DateFields> {{"31", "04", "2026"},
                                                             {"29", "02", "2025"},
                                                             {"29", "02", "1900"},
                                                             {"00", "00", "0000"},
                                                             {"01", "01", "0000"},
                                                             {"00", "01", "2026"},
                                                             {"01", "00", "2026"},
                                                             {"01", "13", "2026"},
                                                             {"32", "01", "2026"},
                                                             {"-7", "03", "2026"},
                                                             {"07", "03", "-026"},
                                                             {"4294967303", "03", "2026"},
                                                             {"07", "4294967299", "2026"},
                                                             {"9223372036854775807", "03", "2026"}})
        EXPECT_EQ(said(fields), "not real") << fields.day << '/' << fields.month << '/' << fields.year;
}

TEST(DateFields, ADayThatTheZoneSkippedIsNotReal)
{
    EXPECT_EQ((DateFields {"30", "12", "2011"}.read(Calendar("Pacific/Apia")).state), State::notReal);
    EXPECT_EQ((DateFields {"30", "12", "2011"}.read(utc()).state), State::real);
}

} // namespace
} // namespace zelta
