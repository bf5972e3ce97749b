#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zelta {

// The compiler's 128-bit integer is an extension; this is the one place that names it.
__extension__ using UInt128 = unsigned __int128;

/// An unsigned integer of 256 bits, for products of two mantissas and numerators of quotients.
struct UInt256
{
    UInt128 high = 0;
    UInt128 low = 0;
};

/// Quotient and remainder of one division.
struct WideQuotient
{
    UInt128 quotient;
    UInt128 remainder;
};

/// 10^n at [n], n in [0:38].
inline constexpr auto powersOfTen = [] {
    std::array<UInt128, 39> powers {1};
    for (std::size_t n = 1; n < powers.size(); ++n)
        powers[n] = powers[n - 1] * 10;
    return powers;
}();

/// 10^n, n in [0:38].
constexpr UInt128 powerOfTen(int n)
{
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
    return static_cast<int>(high != 0 ? 64 + std::bit_width(high) : std::bit_width(lowHalf(value)));
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

namespace detail {

/// One 64-bit digit of a long division (Knuth, The Art of Computer Programming, 4.3.1, algorithm D):
/// (upper × 2^64 + next) / divisor, where upper < divisor and the divisor's highest bit is set.
constexpr WideQuotient divideStep(UInt128 upper, std::uint64_t next, UInt128 divisor)
{
    const UInt128 d1 = highHalf(divisor);
    const UInt128 d0 = lowHalf(divisor);
    constexpr UInt128 largest = ~std::uint64_t {0};
    UInt128 digit = highHalf(upper) >= d1 ? largest : upper / d1;
    UInt128 rest = upper - digit * d1;
    while (highHalf(rest) == 0 && digit * d0 > ((rest << 64) | next)) {
        --digit;
        rest += d1;
    }
    return {digit, ((upper << 64) | next) - digit * divisor};
}

} // namespace detail

/// Divides; the quotient fits 128 bits, which means that dividend.high < divisor.
constexpr WideQuotient divideWide(UInt256 dividend, UInt128 divisor)
{
    const int shift = 128 - bitWidth(divisor);
    const UInt128 scaled = divisor << shift;
    if (shift > 0)
        dividend = {(dividend.high << shift) | (dividend.low >> (128 - shift)), dividend.low << shift};
    const auto [high, rest] = detail::divideStep(dividend.high, highHalf(dividend.low), scaled);
    const auto [low, remainder] = detail::divideStep(rest, lowHalf(dividend.low), scaled);
    return {(high << 64) | low, remainder >> shift};
}

} // namespace zelta
