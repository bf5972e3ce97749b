#include "core/PercentMath.h"

#include "core/Num.h"
#include "tests/support/Comparison.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace zelta {

namespace {

Decimal number(std::string_view text)
{
    return Decimal::fromText(text).value();
}

std::vector<ResultRow> compare(std::string_view x, std::string_view y)
{
    return PercentMath::Relationship {number(x), number(y)}.rows();
}

std::vector<ResultRow> change(std::string_view value, std::string_view percent)
{
    return PercentMath::change(number(value), number(percent)).rows();
}

/// The rows with weights and tones, in the oracle's notation.
std::string described(const std::vector<ResultRow>& rows)
{
    std::string text;
    for (const ResultRow& row : rows) {
        if (!text.empty())
            text += '\t';
        text += plainText(row) + " " + std::string(rawValue(row.weight)) + " "
            + std::string(rawValue(row.tone));
    }
    return text;
}

} // namespace

TEST(PercentCompare, MeasuresEachAgainstTheOther)
{
    const std::vector<ResultRow> expected {
        {"X is this much of Y", "66.6667%", {}, Weight::headline, Tone::neutral},
        {"Y is this much of X", "150%", {}, Weight::primary, Tone::neutral},
        {"Change X → Y", "+50%", "increase", Weight::primary, Tone::up},
        {"Difference (Y − X)", "25", {}, Weight::primary, Tone::up},
    };
    EXPECT_EQ(compare("50", "75"), expected);
}

TEST(PercentCompare, FallsWithItsOwnSign)
{
    const auto rows = compare("75", "50");
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[2], (ResultRow {"Change X → Y", "-33.3333%", "decrease", Weight::primary, Tone::down}));
    EXPECT_EQ(rows[3], (ResultRow {"Difference (Y − X)", "-25", {}, Weight::primary, Tone::down}));
}

TEST(PercentCompare, HasTwoRowsWhenXIsZero)
{
    const std::vector<ResultRow> expected {
        {"X is this much of Y", "0%", {}, Weight::headline, Tone::neutral},
        {"Difference (Y − X)", "10", {}, Weight::primary, Tone::up},
    };
    EXPECT_EQ(compare("0", "10"), expected);
}

TEST(PercentCompare, IsUndefinedWhenYIsZero)
{
    const std::vector<ResultRow> expected {
        {"X is this much of Y", "undefined", "Y is zero", Weight::headline, Tone::neutral},
        {"Y is this much of X", "0%", {}, Weight::primary, Tone::neutral},
        {"Change X → Y", "-100%", "decrease", Weight::primary, Tone::down},
        {"Difference (Y − X)", "-10", {}, Weight::primary, Tone::down},
    };
    EXPECT_EQ(compare("10", "0"), expected);
}

TEST(PercentCompare, KeepsTheDifferenceWhenBothAreZero)
{
    const std::vector<ResultRow> expected {
        {"X is this much of Y", "undefined", "Y is zero", Weight::headline, Tone::neutral},
        {"Difference (Y − X)", "0", {}, Weight::primary, Tone::neutral},
    };
    EXPECT_EQ(compare("0", "0"), expected);
}

TEST(PercentCompare, CallsNoChangeANeutralIncrease)
{
    const auto rows = compare("5", "5");
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[2], (ResultRow {"Change X → Y", "0%", "increase", Weight::primary, Tone::neutral}));
    EXPECT_EQ(rows[3], (ResultRow {"Difference (Y − X)", "0", {}, Weight::primary, Tone::neutral}));
}

TEST(PercentCompare, MeasuresTheChangeAgainstTheSizeOfX)
{
    EXPECT_EQ(compare("-50", "-25")[2].value, "+50%");
    EXPECT_EQ(compare("-50", "-75")[2].value, "-50%");
}

TEST(PercentCompare, ColoursAChangeTooSmallToShow)
{
    const auto rows = compare("1000000000", "1000000000.0000001");
    EXPECT_EQ(rows[2], (ResultRow {"Change X → Y", "+0%", "increase", Weight::primary, Tone::up}));
    EXPECT_EQ(rows[3], (ResultRow {"Difference (Y − X)", "0", {}, Weight::primary, Tone::up}));
}

TEST(PercentCompare, GivesNothingForADivisionByZero)
{
    const PercentMath::Relationship fromZero {number("0"), number("10")};
    EXPECT_EQ(fromZero.aOfB(), number("0"));
    EXPECT_EQ(fromZero.bOfA(), std::nullopt);
    EXPECT_EQ(fromZero.changeAToB(), std::nullopt);
    EXPECT_EQ(fromZero.absoluteDifference(), number("10"));
    EXPECT_EQ((PercentMath::Relationship {number("10"), number("0")}.aOfB()), std::nullopt);
}

TEST(PercentCompare, CopiesAsFourLines)
{
    EXPECT_EQ(plainText(compare("50", "75")),
              "X is this much of Y: 66.6667%\n"
              "Y is this much of X: 150%\n"
              "Change X → Y: +50%  (increase)\n"
              "Difference (Y − X): 25");
}

TEST(PercentChange, RaisesCutsAndReverses)
{
    const std::vector<ResultRow> expected {
        {"Increased by 15%", "230", "+30", Weight::headline, Tone::up},
        {"Decreased by 15%", "170", "−30", Weight::headline, Tone::down},
        {"Amount of the change", "30", {}, Weight::primary, Tone::neutral},
        {"Before a 15% increase", "173.913043", "reverse: original was this before the rise", Weight::detail,
         Tone::neutral},
        {"Before a 15% decrease", "235.294118", "reverse: original was this before the drop", Weight::detail,
         Tone::neutral},
    };
    EXPECT_EQ(change("200", "15"), expected);
}

TEST(PercentChange, KeepsEveryFigureOfTheResult)
{
    const PercentMath::ChangeResult expected {number("200"), number("15"), number("230"), number("170"),
                                              number("30")};
    EXPECT_EQ(PercentMath::change(number("200"), number("15")), expected);
}

TEST(PercentChange, CannotUndoADropToZero)
{
    const auto rows = change("80", "100");
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(rows[3].value, "40");
    EXPECT_EQ(rows[4].value, "—");
    EXPECT_EQ(change("80", "-100")[3].value, "—");
    EXPECT_EQ(PercentMath::reverseChange(number("80"), number("-100")), std::nullopt);
}

TEST(PercentChange, ReversesTheRiseAndTheDrop)
{
    const auto rows = change("110", "10");
    EXPECT_EQ(rows[3].value, "100");
    EXPECT_EQ(rows[4].value, "122.222222");
    EXPECT_EQ(PercentMath::reverseChange(number("110"), number("10")), number("100"));
}

TEST(PercentChange, PutsBothSignsBeforeANegativeAmount)
{
    const auto rows = change("100", "-5");
    EXPECT_EQ(rows[0], (ResultRow {"Increased by -5%", "95", "+-5", Weight::headline, Tone::up}));
    EXPECT_EQ(rows[1], (ResultRow {"Decreased by -5%", "105", "−-5", Weight::headline, Tone::down}));
}

TEST(PercentChange, ShowsFourPlacesOfThePercentageInItsLabels)
{
    EXPECT_EQ(change("1", "12.345678")[0].label, "Increased by 12.3457%");
    EXPECT_EQ(change("1", "1234")[4].label, "Before a 1,234% decrease");
}

TEST(PercentMath, ShowsTheFallbackTextOfAnOverflow)
{
    const std::string huge = "1" + std::string(150, '0');
    const std::string fallback = Num::string(number(huge) * number(huge), 6, true);
    ASSERT_FALSE((number(huge) * number(huge)).isRepresentable());
    const auto changed = change(huge, huge);
    ASSERT_EQ(changed.size(), 5U);
    EXPECT_EQ(changed[0].value, fallback);
    EXPECT_EQ(changed[2].value, fallback);
    EXPECT_EQ(changed[2].tone, Tone::neutral);

    const auto compared = compare("-" + std::string("1") + std::string(164, '0'), "0.01");
    ASSERT_EQ(compared.size(), 4U);
    EXPECT_EQ(compared[0].value, fallback + "%");
}

TEST(PercentMath, AgreesWithExactArithmeticOnRandomOperands)
{
    const auto seed = std::random_device {}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](unsigned limit) { return static_cast<std::size_t>(random() % limit); };
    const auto digits = [&](std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i)
            text += static_cast<char>('0' + below(10));
        return text;
    };
    const std::vector<std::string> special {"0",   "1",     "-1",  "100", "-100", "50",
                                            "0.5", "-0.01", "200", "10",  "-10",  "99.99995"};
    const auto operand = [&] {
        if (below(4) == 0)
            return special[below(static_cast<unsigned>(special.size()))];
        std::string text = below(3) == 0 ? "-" : "";
        text += "1" + digits(below(16));
        if (below(2) == 0)
            text += "." + digits(1 + below(12));
        return text;
    };

    test::Comparison comparison("core/percent_oracle.py");
    for (int i = 0; i < 3000; ++i) {
        const std::string first = operand();
        const std::string second = operand();
        comparison.add("compare " + first + " " + second, described(compare(first, second)));
        comparison.add("change " + first + " " + second, described(change(first, second)));
    }
}

} // namespace zelta
