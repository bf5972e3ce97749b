#pragma once

#include <array>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>

namespace zelta {

// The compiler's 128-bit integers are an extension; this is the one place that names them.
__extension__ using UInt128 = unsigned __int128;
__extension__ using Int128 = __int128;

/// An unsigned integer of 256 bits, for products of two mantissas and numerators of quotients.
struct UInt256
{
    UInt128 high = 0;
    UInt128 low = 0;
};

/// 10^n at [n], n in [0, 38].
inline constexpr auto powersOfTen = [] {
    std::array<UInt128, 39> powers {1};
    for (std::size_t n = 1; n < powers.size(); ++n)
        powers[n] = powers[n - 1] * 10;
    return powers;
}();

/// 10^n, n in [0, 38].
constexpr UInt128 powerOfTen(int n)
{
    assert(n >= 0 && static_cast<std::size_t>(n) < powersOfTen.size());
    return powersOfTen[static_cast<std::size_t>(n)];
}

constexpr std::uint64_t lowHalf(UInt128 value)
{
    return static_cast<std::uint64_t>(value);
}
constexpr std::uint64_t highHalf(UInt128 value)
{
    return static_cast<std::uint64_t>(value >> 64);
}

/// Number of bits up to the highest one: 0 for 0, 1 for 1, 2 for 3.
constexpr int bitWidth(UInt128 value)
{
    const std::uint64_t high = highHalf(value);
    const std::uint64_t top = high != 0 ? high : lowHalf(value);
    return (high != 0 ? 64 : 0) + static_cast<int>(std::bit_width(top));
}

/// Number of decimal digits: 0 for 0, 1 for 9, 2 for 10.
constexpr int digitCount(UInt128 value)
{
    // 1233 / 4096 is log10(2) closely enough: for up to 128 bits the guess is exact or one too small.
    const int guess = bitWidth(value) * 1233 >> 12;
    return guess + (value >= powerOfTen(guess) ? 1 : 0);
}

/// The exact product.
constexpr UInt256 multiplyWide(UInt128 a, UInt128 b)
{
    const UInt128 low = UInt128 {lowHalf(a)} * lowHalf(b);
    const UInt128 middle = UInt128 {highHalf(a)} * lowHalf(b) + highHalf(low);
    const UInt128 cross = UInt128 {lowHalf(a)} * highHalf(b) + lowHalf(middle);
    const UInt128 high = UInt128 {highHalf(a)} * highHalf(b) + highHalf(middle) + highHalf(cross);
    return {high, (cross << 64) | lowHalf(low)};
}

constexpr UInt256 add(UInt256 a, UInt128 b)
{
    const UInt128 low = a.low + b;
    return {a.high + (low < b ? 1 : 0), low};
}

/// a − b, where b is not above a.
constexpr UInt256 subtract(UInt256 a, UInt128 b)
{
    return {a.high - (a.low < b ? 1 : 0), a.low - b};
}

/// Quotient and remainder of one division.
struct WideQuotient
{
    UInt128 quotient;
    UInt128 remainder;
};

/// A divisor made ready once, so that dividing by it takes multiplications only: a division instruction
/// takes longer than all of them. After N. Möller and T. Granlund, "Improved division by invariant
/// integers" (IEEE Transactions on Computers 60, 2011), algorithms 5 and 6.
class WideDivisor
{
public:
    /// The divisor must not be 0.
    constexpr explicit WideDivisor(UInt128 divisor)
        : m_shift(128 - bitWidth(divisor))
        , m_divisor(divisor << m_shift)
        , m_reciprocal(reciprocal(m_divisor))
    {
        assert(divisor != 0);
    }

    /// The quotient must fit 128 bits: the dividend's high half is below the divisor.
    [[nodiscard]] constexpr WideQuotient divide(UInt256 dividend) const
    {
        assert(dividend.high < m_divisor >> m_shift);
        if (m_shift > 0)
            dividend
                = {(dividend.high << m_shift) | (dividend.low >> (128 - m_shift)), dividend.low << m_shift};
        const auto [high, rest] = divideStep(dividend.high, highHalf(dividend.low));
        const auto [low, remainder] = divideStep(rest, lowHalf(dividend.low));
        return {(high << 64) | low, remainder >> m_shift};
    }

private:
    /// floor((2^128 - 1) / d) - 2^64, where d has its highest bit set.
    static constexpr std::uint64_t reciprocal(std::uint64_t d)
    {
        // A floating quotient is right to 51 bits and here never too large to be held; one step of Newton's
        // gives the rest, but for the last unit.
        const double half = 0x1.fffffffffffffp115 / static_cast<double>(static_cast<std::int64_t>(d >> 11));
        std::uint64_t v = static_cast<std::uint64_t>(static_cast<std::int64_t>(half - 0x1p63)) << 1;
        const auto error = [&] { return static_cast<Int128>(~(UInt128 {d} << 64) - UInt128 {v} * d); };
        const Int128 distance = error() >> 48;
        v += static_cast<std::uint64_t>(((distance << 64) + distance * v) >> 80);
        Int128 rest = error();
        // The last unit: it has only ever been seen one too small.
        for (; rest < 0; rest += d)
            --v;
        for (; rest >= d; rest -= d)
            ++v;
        return v;
    }

    /// floor((2^192 - 1) / d) - 2^64, where d has its highest bit set.
    static constexpr std::uint64_t reciprocal(UInt128 d)
    {
        const std::uint64_t d1 = highHalf(d);
        const std::uint64_t d0 = lowHalf(d);
        std::uint64_t v = reciprocal(d1);
        std::uint64_t p = d1 * v + d0;
        if (p < d0) {
            --v;
            if (p >= d1) {
                --v;
                p -= d1;
            }
            p -= d1;
        }
        const UInt128 t = UInt128 {v} * d0;
        p += highHalf(t);
        if (p < highHalf(t)) {
            --v;
            if (((UInt128 {p} << 64) | lowHalf(t)) >= d)
                --v;
        }
        return v;
    }

    /// One 64-bit digit: (upper × 2^64 + next) / divisor, where upper is below the divisor.
    [[nodiscard]] constexpr WideQuotient divideStep(UInt128 upper, std::uint64_t next) const
    {
        const UInt128 q = UInt128 {m_reciprocal} * highHalf(upper) + upper;
        std::uint64_t digit = highHalf(q);
        const std::uint64_t top = lowHalf(upper) - digit * highHalf(m_divisor);
        UInt128 rest = ((UInt128 {top} << 64) | next) - m_divisor - UInt128 {digit} * lowHalf(m_divisor);
        ++digit;
        if (highHalf(rest) >= lowHalf(q)) {
            --digit;
            rest += m_divisor;
        }
        if (rest >= m_divisor) {
            ++digit;
            rest -= m_divisor;
        }
        return {digit, rest};
    }

    int m_shift; ///< Brings the divisor's highest bit to the top.
    UInt128 m_divisor; ///< Shifted.
    std::uint64_t m_reciprocal;
};

} // namespace zelta
