#include "core/Converter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelta {

namespace {

ResultRow line(std::string label, std::string value, Weight weight = Weight::primary,
               Tone tone = Tone::neutral)
{
    return {std::move(label), std::move(value), std::nullopt, weight, tone};
}

using Lines = std::vector<std::string>;

} // namespace

TEST(ConverterRows, AnswerTheAmountAndBothRates)
{
    const std::vector<ResultRow> expected {
        line("5 mi in kilometre", "8.04672 km", Weight::headline),
        line("1 mi =", "1.609344 km"),
        line("1 km =", "0.6213712 mi"),
    };
    EXPECT_EQ(Converter::rows(UnitKind::length, "mi", "km", "5"), expected);
}

TEST(ConverterRows, AreTwoForAUnitIntoItself)
{
    const std::vector<ResultRow> expected {
        line("1,234.5 kg in kilogram", "1,234.5 kg", Weight::headline),
        line("1 kg =", "1 kg"),
    };
    EXPECT_EQ(Converter::rows(UnitKind::mass, "kg", "kg", "1234,5"), expected);
}

TEST(ConverterRows, TakeTheToneFromTheValue)
{
    const std::vector<ResultRow> expected {
        line("-40 °C in fahrenheit", "-40 °F", Weight::headline, Tone::down),
        line("1 °C =", "33.8 °F"),
        line("1 °F =", "-17.222222 °C", Weight::primary, Tone::down),
    };
    EXPECT_EQ(Converter::rows(UnitKind::temperature, "celsius", "fahrenheit", "-40"), expected);
}

TEST(ConverterRows, AreDownForAValueThatIsTooSmallToShow)
{
    const auto rows = Converter::rows(UnitKind::length, "nm", "km", "-0.0000000000001");
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0], line("0 nm in kilometre", "0 km", Weight::headline, Tone::down));
    EXPECT_EQ(rows[1].tone, Tone::neutral);
}

TEST(ConverterRows, ShowTheAmountWithSixPlaces)
{
    const auto rows = Converter::rows(UnitKind::length, "m", "m", "1.23456789");
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows[0], line("1.234568 m in metre", "1.234568 m", Weight::headline));
}

TEST(ConverterRows, WriteTheNameInLowerCase)
{
    EXPECT_EQ(Converter::rows(UnitKind::mass, "kg", "ton_us", "1")[0].label, "1 kg in short ton (us)");
    EXPECT_EQ(Converter::rows(UnitKind::length, "um", "nmi", "1")[0].label, "1 \u00B5m in nautical mile");
}

TEST(ConverterRows, AreNoneWithoutAnAmountOrAUnit)
{
    for (const char* amount : {"", " ", "abc", "-", "."})
        EXPECT_TRUE(Converter::rows(UnitKind::length, "mi", "km", amount).empty()) << amount;
    EXPECT_TRUE(Converter::rows(UnitKind::length, "MI", "km", "5").empty());
    EXPECT_TRUE(Converter::rows(UnitKind::length, "mi", "kg", "5").empty());
}

TEST(ConverterRows, HaveALabelEach)
{
    for (const UnitKind kind : allCases<UnitKind>()) {
        for (const UnitDef& from : units(kind)) {
            for (const UnitDef& to : units(kind)) {
                const auto rows = Converter::rows(kind, from.id, to.id, "1");
                ASSERT_EQ(rows.size(), from.id == to.id ? 2U : 3U) << from.id << to.id;
                EXPECT_NE(rows[0].label, rows[1].label);
                EXPECT_NE(rows[1].label, rows.size() == 3 ? rows[2].label : rows[0].label);
            }
        }
    }
}

TEST(ConverterStart, IsTheFirstCommonConversion)
{
    EXPECT_EQ(Converter::startingPair(UnitKind::length), (UnitPair {"mi", "km"}));
    EXPECT_EQ(Converter::startingPair(UnitKind::mass), (UnitPair {"kg", "lb"}));
    EXPECT_EQ(Converter::startingPair(UnitKind::temperature), (UnitPair {"celsius", "fahrenheit"}));
}

TEST(ConverterReference, ListsTheCommonConversions)
{
    EXPECT_EQ(Converter::referenceEntries(UnitKind::length),
              (Lines {"1 mi = 1.609344 km", "1 ft = 0.3048 m", "1 in = 2.54 cm", "1 nmi = 1.852 km",
                      "1 yd = 0.9144 m"}));
    EXPECT_EQ(Converter::referenceEntries(UnitKind::mass),
              (Lines {"1 kg = 2.204623 lb", "1 oz = 28.349523 g", "1 st = 6.350293 kg", "1 t = 1,000 kg",
                      "1 ct = 0.2 g"}));
    EXPECT_EQ(Converter::referenceEntries(UnitKind::temperature), (Lines {"1 °C = 33.8 °F"}));
}

TEST(ConverterReference, ClimbsTheTemperatureLadder)
{
    EXPECT_EQ(
        Converter::temperatureLadder(),
        (Lines {"-40 °C = -40 °F", "0 °C = 32 °F", "20 °C = 68 °F", "37 °C = 98.6 °F", "100 °C = 212 °F"}));
}

} // namespace zelta
