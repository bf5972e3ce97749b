#include "core/Decimal.h"
#include "tests/support/Comparison.h"

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <random>
#include <string>
#include <vector>

// Every operation beside an independent decimal library, on random and on spiteful operands.

namespace zelta {
namespace {

std::string digitsOf(UInt128 value)
{
    return Decimal::fromParts(false, value, 0).text();
}

/// An operand as the oracle reads it, with exactly this mantissa and exponent.
std::string parts(const Decimal& value)
{
    if (!value.isRepresentable())
        return "NaN";
    return (value.isNegative() ? "-" : "") + digitsOf(value.mantissa()) + "e"
        + std::to_string(value.exponent());
}

/// Decimal's operations, each a question with our own answer.
class Comparison
{
public:
    void arithmetic(const Decimal& a, const Decimal& b)
    {
        const std::string operands = parts(a) + " " + parts(b);
        m_comparison.add("+ " + operands, (a + b).text());
        m_comparison.add("- " + operands, (a - b).text());
        m_comparison.add("* " + operands, (a * b).text());
        m_comparison.add("/ " + operands, (a / b).text());
    }

    void order(const Decimal& a, const Decimal& b)
    {
        const auto order = a <=> b;
        EXPECT_EQ(a == b, order == 0);
        m_comparison.add("c " + parts(a) + " " + parts(b), order < 0 ? "-1" : order > 0 ? "1" : "0");
    }

    void rounding(const Decimal& value, int places)
    {
        static constexpr std::array<std::pair<const char*, Rounding>, 4> modes {
            {{"plain", Rounding::plain},
             {"down", Rounding::down},
             {"up", Rounding::up},
             {"bankers", Rounding::bankers}}};
        for (const auto& [name, mode] : modes)
            m_comparison.add(std::string(name) + " " + std::to_string(places) + " " + parts(value),
                             value.rounded(places, mode).text());
    }

    void reading(const std::string& text)
    {
        const std::optional<Decimal> value = Decimal::fromText(text);
        m_comparison.add("t " + text, value ? value->text() : "NaN");
    }

private:
    test::Comparison m_comparison {"core/decimal_oracle.py"};
};

/// Random operands; the seed is printed so that a failure can be repeated.
class RandomDecimals
{
public:
    RandomDecimals()
    {
        const unsigned seed = std::random_device {}();
        std::cout << "seed " << seed << '\n';
        m_engine.seed(seed);
    }

    int integer(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_engine); }

    std::uint64_t bits() { return std::uniform_int_distribution<std::uint64_t>()(m_engine); }

    /// A mantissa of a random number of digits, now and then with long runs of 0, 4, 5 or 9.
    UInt128 mantissa()
    {
        UInt128 value = 0;
        const int length = integer(0, 38);
        const int runs = integer(0, 3);
        int digit = integer(0, 9);
        for (int i = 0; i < length; ++i) {
            if (runs == 0 || integer(0, 7) == 0)
                digit = runs == 0 ? integer(0, 9)
                                  : std::array {0, 4, 5, 9}[static_cast<std::size_t>(integer(0, 3))];
            value = value * 10 + static_cast<unsigned>(digit);
        }
        return value;
    }

    Decimal near() { return Decimal::fromParts(integer(0, 1) != 0, mantissa(), integer(-30, 20)); }
    Decimal anywhere() { return Decimal::fromParts(integer(0, 1) != 0, mantissa(), integer(-128, 127)); }

private:
    std::mt19937 m_engine;
};

/// Mantissas at which digits tip over: powers of ten, of two and of five, their neighbours, nines, halves.
std::vector<UInt128> tippingMantissas()
{
    const UInt128 full = powerOfTen(38);
    std::vector<UInt128> all {1,
                              2,
                              3,
                              5,
                              7,
                              9,
                              full - 1,
                              full - 2,
                              full - 4,
                              full - 5,
                              full - 6,
                              full / 2,
                              full / 2 - 1,
                              full / 2 + 1,
                              full / 3,
                              full / 10,
                              full / 10 + 1,
                              full / 10 - 1,
                              full / 20,
                              UInt128 {1} << 126,
                              UInt128 {1} << 64,
                              (UInt128 {1} << 64) - 1};
    for (const int digits : {7, 18, 19, 20, 30, 37}) {
        all.push_back(powerOfTen(digits));
        all.push_back(powerOfTen(digits) - 1);
        all.push_back(powerOfTen(digits) + 1);
        all.push_back(powerOfTen(digits) / 2);
    }
    return all;
}

TEST(DecimalOracle, AgreesOnRandomOperands)
{
    Comparison comparison;
    RandomDecimals random;
    for (int i = 0; i < 150'000; ++i)
        comparison.arithmetic(random.near(), random.near());
    for (int i = 0; i < 60'000; ++i)
        comparison.arithmetic(random.anywhere(), random.anywhere());
}

TEST(DecimalOracle, AgreesOnTippingOperandsAtEveryGap)
{
    Comparison comparison;
    const std::vector<UInt128> mantissas = tippingMantissas();
    for (int gap = -85; gap <= 85; ++gap) {
        for (const UInt128 a : mantissas) {
            for (std::size_t b = static_cast<std::size_t>(gap + 85) % 5; b < mantissas.size(); b += 5)
                comparison.arithmetic(Decimal::fromParts(false, a, gap / 2),
                                      Decimal::fromParts(false, mantissas[b], gap / 2 - gap));
        }
    }
}

/// The reciprocal that a division begins with is one too small for some of these.
TEST(DecimalOracle, AgreesOnDivisorsJustBelowAPowerOfTwo)
{
    Comparison comparison;
    RandomDecimals random;
    for (int i = 0; i < 20'000; ++i) {
        const auto away = (UInt128 {random.bits()} * static_cast<unsigned>(random.integer(1, 64))) + 1;
        comparison.arithmetic(Decimal::fromParts(false, random.mantissa(), 0),
                              Decimal::fromParts(false, (UInt128 {1} << 126) - away, 0));
    }
}

TEST(DecimalOracle, AgreesAtTheEndsOfTheRange)
{
    Comparison comparison;
    RandomDecimals random;
    for (int i = 0; i < 60'000; ++i) {
        const int end = random.integer(0, 1) != 0 ? random.integer(-132, -100) : random.integer(100, 130);
        const Decimal a = Decimal::fromParts(false, random.mantissa(), end);
        comparison.arithmetic(a, Decimal::fromParts(true, random.mantissa(), random.integer(-45, 45)));
        comparison.arithmetic(a, Decimal::fromParts(true, random.mantissa(), end + random.integer(-3, 3)));
        // Products and quotients around the smallest and largest value.
        comparison.arithmetic(Decimal::fromParts(false, random.mantissa(), end / 2),
                              Decimal::fromParts(false, random.mantissa(), end / 2 + random.integer(-45, 5)));
    }
}

TEST(DecimalOracle, AgreesOnOrder)
{
    Comparison comparison;
    RandomDecimals random;
    for (int i = 0; i < 60'000; ++i) {
        const Decimal a = random.near();
        comparison.order(a, random.near());
        comparison.order(random.anywhere(), random.anywhere());
        // The same value or its neighbour, written with other digits.
        const int shift = random.integer(0, 20);
        comparison.order(
            a, Decimal::fromParts(a.isNegative(), a.mantissa() / powerOfTen(shift), a.exponent() + shift));
    }
}

TEST(DecimalOracle, AgreesOnRoundingInAllModes)
{
    Comparison comparison;
    RandomDecimals random;
    for (int i = 0; i < 60'000; ++i)
        comparison.rounding(random.near(), random.integer(-45, 45));
    for (const UInt128 mantissa : tippingMantissas()) {
        for (int places = -45; places <= 45; ++places) {
            comparison.rounding(Decimal::fromParts(false, mantissa, -10), places);
            comparison.rounding(Decimal::fromParts(true, mantissa, -10), places);
        }
    }
}

TEST(DecimalOracle, AgreesOnReading)
{
    Comparison comparison;
    RandomDecimals random;
    const auto zeros
        = [&](int most) { return std::string(static_cast<std::size_t>(random.integer(0, most)), '0'); };
    for (int i = 0; i < 60'000; ++i) {
        const int far = i % 4 == 0 ? 140 : 5;
        std::string text = random.integer(0, 1) != 0 ? "-" : "";
        text += zeros(3) + digitsOf(random.mantissa()) + digitsOf(random.mantissa()) + zeros(far);
        if (random.integer(0, 2) != 0)
            text += "." + zeros(far) + digitsOf(random.mantissa()) + digitsOf(random.mantissa()) + zeros(3);
        comparison.reading(text);
        comparison.reading("0." + zeros(150) + digitsOf(random.mantissa()) + digitsOf(random.mantissa()));
    }
}

} // namespace
} // namespace zelta
