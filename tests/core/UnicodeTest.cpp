#include "core/Unicode.h"

#include "tests/support/Comparison.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelta {
namespace {

std::string utf8(char32_t c)
{
    std::string text;
    Unicode::append(text, c);
    return text;
}

std::string hex(char32_t c)
{
    return fmt::format("{:x}", static_cast<unsigned>(c));
}

std::string hexWords(std::string_view text)
{
    std::string words;
    for (const char32_t c : Unicode::CodePoints(text))
        words += (words.empty() ? "" : " ") + hex(c);
    return words;
}

std::vector<char32_t> everyScalarValue()
{
    std::vector<char32_t> all;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c < 0xD800 || c > 0xDFFF)
            all.push_back(c);
    }
    return all;
}

std::vector<char32_t> codePoints(std::string_view text)
{
    const Unicode::CodePoints points(text);
    return {points.begin(), points.end()};
}

TEST(UnicodeCodePoints, WalksEveryScalarValue)
{
    for (const char32_t c : everyScalarValue())
        ASSERT_EQ(codePoints(utf8(c)), std::vector<char32_t> {c});
}

TEST(UnicodeCodePoints, ReadsEachIllFormedSequenceAsOneReplacement)
{
    EXPECT_EQ(codePoints("a\xFF"), (std::vector<char32_t> {'a', 0xFFFD}));
    EXPECT_EQ(codePoints("\xE2\x80z"), (std::vector<char32_t> {0xFFFD, 'z'}));
    EXPECT_EQ(codePoints("\xED\xA0\x80"), (std::vector<char32_t>(3, 0xFFFD))) << "a surrogate half";
    EXPECT_EQ(codePoints("\xC0\x80"), (std::vector<char32_t>(2, 0xFFFD))) << "an overlong NUL";
    EXPECT_EQ(codePoints(std::string_view("a\0b", 3)), (std::vector<char32_t> {'a', 0, 'b'}));
    EXPECT_TRUE(codePoints("").empty());
}

TEST(UnicodeCodePoints, KnowsItsPlaceInBytes)
{
    const Unicode::CodePoints points("é漢x");
    auto c = points.begin();
    EXPECT_EQ(c.offset(), 0U);
    EXPECT_EQ((++c).offset(), 2U);
    EXPECT_EQ((c++).offset(), 2U);
    EXPECT_EQ(c.offset(), 5U);
    EXPECT_EQ((++c).offset(), 6U);
    EXPECT_TRUE(c == points.end());
}

TEST(UnicodeIsWhiteSpace, AgreesWithPythonEverywhere)
{
    test::Comparison comparison("core/unicode_oracle.py");
    for (const char32_t c : everyScalarValue())
        comparison.add("space " + hex(c), Unicode::isWhiteSpace(c) ? "1" : "0");
}

TEST(UnicodeIsWhiteSpace, IsBlanksAndLineSeparators)
{
    for (const char32_t c : everyScalarValue())
        ASSERT_EQ(Unicode::isWhiteSpace(c), Unicode::isBlank(c) || Unicode::isLineSeparator(c)) << hex(c);
    EXPECT_FALSE(Unicode::isWhiteSpace(0x200B)) << "the zero width space is none";
    EXPECT_FALSE(Unicode::isWhiteSpace(0xFEFF));
}

TEST(UnicodeTrim, CutsWhiteSpaceAtBothEndsOnly)
{
    EXPECT_EQ(Unicode::trim(" \t\u00A0\u3000 a  b\u2028\r\n"), "a  b");
    EXPECT_EQ(Unicode::trim(" \u2029 "), "");
    EXPECT_EQ(Unicode::trim(""), "");
    EXPECT_EQ(Unicode::trim("漢"), "漢");
}

TEST(UnicodeTrim, KeepsIllFormedEnds)
{
    EXPECT_EQ(Unicode::trim(" \xE2\x80 "), "\xE2\x80");
    EXPECT_EQ(Unicode::trim("a \x80"), "a \x80");
    EXPECT_EQ(Unicode::trim("\u2028\x80\x80"), "\x80\x80");
}

TEST(UnicodeTrimBlanks, LeavesLineSeparators)
{
    EXPECT_EQ(Unicode::trimBlanks("\t \u00A0a\n \u202F"), "a\n");
    EXPECT_EQ(Unicode::trimBlanks("\n"), "\n");
}

TEST(UnicodeLowerCase, AgreesWithPythonEverywhere)
{
    test::Comparison comparison("core/unicode_oracle.py");
    for (const char32_t c : everyScalarValue())
        comparison.add("lower " + hex(c), hexWords(Unicode::lowerCase(utf8(c))));
}

TEST(UnicodeLowerCase, LooksAtEachCodePointAlone)
{
    EXPECT_EQ(Unicode::lowerCase("ΟΔΟΣ ΣΑΣ"), "οδοσ σασ");
    EXPECT_EQ(Unicode::lowerCase("İI"), "i\u0307i");
    EXPECT_EQ(Unicode::lowerCase("ÄSTHETIK 50% Straße"), "ästhetik 50% straße");
    EXPECT_EQ(Unicode::lowerCase("A\xFFZ"), "a\uFFFDz");
}

TEST(UnicodeDigitValue, ReadsDigitsOfEveryScript)
{
    for (const char32_t seven : {U'7', U'٧', U'۷', U'७', U'７', U'七', U'⑦', U'Ⅶ', U'\U0001D7D5'})
        EXPECT_EQ(Unicode::digitValue(seven), 7) << hex(seven);
    EXPECT_EQ(Unicode::digitValue(U'〇'), 0);
    for (const char32_t none : {U'a', U'½', U'Ⅻ', U'十', U' ', U'\uFFFD', char32_t {0x110000}})
        EXPECT_EQ(Unicode::digitValue(none), std::nullopt) << hex(none);
}

TEST(UnicodeAppend, WritesNoSurrogates)
{
    EXPECT_EQ(utf8(0xD800), "\uFFFD");
    EXPECT_EQ(utf8(0x110000), "\uFFFD");
}

TEST(UnicodeWellFormed, ReplacesOnlyWhatIsIllFormed)
{
    EXPECT_EQ(Unicode::wellFormed("aé漢🙂"), "aé漢🙂");
    EXPECT_EQ(Unicode::wellFormed("é\xC3"), "é\uFFFD");
}

} // namespace
} // namespace zelta
