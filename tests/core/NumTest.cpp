#include "core/Num.h"

#include <gtest/gtest.h>

#include <limits>

namespace zelta {
namespace {

/// What a text reads as, in plain digits; "nothing" when it is no number.
std::string read(std::string_view text)
{
    const std::optional<Decimal> value = Num::parse(text);
    return value ? value->text() : "nothing";
}

TEST(NumParse, GivesNothingWithoutDigits)
{
    for (const std::string_view text :
         {"", " ", " \t\n ", "\u2003\u00A0", "-", "+", ".", ",", "()", "( )", "abc", "€", "(-)"})
        EXPECT_EQ(read(text), "nothing") << '"' << text << '"';
}

TEST(NumParse, ReadsZeroWithoutSign)
{
    EXPECT_EQ(read("0"), "0");
    EXPECT_EQ(read("-0"), "0");
    EXPECT_EQ(read("(0)"), "0");
    EXPECT_EQ(read("-0.000"), "0");
    EXPECT_FALSE(Num::parse("-0")->isNegative());
    EXPECT_FALSE(Num::parse("(0)")->isNegative());
}

TEST(NumParse, TrimsWhiteSpaceAndLineBreaks)
{
    EXPECT_EQ(read("  12\r\n"), "12");
    EXPECT_EQ(read("\u00A0\u2003 12\u2028\u3000\u0085"), "12");
    EXPECT_EQ(read("\n-5\n"), "-5") << "a sign stands first once the line break is trimmed";
}

TEST(NumParse, ReadsEveryDashAsMinus)
{
    for (const std::string_view text : {"-5", "−5", "–5", "—5"})
        EXPECT_EQ(read(text), "-5") << text;
}

TEST(NumParse, ReadsDigitsOfOtherScripts)
{
    EXPECT_EQ(read("３４"), "34") << "full-width";
    EXPECT_EQ(read("٣٤"), "34") << "Arabic-Indic";
    EXPECT_EQ(read("۳۴"), "34") << "Persian";
    EXPECT_EQ(read("३४"), "34") << "Devanagari";
    EXPECT_EQ(read("²³"), "23") << "superscript";
    EXPECT_EQ(read("五"), "5") << "a numeral that is a letter";
    EXPECT_EQ(read("𝟛"), "3") << "beyond the first 65,536 characters";
    EXPECT_EQ(read("1½"), "1") << "no whole number";
    EXPECT_EQ(read("1Ⅻ"), "1") << "twelve is no digit";
    EXPECT_EQ(read("１٫٥"), "15") << "the Arabic decimal mark is dropped";
}

TEST(NumParse, ReadsAccountingNegatives)
{
    EXPECT_EQ(read("(5)"), "-5");
    EXPECT_EQ(read(" ($1,234.50) "), "-1234.5");
    EXPECT_EQ(read("(-5)"), "5") << "sign and brackets negate each other";
    EXPECT_EQ(read("(5"), "5");
    EXPECT_EQ(read("5)"), "5");
    EXPECT_EQ(read("-(5)"), "-5") << "the text does not start with a bracket";
    EXPECT_EQ(read("(٥)"), "-5");
    EXPECT_EQ(read("( -5)"), "-5") << "the blank is kept first, so the sign is lost";
}

TEST(NumParse, DropsWhatIsNoPartOfANumber)
{
    EXPECT_EQ(read("$1,234.50"), "1234.5");
    EXPECT_EQ(read("12%"), "12");
    EXPECT_EQ(read("1e5"), "15");
    EXPECT_EQ(read("5-3"), "53");
    EXPECT_EQ(read("5+3"), "53");
    EXPECT_EQ(read("€-5"), "-5") << "nothing is kept before the sign";
    EXPECT_EQ(read("€ -5"), "5") << "a blank is kept before the sign";
    EXPECT_EQ(read("€\u2009-5"), "5") << "a thin space is a blank";
    EXPECT_EQ(read("'-5"), "5") << "an apostrophe is kept";
    EXPECT_EQ(read("--5"), "-5");
    EXPECT_EQ(read("1\u0301"
                   "2"),
              "12")
        << "a combining mark";
    EXPECT_EQ(read("1\xFF\xC3"
                   "2"),
              "12")
        << "ill-formed bytes";
    EXPECT_EQ(read(std::string_view("1\0"
                                    "2",
                                    3)),
              "12");
}

TEST(NumParse, TakesALeadingSign)
{
    EXPECT_EQ(read("+5"), "5");
    EXPECT_EQ(read("-5"), "-5");
    EXPECT_EQ(read("+-5"), "5") << "only the first sign is kept";
}

TEST(NumParse, TakesTheLaterOfBothMarksAsDecimal)
{
    EXPECT_EQ(read("1.234,56"), "1234.56");
    EXPECT_EQ(read("1,234.56"), "1234.56");
    EXPECT_EQ(read("1,234.567.89"), "1234567.89") << "split at its last occurrence";
    EXPECT_EQ(read("1.234.567,8"), "1234567.8");
}

TEST(NumParse, ReadsPointsAsGroupingWhenThereAreSeveral)
{
    EXPECT_EQ(read("1.234.567"), "1234567");
    EXPECT_EQ(read("1.234"), "1.234");
    EXPECT_EQ(read("12."), "12");
    EXPECT_EQ(read(".5"), "0.5");
    EXPECT_EQ(read("-.5"), "-0.5");
}

TEST(NumParse, ReadsACommaBeforeThreeDigitsAsGrouping)
{
    EXPECT_EQ(read("1,234"), "1234");
    EXPECT_EQ(read("-1,234"), "-1234");
    EXPECT_EQ(read("0,125"), "125");
    EXPECT_EQ(read("1,23"), "1.23");
    EXPECT_EQ(read("1,2345"), "1.2345");
    EXPECT_EQ(read("1 234,5"), "1234.5");
    EXPECT_EQ(read(",234"), "0.234") << "the mark stands first";
    EXPECT_EQ(read("-,234"), "-0.234") << "the sign is gone when the mark is looked at";
    EXPECT_EQ(read("1,2 3"), "1.23") << "three characters follow, not three digits";
    EXPECT_EQ(read("1,000 kg"), "1") << "the blank is kept, so that four characters follow";
    EXPECT_EQ(read("12,"), "12");
}

TEST(NumParse, ReadsSeveralCommasAsGrouping)
{
    EXPECT_EQ(read("1,234,567"), "1234567");
    EXPECT_EQ(read("1,234,5"), "12345");
}

TEST(NumParse, DropsBlanksAndApostrophesBetweenDigits)
{
    EXPECT_EQ(read(" 1 234 567 "), "1234567");
    EXPECT_EQ(read("1'234.5"), "1234.5");
    EXPECT_EQ(read("1\u2009"
                   "234,5"),
              "1234.5")
        << "thin spaces";
    EXPECT_EQ(read("1\u00A0"
                   "234,5"),
              "1234.5")
        << "no-break spaces";
    EXPECT_EQ(read("1\u202F"
                   "234,5"),
              "1234.5")
        << "narrow no-break spaces";
    EXPECT_EQ(read("1,2\u2009"
                   "3"),
              "1.23")
        << "a thin space counts as a character after the comma";
    EXPECT_EQ(read("1,23\u00A0"), "1.23");
}

TEST(NumParse, KeepsAllDigitsThatFit)
{
    EXPECT_EQ(read("12345678901234567890123456789012345678"), "12345678901234567890123456789012345678");
    EXPECT_EQ(read("0.12345678901234567890123456789012345678"), "0.12345678901234567890123456789012345678");
    EXPECT_EQ(read("123456789012345678901234567890123456785"), "123456789012345678901234567890123456790");
    EXPECT_EQ(read("123456789012345678901234567890123456784999"),
              "123456789012345678901234567890123456780000");
}

TEST(NumParse, GivesNothingOutOfRange)
{
    EXPECT_EQ(read("1" + std::string(164, '0')), "1" + std::string(164, '0'));
    EXPECT_EQ(read("1" + std::string(165, '0')), "nothing");
    EXPECT_EQ(read(std::string(1'000'000, '9')), "nothing");
    EXPECT_EQ(read("0." + std::string(1'000'000, '0') + "1"), "0") << "too small is zero";
    EXPECT_EQ(read(std::string(1'000'000, '0') + "7." + std::string(1'000'000, '0')), "7");
}

TEST(NumString, GroupsOnlyOnRequest)
{
    EXPECT_EQ(Num::string(1234567.891_dec, 10, true), "1,234,567.891");
    EXPECT_EQ(Num::string(1234567.891_dec, 10, false), "1234567.891");
    EXPECT_EQ(Num::string(-1234567.891_dec, 10, true), "-1,234,567.891");
    EXPECT_EQ(Num::string(999_dec, 10, true), "999");
    EXPECT_EQ(Num::string(1000_dec, 10, true), "1,000");
    EXPECT_EQ(Num::string(-999_dec, 10, true), "-999");
    EXPECT_EQ(Num::string(0.1234567_dec, 10, true), "0.1234567") << "a fraction is not grouped";
}

TEST(NumString, RoundsToTheAskedPlaces)
{
    EXPECT_EQ(Num::string(2_dec / 3_dec, 10, true), "0.6666666667");
    EXPECT_EQ(Num::string(2_dec / 3_dec, 4, true), "0.6667");
    EXPECT_EQ(Num::string(0.00005_dec, 4, true), "0.0001") << "a tie goes away from zero";
    EXPECT_EQ(Num::string(-0.00005_dec, 4, true), "-0.0001");
    EXPECT_EQ(Num::string(999.99996_dec, 4, true), "1,000") << "the carry is grouped too";
    EXPECT_EQ(Num::string(2.5_dec, 0, true), "3");
}

TEST(NumString, DropsTrailingZerosOfAFraction)
{
    EXPECT_EQ(Num::string(2.50_dec, 10, true), "2.5");
    EXPECT_EQ(Num::string(3.0_dec, 10, true), "3");
    EXPECT_EQ(Num::string(1200_dec, 10, false), "1200");
    EXPECT_EQ(Num::string(0.1_dec + 0.2_dec, 10, true), "0.3");
}

TEST(NumString, NeverPrintsAnExponent)
{
    const Decimal large = Decimal::fromText("1" + std::string(30, '0')).value();
    EXPECT_EQ(Num::string(large, 10, true), "1,000,000,000,000,000,000,000,000,000,000");
    EXPECT_EQ(Num::string(1_dec / large, 30, true), "0.000000000000000000000000000001");
}

TEST(NumString, NeverPrintsMinusZero)
{
    EXPECT_EQ(Num::string(-0.00000000001_dec, 10, true), "0");
    EXPECT_EQ(Num::string(-0.4_dec, 0, true), "0");
    EXPECT_EQ(Num::string(-0_dec, 10, true), "0");
    EXPECT_EQ(Num::string(0_dec * -5_dec, 10, true), "0");
}

TEST(NumString, PrintsAFixedTextWhenNotRepresentable)
{
    Decimal value = 10;
    for (int i = 0; i < 8; ++i)
        value = value * value;
    EXPECT_FALSE(value.isRepresentable());
    EXPECT_EQ(Num::string(value, 10, true), "NaN");
    EXPECT_EQ(Num::string(-value, 10, true), "NaN");
    EXPECT_EQ(Num::percent(value, 4, true), "NaN%");
}

TEST(NumGrouped, LeavesAllButTheIntegerPartAlone)
{
    EXPECT_EQ(Num::grouped("-1234.50"), "-1,234.50");
    EXPECT_EQ(Num::grouped("1234567."), "1,234,567.");
    EXPECT_EQ(Num::grouped("-"), "-");
    EXPECT_EQ(Num::grouped(""), "");
    EXPECT_EQ(Num::grouped("-123456"), "-123,456");
}

TEST(NumInteger, GroupsByThree)
{
    EXPECT_EQ(Num::integer(0), "0");
    EXPECT_EQ(Num::integer(999), "999");
    EXPECT_EQ(Num::integer(1000), "1,000");
    EXPECT_EQ(Num::integer(-1234567), "-1,234,567");
    EXPECT_EQ(Num::integer(std::numeric_limits<std::int64_t>::max()), "9,223,372,036,854,775,807");
    EXPECT_EQ(Num::integer(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
}

TEST(NumPercent, SignsOnlyWhatIsAboveZero)
{
    EXPECT_EQ(Num::percent(0, 4, true), "0%");
    EXPECT_EQ(Num::percent(12.34567_dec, 4, true), "+12.3457%");
    EXPECT_EQ(Num::percent(12.34567_dec, 4, false), "12.3457%");
    EXPECT_EQ(Num::percent(-12.5_dec, 4, true), "-12.5%");
    EXPECT_EQ(Num::percent(1234.5_dec, 4, true), "+1,234.5%");
    EXPECT_EQ(Num::percent(0.00001_dec, 4, true), "+0%") << "above zero, though it prints as 0";
    EXPECT_EQ(Num::percent(-0.00001_dec, 4, true), "0%");
}

TEST(NumRound, PlainTakesTiesAwayFromZero)
{
    EXPECT_EQ(Num::round(2.5_dec, 0), 3_dec);
    EXPECT_EQ(Num::round(-2.5_dec, 0), -3_dec);
    EXPECT_EQ(Num::round(2.45_dec, 1), 2.5_dec);
    EXPECT_EQ(Num::round(2.449_dec, 1), 2.4_dec);
    EXPECT_EQ(Num::round(2.4_dec, 1), 2.4_dec);
}

TEST(NumRound, DownIsFloorAndUpIsCeiling)
{
    EXPECT_EQ(Num::round(2.9_dec, 0, Rounding::down), 2_dec);
    EXPECT_EQ(Num::round(-2.1_dec, 0, Rounding::down), -3_dec);
    EXPECT_EQ(Num::round(2.1_dec, 0, Rounding::up), 3_dec);
    EXPECT_EQ(Num::round(-2.9_dec, 0, Rounding::up), -2_dec);
    EXPECT_EQ(Num::round(-0.1_dec, 0, Rounding::up).text(), "0");
}

TEST(NumRound, BankersTakesTiesToTheEvenDigit)
{
    EXPECT_EQ(Num::round(2.5_dec, 0, Rounding::bankers), 2_dec);
    EXPECT_EQ(Num::round(3.5_dec, 0, Rounding::bankers), 4_dec);
    EXPECT_EQ(Num::round(-2.5_dec, 0, Rounding::bankers), -2_dec);
    EXPECT_EQ(Num::round(2.51_dec, 0, Rounding::bankers), 3_dec);
}

TEST(NumAbs, DropsTheSign)
{
    EXPECT_EQ(Num::abs(-2.5_dec), 2.5_dec);
    EXPECT_EQ(Num::abs(2.5_dec), 2.5_dec);
    EXPECT_EQ(Num::abs(0_dec), 0_dec);
}

TEST(NumDivide, GivesNothingForZero)
{
    EXPECT_EQ(Num::divide(1, 0), std::nullopt);
    EXPECT_EQ(Num::divide(0, 0.00_dec), std::nullopt);
    EXPECT_EQ(Num::divide(1, 4), 0.25_dec);
    EXPECT_EQ(Num::divide(2, 3)->text(), "0.66666666666666666666666666666666666667");
}

} // namespace
} // namespace zelta
