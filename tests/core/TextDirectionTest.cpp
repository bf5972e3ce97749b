#include "core/TextDirection.h"

#include "core/Unicode.h"

#include <gtest/gtest.h>

#include <string>

namespace zelta {
namespace {

constexpr auto leftToRight = TextDirection::leftToRight;
constexpr auto rightToLeft = TextDirection::rightToLeft;

TEST(TextDirection, IsAMajorityVote)
{
    EXPECT_EQ(directionOf("שלום world"), leftToRight);
    EXPECT_EQ(directionOf("مرحبا hi"), rightToLeft);
    EXPECT_EQ(directionOf("hi مرحبا"), rightToLeft) << "not the first strong letter";
}

TEST(TextDirection, GivesATieToLeftToRight)
{
    EXPECT_EQ(directionOf("ab אב"), leftToRight);
    EXPECT_EQ(directionOf(""), leftToRight);
    EXPECT_EQ(directionOf("123 !? 🙂"), leftToRight);
}

TEST(TextDirection, CountsOtherScriptsForNeitherSide)
{
    EXPECT_EQ(directionOf("Ελληνικά"), leftToRight);
    EXPECT_EQ(directionOf("Кириллица"), leftToRight);
    EXPECT_EQ(directionOf("א Ελληνικά Кириллица 漢字"), rightToLeft);
    EXPECT_EQ(directionOf("א \U00010900\U0001E900 a"), leftToRight) << "nothing beyond the BMP counts";
}

// Every code point on its own, against the bounds as they are published.
TEST(TextDirection, CountsExactlyTheBlocksNamed)
{
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF)
            continue;
        const bool right
            = (c >= 0x590 && c <= 0x8FF) || (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFF);
        const bool left = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= 0xC0 && c <= 0x24F);
        std::string alone;
        Unicode::append(alone, c);
        ASSERT_EQ(directionOf(alone), right ? rightToLeft : leftToRight) << std::hex << std::uint32_t {c};
        // Beside one right-to-left letter, only a left-to-right one makes it a tie.
        ASSERT_EQ(directionOf("א" + alone), left ? leftToRight : rightToLeft)
            << std::hex << std::uint32_t {c};
    }
}

TEST(TextDirection, HasTwoStoredNames)
{
    EXPECT_EQ(rawValue(leftToRight), "leftToRight");
    EXPECT_EQ(rawValue(rightToLeft), "rightToLeft");
    EXPECT_EQ(fromRawValue<TextDirection>("rightToLeft"), rightToLeft);
    EXPECT_EQ(fromRawValue<TextDirection>("RightToLeft"), std::nullopt);
    EXPECT_EQ(fromRawValue<TextDirection>(""), std::nullopt);
}

} // namespace
} // namespace zelta
