#pragma once

#include "core/WideInteger.h"

#include <compare>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelta {

/// Where a value that lies between two neighbours goes when digits are cut off.
enum class Rounding {
    plain, ///< To the nearer one, a tie away from zero.
    down, ///< Toward negative infinity.
    up, ///< Toward positive infinity.
    bankers ///< To the nearer one, a tie to the even digit.
};

/// A decimal floating-point number: sign, mantissa of up to 38 significant digits, exponent of ten from -128
/// to 127. What people type is held exactly (0.1 + 0.2 is 0.3), and each operation works out its exact result
/// first and rounds it once, half away from zero, to 38 digits:
///
///     2_dec / 3_dec            0.66666666666666666666666666666666666667
///     1.10_dec + 2.205_dec     3.305
///
/// Zero has no sign. A result too small is 0; a result too large is not representable: it stays so through
/// further operations, is equal to nothing, itself included, and its text is "NaN".
class Decimal
{
public:
    static constexpr int maxDigits = 38;
    static constexpr int minExponent = -128;
    static constexpr int maxExponent = 127;

    constexpr Decimal() = default;
    constexpr Decimal(std::int64_t integer); // not explicit: 100 is a Decimal
    /// Binary fractions have no place here: write 0.1_dec.
    template <std::floating_point Binary> Decimal(Binary) = delete;

    /// Reads `[-]digits[.digits]` and nothing else. More than 38 significant digits are rounded half away
    /// from zero. Nothing for any other text and for a value out of range.
    static constexpr std::optional<Decimal> fromText(std::string_view text);

    /// ±mantissa × 10^exponent, rounded where the mantissa has more than 38 digits.
    static constexpr Decimal fromParts(bool negative, UInt128 mantissa, int exponent)
    {
        return nearest(negative, mantissa, exponent);
    }

    /// False after an overflow or a division by zero.
    [[nodiscard]] constexpr bool isRepresentable() const { return !m_outOfRange; }
    [[nodiscard]] constexpr bool isZero() const { return m_mantissa == 0 && !m_outOfRange; }
    [[nodiscard]] constexpr bool isNegative() const { return m_negative; }
    /// The value is ±mantissa × 10^exponent. The mantissa may end in zeros: 2.50 is 250 × 10^-2.
    [[nodiscard]] constexpr UInt128 mantissa() const { return m_mantissa; }
    [[nodiscard]] constexpr int exponent() const { return m_exponent; }

    /// Rounded to `places` digits after the point; negative places round to tens, hundreds, and so on.
    [[nodiscard]] constexpr Decimal rounded(int places, Rounding mode) const;

    /// Plain digits with "-" and "." as needed: no grouping, no exponent, no trailing zeros of a fraction.
    [[nodiscard]] std::string text() const;

    friend constexpr Decimal operator-(const Decimal& value)
    {
        Decimal result = value;
        result.m_negative = !value.m_negative && value.m_mantissa != 0;
        return result;
    }
    friend constexpr Decimal operator+(const Decimal& a, const Decimal& b) { return sum(a, b, b.m_negative); }
    friend constexpr Decimal operator-(const Decimal& a, const Decimal& b)
    {
        return sum(a, b, !b.m_negative);
    }
    friend constexpr Decimal operator*(const Decimal& a, const Decimal& b) { return product(a, b); }
    /// Division by zero is not representable; `Num::divide` gives nothing instead.
    friend constexpr Decimal operator/(const Decimal& a, const Decimal& b) { return quotient(a, b); }

    /// Compares values, not digits: 2.50 equals 2.5.
    friend constexpr bool operator==(const Decimal& a, const Decimal& b) { return (a <=> b) == 0; }
    friend constexpr std::partial_ordering operator<=>(const Decimal& a, const Decimal& b)
    {
        return compare(a, b);
    }

private:
    constexpr Decimal(bool negative, UInt128 mantissa, int exponent)
        : m_mantissa(mantissa)
        , m_exponent(static_cast<std::int16_t>(exponent))
        , m_negative(negative)
    { }

    /// a + b, where b has the given sign instead of its own.
    static constexpr Decimal sum(const Decimal& a, const Decimal& b, bool bNegative);
    static constexpr Decimal distantSum(const Decimal& a, const Decimal& b);
    static constexpr Decimal product(const Decimal& a, const Decimal& b);
    static constexpr Decimal quotient(const Decimal& a, const Decimal& b);
    static constexpr std::partial_ordering compare(const Decimal& a, const Decimal& b);
    static constexpr std::strong_ordering compareMagnitude(const Decimal& a, const Decimal& b);

    /// The nearest representable value to ±magnitude × 10^exponent, rounded once.
    static constexpr Decimal nearest(bool negative, UInt256 magnitude, int exponent);
    static constexpr Decimal nearest(bool negative, UInt128 magnitude, int exponent);
    static constexpr Decimal outOfRange();

    UInt128 m_mantissa = 0; ///< Below 10^38; 0 when out of range.
    std::int16_t m_exponent = 0;
    bool m_negative = false;
    bool m_outOfRange = false;
};

} // namespace zelta

#include "core/DecimalArithmetic.h" // IWYU pragma: export

namespace zelta {

/// A value known while compiling: `0.3048_dec`. Anything that is not plain digits does not compile.
consteval Decimal operator""_dec(const char* digits)
{
    return Decimal::fromText(digits).value();
}

} // namespace zelta
