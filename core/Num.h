#pragma once

#include "core/Decimal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The one place where text becomes a number and a number becomes text, so that every field reads the same
/// and every answer prints the same. Output never follows a locale: point ".", commas between groups of
/// three digits, a leading "-", never an exponent.
///
///     Num::parse("$1,234.50")                           // 1234.5
///     Num::string(1234567.891_dec, 10, true)            // "1,234,567.891"
namespace zelta::Num {

/// Reads what a person types or pastes: "1.234,56", "1'234.5", "٣٤", "−5", "(5)" for minus five. Signs,
/// letters and symbols inside the number are dropped: "5-3" is 53, "12%" is 12. A single comma before
/// exactly three digits groups: "1,234" is 1234, but "1,23" is 1.23. Nothing when no digit is left, and for
/// a number out of range.
std::optional<Decimal> parse(std::string_view text);

/// Rounded half away from zero to at most `maxPlaces` digits after the point, without trailing zeros there;
/// never "-0". A value that is not representable prints as "NaN".
std::string string(const Decimal& value, int maxPlaces, bool grouping);

/// A number's plain text with commas between groups of three digits before the point; all else stays as it
/// is: "-1234.50" gives "-1,234.50".
std::string grouped(std::string_view number);

/// With commas between groups of three: "-1,234,567".
std::string integer(std::int64_t value);

/// The grouped number and "%". `withSign` puts "+" in front of a value above zero, even of one that prints
/// as 0.
std::string percent(const Decimal& value, int maxPlaces, bool withSign);

/// Rounded to `places` digits after the point.
Decimal round(const Decimal& value, int places, Rounding mode = Rounding::plain);

Decimal abs(const Decimal& value);

/// Rounded half away from zero to 38 significant digits; nothing for a divisor of zero.
std::optional<Decimal> divide(const Decimal& dividend, const Decimal& divisor);

} // namespace zelta::Num
