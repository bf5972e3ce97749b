#pragma once

// The bodies of Decimal's operations. They stand in a header because constants are worked out while
// compiling; include "core/Decimal.h" to use them.
//
// A tie goes away from zero, so rounding is decided by the first digit that is cut off and by nothing
// behind it: it is enough to know the magnitude rounded down, with at least one digit more than is kept.

#include "core/Decimal.h"

#include <algorithm>
#include <utility>

namespace zelta {

namespace detail {

/// 10^n / 2 at [n], ready to divide by; n in [1, 38].
inline constexpr auto halfPowersOfTen = []<std::size_t... n>(std::index_sequence<n...>)
{
    return std::array {WideDivisor(n == 0 ? 1 : powersOfTen[n] / 2)...};
}
(std::make_index_sequence<powersOfTen.size()> {});

/// How many digits more than 38 a number of 39 to 76 digits has.
constexpr int digitsBeyond38(UInt256 value)
{
    // As in digitCount, the guess is exact or one too small.
    const int guess = std::max(((128 + bitWidth(value.high)) * 1233 >> 12) - Decimal::maxDigits, 0);
    const UInt256 limit = multiplyWide(powerOfTen(Decimal::maxDigits), powerOfTen(guess));
    const bool isBeyond = value.high > limit.high || (value.high == limit.high && value.low >= limit.low);
    return guess + (isBeyond ? 1 : 0);
}

} // namespace detail

constexpr Decimal::Decimal(std::int64_t integer)
    : m_mantissa(integer < 0 ? UInt128 {0} - static_cast<UInt128>(integer) : static_cast<UInt128>(integer))
    , m_negative(integer < 0)
{ }

constexpr Decimal Decimal::outOfRange()
{
    Decimal result;
    result.m_outOfRange = true;
    return result;
}

constexpr Decimal Decimal::nearest(bool negative, UInt128 magnitude, int exponent)
{
    // Nearly always nothing is to be done; 0 wraps around and takes the long way.
    if (magnitude - 1 < powerOfTen(maxDigits) - 1 && exponent >= minExponent && exponent <= maxExponent)
        return {negative, magnitude, exponent};
    const int excess = std::max({digitCount(magnitude) - maxDigits, minExponent - exponent, 0});
    if (excess > 0) {
        if (excess > maxDigits + 1)
            return {};
        // 10^39 does not fit: what is to be cut off entirely rounds up only when it has as many digits.
        const UInt128 beforeLast = magnitude / powerOfTen(excess - 1);
        magnitude = beforeLast / 10 + (beforeLast % 10 >= 5 ? 1 : 0);
        exponent += excess;
        if (magnitude == powerOfTen(maxDigits)) {
            magnitude /= 10;
            ++exponent;
        }
    }
    if (magnitude == 0)
        return {};
    if (exponent > maxExponent) {
        const int missing = exponent - maxExponent;
        if (missing > maxDigits - digitCount(magnitude))
            return outOfRange();
        magnitude *= powerOfTen(missing);
        exponent = maxExponent;
    }
    return {negative, magnitude, exponent};
}

constexpr Decimal Decimal::nearest(bool negative, UInt256 magnitude, int exponent)
{
    if (magnitude.high == 0)
        return nearest(negative, magnitude.low, exponent);
    const int excess = detail::digitsBeyond38(magnitude);
    const UInt128 halves
        = detail::halfPowersOfTen[static_cast<std::size_t>(excess)].divide(magnitude).quotient;
    exponent += excess;
    // Two halves of the last place that stays are one, and an odd one rounds up. Where the exponent is too
    // small for that place more digits go at once, and what is cut off here cannot decide any more.
    return nearest(negative, halves / 2 + (exponent >= minExponent ? halves % 2 : 0), exponent);
}

constexpr Decimal Decimal::sum(const Decimal& a, const Decimal& b, bool bNegative)
{
    if (a.m_outOfRange || b.m_outOfRange)
        return outOfRange();
    if (b.m_mantissa == 0)
        return a;
    if (a.m_mantissa == 0)
        return {bNegative, b.m_mantissa, b.m_exponent};

    UInt128 left = a.m_mantissa;
    UInt128 right = b.m_mantissa;
    int exponent = a.m_exponent;
    if (const int gap = a.m_exponent - b.m_exponent; gap > 0) {
        if (gap > maxDigits - digitCount(left))
            return distantSum(a, {bNegative, b.m_mantissa, b.m_exponent});
        left *= powerOfTen(gap);
        exponent = b.m_exponent;
    } else if (gap < 0) {
        if (-gap > maxDigits - digitCount(right))
            return distantSum({bNegative, b.m_mantissa, b.m_exponent}, a);
        right *= powerOfTen(-gap);
    }

    // Both are below 10^38, so that even the sum fits 128 bits.
    if (a.m_negative == bNegative)
        return nearest(a.m_negative, left + right, exponent);
    if (left >= right)
        return nearest(a.m_negative, left - right, exponent);
    return nearest(bNegative, right - left, exponent);
}

/// The sum where a's exponent lies so far above b's that a does not fit 38 digits at b's exponent.
constexpr Decimal Decimal::distantSum(const Decimal& a, const Decimal& b)
{
    const int room = maxDigits - digitCount(a.m_mantissa);
    const int gap = a.m_exponent - room - b.m_exponent; // > 0
    const int shift = std::min(gap, maxDigits);
    const UInt256 left = multiplyWide(a.m_mantissa * powerOfTen(room), powerOfTen(shift));
    UInt128 right = b.m_mantissa;
    bool cut = false;
    if (const int beyond = gap - shift; beyond > 0) {
        right = beyond > maxDigits ? 0 : b.m_mantissa / powerOfTen(beyond);
        cut = beyond > maxDigits || right * powerOfTen(beyond) != b.m_mantissa;
    }
    const int exponent = a.m_exponent - room - shift;
    if (a.m_negative == b.m_negative)
        return nearest(a.m_negative, add(left, right), exponent);
    // What was cut off `right` makes the difference smaller: round it down.
    return nearest(a.m_negative, subtract(left, right + (cut ? 1 : 0)), exponent);
}

constexpr Decimal Decimal::product(const Decimal& a, const Decimal& b)
{
    if (a.m_outOfRange || b.m_outOfRange)
        return outOfRange();
    return nearest(a.m_negative != b.m_negative, multiplyWide(a.m_mantissa, b.m_mantissa),
                   a.m_exponent + b.m_exponent);
}

constexpr Decimal Decimal::quotient(const Decimal& a, const Decimal& b)
{
    if (a.m_outOfRange || b.m_outOfRange || b.m_mantissa == 0)
        return outOfRange();
    if (a.m_mantissa == 0)
        return {};
    // With both mantissas brought to 38 digits the quotient has 38 digits before its point.
    const int aRoom = maxDigits - digitCount(a.m_mantissa);
    const int bRoom = maxDigits - digitCount(b.m_mantissa);
    const UInt128 dividend = a.m_mantissa * powerOfTen(aRoom);
    const UInt128 divisor = b.m_mantissa * powerOfTen(bRoom);
    const int shift = maxDigits - (dividend < divisor ? 0 : 1);
    const auto [digits, remainder] = WideDivisor(divisor).divide(multiplyWide(dividend, powerOfTen(shift)));
    const bool negative = a.m_negative != b.m_negative;
    const int exponent = (a.m_exponent - aRoom) - (b.m_exponent - bRoom) - shift;
    if (exponent < minExponent)
        return nearest(negative, digits, exponent);
    return nearest(negative, digits + (remainder >= divisor - remainder ? 1 : 0), exponent);
}

constexpr std::partial_ordering Decimal::compare(const Decimal& a, const Decimal& b)
{
    if (a.m_outOfRange || b.m_outOfRange)
        return std::partial_ordering::unordered;
    if (a.m_negative != b.m_negative)
        return a.m_negative ? std::partial_ordering::less : std::partial_ordering::greater;
    return a.m_negative ? compareMagnitude(b, a) : compareMagnitude(a, b);
}

constexpr std::strong_ordering Decimal::compareMagnitude(const Decimal& a, const Decimal& b)
{
    if (a.m_exponent == b.m_exponent || a.m_mantissa == 0 || b.m_mantissa == 0)
        return a.m_mantissa <=> b.m_mantissa;
    const int aTop = digitCount(a.m_mantissa) + a.m_exponent;
    const int bTop = digitCount(b.m_mantissa) + b.m_exponent;
    if (aTop != bTop)
        return aTop <=> bTop;
    // With the first digits in one place, the longer mantissa is the one with the lower exponent.
    const int gap = a.m_exponent - b.m_exponent;
    return gap > 0 ? a.m_mantissa * powerOfTen(gap) <=> b.m_mantissa
                   : a.m_mantissa <=> b.m_mantissa * powerOfTen(-gap);
}

constexpr Decimal Decimal::rounded(int places, Rounding mode) const
{
    if (m_outOfRange || places >= -m_exponent)
        return *this;
    // Every value lies far below 10^200.
    places = std::max(places, -200);
    const int excess = -m_exponent - places;
    // More than all digits go: nothing is left, and the rest is less than half of the last place.
    const bool all = excess > maxDigits;
    const UInt128 kept = all ? 0 : m_mantissa / powerOfTen(excess);
    const UInt128 rest = m_mantissa - (all ? 0 : kept * powerOfTen(excess));
    const auto half = all ? std::strong_ordering::less : rest <=> powerOfTen(excess) / 2;
    bool away = false;
    switch (mode) {
    case Rounding::plain:
        away = half >= 0;
        break;
    case Rounding::down:
        away = rest != 0 && m_negative;
        break;
    case Rounding::up:
        away = rest != 0 && !m_negative;
        break;
    case Rounding::bankers:
        away = half > 0 || (half == 0 && kept % 2 != 0);
        break;
    }
    return nearest(m_negative, kept + (away ? 1 : 0), -places);
}

constexpr std::optional<Decimal> Decimal::fromText(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    if (point == 0 || point + 1 == text.size())
        return std::nullopt;

    UInt128 mantissa = 0;
    int digits = 0; // taken into the mantissa, from the first that is not 0
    int exponent = 0; // of the mantissa's last digit
    bool full = false; // no more digits are taken
    bool roundUp = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == point)
            continue;
        if (text[i] < '0' || text[i] > '9')
            return std::nullopt;
        const int digit = text[i] - '0';
        if (!full && (digits == maxDigits || exponent == minExponent)) {
            full = true;
            roundUp = digit >= 5;
        }
        if (!full) {
            mantissa = mantissa * 10 + static_cast<unsigned>(digit);
            digits += mantissa != 0 ? 1 : 0;
            exponent -= i > point ? 1 : 0;
        } else if (i < point && exponent <= maxExponent) {
            ++exponent;
        }
    }
    const Decimal value = nearest(negative, mantissa + (roundUp ? 1 : 0), exponent);
    if (!value.isRepresentable())
        return std::nullopt;
    return value;
}

} // namespace zelta
