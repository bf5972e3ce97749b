#include "core/Units.h"

#include "tests/support/Comparison.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

namespace zelta {

namespace {

Decimal number(std::string_view text)
{
    return Decimal::fromText(text).value();
}

Decimal converted(std::string_view value, std::string_view from, std::string_view to, UnitKind kind)
{
    return UnitConvert::convert(number(value), UnitConvert::unit(from, kind).value(),
                                UnitConvert::unit(to, kind).value(), kind)
        .value();
}

std::string shown(std::string_view value, std::string_view from, std::string_view to, UnitKind kind)
{
    return UnitConvert::figure(converted(value, from, to, kind));
}

/// "1", "-1" … in every size from 10^30 down to 10^-30.
std::vector<std::string> sizes(const std::string& digits)
{
    std::vector<std::string> texts;
    for (int exponent = -30; exponent <= 30; ++exponent) {
        if (exponent < 0)
            texts.push_back("0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits);
        else
            texts.push_back(digits + std::string(static_cast<std::size_t>(exponent), '0'));
    }
    return texts;
}

std::string idsOf(UnitKind kind)
{
    std::string ids;
    for (const UnitDef& unit : units(kind))
        ids += std::string(unit.id) + " ";
    return ids;
}

} // namespace

TEST(UnitKind, HasTitlesAndStoredIds)
{
    EXPECT_EQ(title(UnitKind::length), "Length");
    EXPECT_EQ(title(UnitKind::mass), "Weight");
    EXPECT_EQ(title(UnitKind::temperature), "Temperature");
    EXPECT_EQ(rawValue(UnitKind::mass), "mass");
    EXPECT_EQ(fromRawValue<UnitKind>("temperature"), UnitKind::temperature);
    EXPECT_EQ(fromRawValue<UnitKind>("volume"), std::nullopt);
    EXPECT_EQ(fromRawValue<UnitKind>("Length"), std::nullopt);
}

TEST(Units, ComeInTheOrderInWhichTheyAreOffered)
{
    EXPECT_EQ(idsOf(UnitKind::length), "km m cm mm um nm mi yd ft in nmi ");
    EXPECT_EQ(idsOf(UnitKind::mass), "t kg g mg lb oz st ton_us ton_uk ct ");
    EXPECT_EQ(idsOf(UnitKind::temperature), "celsius kelvin fahrenheit rankine ");
}

TEST(Units, AreFoundByTheirExactId)
{
    const UnitDef micrometre {"um", "Micrometre", "\xC2\xB5m", number("0.000001"), number("0")};
    EXPECT_EQ(UnitConvert::unit("um", UnitKind::length), micrometre);
    const UnitDef longTon {"ton_uk", "Long ton (UK)", "ton (UK)", number("1016.0469088"), number("0")};
    EXPECT_EQ(UnitConvert::unit("ton_uk", UnitKind::mass), longTon);
    const UnitDef fahrenheit {"fahrenheit", "Fahrenheit", "°F", number("0.5555555555555555555555555556"),
                              number("459.67")};
    EXPECT_EQ(UnitConvert::unit("fahrenheit", UnitKind::temperature), fahrenheit);
    EXPECT_EQ(UnitConvert::unit("KM", UnitKind::length), std::nullopt);
    EXPECT_EQ(UnitConvert::unit("kg", UnitKind::length), std::nullopt);
    EXPECT_EQ(UnitConvert::unit("", UnitKind::length), std::nullopt);
}

TEST(Units, HaveNamesAndSymbolsOfTheirOwn)
{
    for (const UnitKind kind : allCases<UnitKind>()) {
        std::set<std::string_view> ids;
        std::set<std::string_view> names;
        std::set<std::string_view> symbols;
        for (const UnitDef& unit : units(kind)) {
            EXPECT_TRUE(ids.insert(unit.id).second) << unit.id;
            EXPECT_TRUE(names.insert(unit.name).second) << unit.name;
            EXPECT_TRUE(symbols.insert(unit.symbol).second) << unit.symbol;
            EXPECT_TRUE(unit.factor > Decimal(0)) << unit.id;
        }
    }
}

TEST(Units, ArePairedWithTheirOwnKind)
{
    const std::vector<UnitPair> length {{"mi", "km"}, {"ft", "m"}, {"in", "cm"}, {"nmi", "km"}, {"yd", "m"}};
    const auto lengthPairs = UnitConvert::pairs(UnitKind::length);
    EXPECT_EQ(std::vector(lengthPairs.begin(), lengthPairs.end()), length);
    for (const UnitKind kind : allCases<UnitKind>()) {
        for (const auto& [from, to] : UnitConvert::pairs(kind)) {
            EXPECT_TRUE(UnitConvert::unit(from, kind)) << from;
            EXPECT_TRUE(UnitConvert::unit(to, kind)) << to;
        }
    }
}

TEST(UnitConvert, IsExactWhereTheAnswerIs)
{
    EXPECT_EQ(converted("1", "mi", "km", UnitKind::length), number("1.609344"));
    EXPECT_EQ(converted("1", "lb", "kg", UnitKind::mass), number("0.45359237"));
    EXPECT_EQ(converted("1", "oz", "g", UnitKind::mass), number("28.349523125"));
    EXPECT_EQ(converted("0", "celsius", "kelvin", UnitKind::temperature), number("273.15"));
    EXPECT_EQ(converted("0", "kelvin", "celsius", UnitKind::temperature), number("-273.15"));
}

TEST(UnitConvert, LeavesTheRemainderOfARoundedFactor)
{
    EXPECT_EQ(converted("100", "celsius", "fahrenheit", UnitKind::temperature),
              number("211.9999999999999999999999999462664"));
    EXPECT_EQ(converted("-40", "celsius", "fahrenheit", UnitKind::temperature),
              number("-40.0000000000000000000000000335736"));
    EXPECT_EQ(converted("32", "fahrenheit", "celsius", UnitKind::temperature),
              number("0.000000000000000000000000021852"));
}

TEST(UnitConvert, AppliesOffsetsToTemperaturesOnly)
{
    const UnitDef shifted {"a", "A", "a", number("2"), number("10")};
    const UnitDef plain {"b", "B", "b", number("1"), number("0")};
    EXPECT_EQ(UnitConvert::convert(number("3"), shifted, plain, UnitKind::mass), number("6"));
    EXPECT_EQ(UnitConvert::convert(number("3"), shifted, plain, UnitKind::temperature), number("26"));
    EXPECT_EQ(UnitConvert::convert(number("26"), plain, shifted, UnitKind::temperature), number("3"));
}

TEST(UnitConvert, GivesNothingForATargetWithoutSize)
{
    const UnitDef metre {"m", "Metre", "m", number("1"), number("0")};
    const UnitDef nothing {"n", "Nothing", "n", number("0"), number("0")};
    for (const UnitKind kind : allCases<UnitKind>())
        EXPECT_EQ(UnitConvert::convert(number("1"), metre, nothing, kind), std::nullopt);
}

TEST(UnitConvert, SurvivesAnOverflow)
{
    const std::string huge = "9" + std::string(164, '0');
    EXPECT_EQ(shown(huge, "km", "nm", UnitKind::length), shown(huge, "t", "mg", UnitKind::mass));
    EXPECT_FALSE(converted(huge, "km", "nm", UnitKind::length).isRepresentable());
}

TEST(UnitConvert, AgreesWithExactArithmeticForEveryPair)
{
    const auto seed = std::random_device {}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::vector<std::string> amounts {"0",          "1",       "-1",    "0.5",       "-40",
                                      "32",         "37",      "98.6",  "-273.15",   "-459.67",
                                      "3.14159265", "1000000", "0.001", "123456.789"};
    amounts.push_back("99999999999999999999999999999999999999"); // 38 nines: every step rounds
    amounts.push_back("0.00000000000000000000000000000000000001");
    for (int i = 0; i < 12; ++i) {
        std::string text = i % 3 == 0 ? "-1" : "1";
        for (int digit = 0; digit < 18; ++digit)
            text += static_cast<char>('0' + random() % 10);
        text.insert(text.size() - random() % 17 - 1, ".");
        amounts.push_back(text);
    }

    test::Comparison comparison("core/units_oracle.py");
    for (const UnitKind kind : allCases<UnitKind>()) {
        for (const UnitDef& from : units(kind)) {
            for (const UnitDef& to : units(kind)) {
                for (const std::string& amount : amounts) {
                    comparison.add("convert " + std::string(rawValue(kind)) + " " + amount + " "
                                       + std::string(from.id) + " " + std::string(to.id),
                                   UnitConvert::convert(number(amount), from, to, kind)->text());
                }
            }
        }
    }
}

TEST(UnitFigure, HasSixPlacesAndMoreBelowOne)
{
    EXPECT_EQ(UnitConvert::figure(number("0")), "0");
    EXPECT_EQ(UnitConvert::figure(number("1.23456789")), "1.234568");
    EXPECT_EQ(UnitConvert::figure(number("0.123456789")), "0.1234568");
    EXPECT_EQ(UnitConvert::figure(number("0.0123456789")), "0.01234568");
    EXPECT_EQ(UnitConvert::figure(number("0.0000123456789")), "0.00001234568");
    EXPECT_EQ(UnitConvert::figure(number("-1234567.1234567")), "-1,234,567.123457");
}

TEST(UnitFigure, ShowsWhatAPersonExpects)
{
    EXPECT_EQ(shown("1", "km", "mi", UnitKind::length), "0.6213712");
    EXPECT_EQ(shown("100", "celsius", "fahrenheit", UnitKind::temperature), "212");
    EXPECT_EQ(shown("-40", "celsius", "fahrenheit", UnitKind::temperature), "-40");
    EXPECT_EQ(shown("32", "fahrenheit", "celsius", UnitKind::temperature), "0");
    EXPECT_EQ(shown("1", "nm", "m", UnitKind::length), "0.000000001");
}

TEST(UnitFigure, StopsAtTwentyFourPlaces)
{
    EXPECT_EQ(shown("0.000000001", "nm", "km", UnitKind::length), "0.000000000000000000001");
    EXPECT_EQ(UnitConvert::figure(number("0.0000000000000000000000005")), "0.000000000000000000000001");
    EXPECT_EQ(UnitConvert::figure(number("0.00000000000000000000000049")), "0");
    EXPECT_EQ(UnitConvert::figure(number("-0.00000000000000000000000049")), "0");
}

TEST(UnitFigure, AgreesWithExactArithmeticInEverySize)
{
    test::Comparison comparison("core/units_oracle.py");
    for (const char* digits :
         {"1", "5", "9", "49", "5000001", "99999995", "12345678901234567890123456789012345678"}) {
        for (const std::string& size : sizes(digits)) {
            for (const std::string& value : {size, "-" + size})
                comparison.add("figure " + value, UnitConvert::figure(number(value)));
        }
    }
}

} // namespace zelta
