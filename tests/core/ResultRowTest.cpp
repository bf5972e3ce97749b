#include "core/ResultRow.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelta {
namespace {

TEST(ResultRow, PlainTextWithoutNoteHasNoBrackets)
{
    EXPECT_EQ(plainText(ResultRow {.label = "Amount of the change", .value = "30", .note = {}}),
              "Amount of the change: 30");
}

TEST(ResultRow, PlainTextPutsTheNoteInBracketsAfterTwoSpaces)
{
    EXPECT_EQ(plainText(ResultRow {.label = "Change X → Y", .value = "+50%", .note = "increase"}),
              "Change X → Y: +50%  (increase)");
}

TEST(ResultRow, PlainTextOfAListIsOneLinePerRow)
{
    const std::vector<ResultRow> rows {{"a", "1", "n", Weight::headline, Tone::up}, {"b", "2", {}, {}, {}}};
    EXPECT_EQ(plainText(rows), "a: 1  (n)\nb: 2");
    EXPECT_EQ(plainText(std::vector<ResultRow> {}), "");
}

TEST(ResultRow, WithSignTakesItsToneFromTheNumber)
{
    EXPECT_EQ(ResultRow::withSign("a", "0", 0.001_dec).tone, Tone::up);
    EXPECT_EQ(ResultRow::withSign("a", "-1", -1).tone, Tone::down);
    EXPECT_EQ(ResultRow::withSign("a", "0", 0).tone, Tone::neutral);
    const ResultRow expected {"a", "1", "n", Weight::detail, Tone::up};
    EXPECT_EQ(ResultRow::withSign("a", "1", 1, "n", Weight::detail), expected);
}

TEST(ResultRow, WeightAndToneAreStoredUnderTheirNames)
{
    EXPECT_EQ(rawValue(Weight::detail), "detail");
    EXPECT_EQ(fromRawValue<Tone>("down"), Tone::down);
    EXPECT_EQ(fromRawValue<Tone>("Down"), std::nullopt);
}

} // namespace
} // namespace zelta
