#include "core/Decimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <type_traits>

namespace zelta {
namespace {

static_assert(std::is_trivially_copyable_v<Decimal>);
static_assert(!std::is_constructible_v<Decimal, double>);
static_assert(0.1_dec + 0.2_dec == 0.3_dec);
static_assert(2.50_dec == 2.5_dec);
static_assert(1_dec / 3_dec * 3_dec == 0.99999999999999999999999999999999999999_dec);
static_assert((1234.5_dec).rounded(-2, Rounding::plain) == 1200_dec);

constexpr UInt128 nines = powerOfTen(38) - 1;

/// 10^exponent.
Decimal ten(int exponent)
{
    return Decimal::fromParts(false, 1, exponent);
}

std::string read(std::string_view text)
{
    const std::optional<Decimal> value = Decimal::fromText(text);
    return value ? value->text() : "nothing";
}

TEST(Decimal, IsZeroAtFirst)
{
    EXPECT_EQ(Decimal(), 0_dec);
    EXPECT_TRUE(Decimal().isZero());
    EXPECT_EQ(Decimal().text(), "0");
}

TEST(Decimal, HoldsEveryInteger)
{
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()).text(), "-9223372036854775808");
    EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()).text(), "9223372036854775807");
    EXPECT_EQ(Decimal(-1).text(), "-1");
}

TEST(Decimal, AddsWithoutBinaryError)
{
    EXPECT_EQ((0.1_dec + 0.2_dec).text(), "0.3");
}

TEST(Decimal, DividesTo38Digits)
{
    EXPECT_EQ((2_dec / 3_dec).text(), "0.66666666666666666666666666666666666667");
    EXPECT_EQ((1_dec / 4_dec).text(), "0.25");
    EXPECT_EQ((-1_dec / 8_dec).text(), "-0.125");
}

TEST(Decimal, GivesZeroNoSign)
{
    EXPECT_FALSE((-0_dec).isNegative());
    EXPECT_FALSE((-5_dec * 0).isNegative());
    EXPECT_FALSE((0_dec / -5).isNegative());
    EXPECT_FALSE((-5_dec + 5).isNegative());
    EXPECT_FALSE((0_dec - 0).isNegative());
    EXPECT_FALSE((-0.4_dec).rounded(0, Rounding::plain).isNegative());
    EXPECT_FALSE((-ten(-128) * ten(-128)).isNegative()) << "too small";
}

TEST(Decimal, RoundsATieAwayFromZero)
{
    const Decimal largest = Decimal::fromParts(false, nines, 0);
    EXPECT_EQ((largest + 0.5_dec).text(), "1" + std::string(38, '0'));
    EXPECT_EQ((-largest - 0.5_dec).text(), "-1" + std::string(38, '0'));
    EXPECT_EQ((largest + 0.4_dec).text(), std::string(38, '9'));
}

TEST(Decimal, LetsAFarSmallerDigitDecideATie)
{
    const Decimal nextBelow = Decimal::fromParts(false, nines, 0);
    EXPECT_EQ(ten(38) - 0.5_dec, ten(38));
    for (int below = 2; below <= 38; ++below) {
        EXPECT_EQ(ten(38) - (0.5_dec + ten(-below)), nextBelow) << below;
        EXPECT_EQ(ten(38) - (0.5_dec - ten(-below)), ten(38)) << below;
        EXPECT_EQ(nextBelow + (0.5_dec - ten(-below)), nextBelow) << below;
    }
}

TEST(Decimal, IsNotMovedByWhatLiesFarBelow)
{
    for (int below = 1; below <= 128; ++below) {
        EXPECT_EQ(ten(38) - ten(-below), ten(38)) << below;
        EXPECT_EQ(ten(38) + ten(-below), ten(38)) << below;
    }
}

TEST(Decimal, KeepsWhatCancellationLeaves)
{
    const Decimal a = Decimal::fromParts(false, nines, -30);
    const Decimal b = Decimal::fromParts(false, nines - 1, -30);
    EXPECT_EQ(a - b, ten(-30));
    EXPECT_EQ(a - a, 0_dec);
}

TEST(Decimal, IsNotRepresentableAfterAnOverflow)
{
    const Decimal largest = Decimal::fromParts(false, nines, 127);
    EXPECT_TRUE(largest.isRepresentable());
    EXPECT_EQ(largest.text(), std::string(38, '9') + std::string(127, '0'));
    for (const Decimal& beyond : {largest * 10, largest + largest, -largest - largest, largest / 0.1_dec,
                                  largest + ten(127), ten(164) * ten(1), 1_dec / 0_dec}) {
        EXPECT_FALSE(beyond.isRepresentable());
        EXPECT_FALSE(beyond == beyond);
        EXPECT_FALSE(beyond == 0);
        EXPECT_FALSE(beyond < 0 || beyond > 0);
        EXPECT_EQ(beyond.text(), "NaN");
        for (const Decimal& after :
             {beyond + 1, 1 - beyond, beyond * 0, 0 / beyond, -beyond, beyond.rounded(2, Rounding::up)})
            EXPECT_FALSE(after.isRepresentable());
    }
}

TEST(Decimal, ReachesBeyondTheExponentWhileDigitsAreFree)
{
    EXPECT_TRUE(ten(164).isRepresentable());
    EXPECT_FALSE(ten(165).isRepresentable());
    EXPECT_EQ(ten(100) * ten(64), ten(164));
}

TEST(Decimal, IsZeroWhenTooSmall)
{
    EXPECT_EQ(ten(-128) * 0.1_dec, 0_dec);
    EXPECT_EQ(ten(-128) * 0.5_dec, ten(-128)) << "half of the smallest is a tie";
    EXPECT_EQ(ten(-128) * 0.49_dec, 0_dec);
    EXPECT_EQ(ten(-128) / 3, 0_dec);
    EXPECT_EQ(ten(-100) * ten(-100), 0_dec);
    EXPECT_NE(ten(-64) * ten(-64), 0_dec);
}

TEST(Decimal, ComparesValuesNotDigits)
{
    EXPECT_EQ(2.50_dec, 2.5_dec);
    EXPECT_EQ(ten(37), Decimal::fromParts(false, powerOfTen(37), 0));
    EXPECT_EQ(0.000_dec, 0_dec);
    EXPECT_LT(-1_dec, 0_dec);
    EXPECT_LT(-2_dec, -1_dec);
    EXPECT_LT(0_dec, ten(-128));
    EXPECT_GT(ten(127), Decimal::fromParts(false, nines, 0));
}

TEST(DecimalText, StripsTrailingZerosOfAFraction)
{
    EXPECT_EQ((2.50_dec).text(), "2.5");
    EXPECT_EQ((3.00_dec).text(), "3");
    EXPECT_EQ((100_dec).text(), "100");
    EXPECT_EQ((0.001_dec).text(), "0.001");
    EXPECT_EQ((-0.5_dec).text(), "-0.5");
    EXPECT_EQ(ten(30).text(), "1" + std::string(30, '0'));
}

TEST(DecimalFromText, TakesPlainDigitsOnly)
{
    for (const std::string_view text :
         {"", "-", ".", "-.", "1.", ".5", "+1", "1e5", "1,5", " 1", "1 ", "--1", "1.2.3", "1-", "٣"})
        EXPECT_EQ(read(text), "nothing") << '"' << text << '"';
    EXPECT_EQ(read("-0012.500"), "-12.5");
    EXPECT_EQ(read("-0"), "0");
}

TEST(DecimalFromText, LosesNothingToZerosAtTheEnds)
{
    const std::string digits = "12345678901234567890123456789012345678";
    EXPECT_EQ(read(std::string(500, '0') + digits), digits);
    EXPECT_EQ(read("0." + digits + std::string(500, '0')), "0." + digits);
    EXPECT_EQ(read(digits + "000"), digits + "000");
}

TEST(DecimalFromText, RoundsTheThirtyNinthDigit)
{
    EXPECT_EQ(read(std::string(38, '9') + "5"), "1" + std::string(39, '0'));
    EXPECT_EQ(read(std::string(38, '9') + "4999"), std::string(38, '9') + "0000");
    EXPECT_EQ(read("0." + std::string(38, '9') + "5"), "1");
    EXPECT_EQ(read("1." + std::string(37, '0') + "5"), "1." + std::string(36, '0') + "1");
}

TEST(DecimalFromText, EndsAtTheSmallestExponent)
{
    EXPECT_EQ(read("0." + std::string(127, '0') + "1"), "0." + std::string(127, '0') + "1");
    EXPECT_EQ(read("0." + std::string(128, '0') + "5"), "0." + std::string(127, '0') + "1");
    EXPECT_EQ(read("0." + std::string(128, '0') + "49"), "0");
    EXPECT_EQ(read("-0." + std::string(200, '0') + "9"), "0");
}

TEST(DecimalFromText, GivesNothingOutOfRange)
{
    EXPECT_EQ(read(std::string(38, '9') + std::string(127, '0')),
              std::string(38, '9') + std::string(127, '0'));
    EXPECT_EQ(read(std::string(165, '9')), "nothing") << "rounds to 10^165";
    EXPECT_EQ(read("1" + std::string(165, '0')), "nothing");
    EXPECT_EQ(read(std::string(100'000, '1')), "nothing");
}

TEST(DecimalRounded, LeavesAShorterFractionAlone)
{
    EXPECT_EQ((2.5_dec).rounded(1, Rounding::up), 2.5_dec);
    EXPECT_EQ((2.5_dec).rounded(1000, Rounding::down), 2.5_dec);
}

TEST(DecimalRounded, GoesBeyondAllDigits)
{
    EXPECT_EQ((4_dec).rounded(-1, Rounding::plain), 0_dec);
    EXPECT_EQ((5_dec).rounded(-1, Rounding::plain), 10_dec);
    EXPECT_EQ((5_dec).rounded(-1, Rounding::bankers), 0_dec);
    EXPECT_EQ((5_dec).rounded(-60, Rounding::plain), 0_dec);
    EXPECT_EQ((5_dec).rounded(-60, Rounding::up), ten(60));
    EXPECT_EQ((-5_dec).rounded(-60, Rounding::down), -ten(60));
    EXPECT_EQ((0_dec).rounded(-60, Rounding::up), 0_dec);
    EXPECT_EQ((5_dec).rounded(std::numeric_limits<int>::min(), Rounding::plain), 0_dec);
    EXPECT_FALSE((5_dec).rounded(std::numeric_limits<int>::min(), Rounding::up).isRepresentable());
}

} // namespace
} // namespace zelta
