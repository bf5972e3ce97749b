#include "app/pages/DateFields.h"

#include "core/CalendarKit.h"
#include "core/CivilTime.h"
#include "core/Unicode.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>

namespace zelta {

namespace {

std::optional<std::int64_t> wholeNumber(std::string_view text)
{
    text = Unicode::trim(text);
    // A "-" belongs to what the library reads, a "+" does not; "+-5" is nothing.
    const bool plus = text.starts_with('+');
    if (plus)
        text.remove_prefix(1);
    if (plus && text.starts_with('-'))
        return std::nullopt;
    std::int64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (failure != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

/// Numbers beyond what a day or a month can be stay beyond it.
int clamped(std::int64_t value)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

DateFields DateFields::of(Instant date, const Calendar& calendar)
{
    const CivilDay civil = calendar.civilDay(date);
    return {fmt::format("{:02}", civil.day), fmt::format("{:02}", civil.month),
            fmt::format("{:04}", civil.year)};
}

DateFields::Entry DateFields::read(const Calendar& calendar) const
{
    constexpr int yearCharacters = 4;
    const auto dayNumber = wholeNumber(day);
    const auto monthNumber = wholeNumber(month);
    const auto yearNumber = wholeNumber(year);
    const Unicode::CodePoints characters(year);
    if (!dayNumber || !monthNumber || !yearNumber
        || std::distance(characters.begin(), characters.end()) != yearCharacters)
        return {};
    const auto date
        = CalendarKit::makeDate(clamped(*dayNumber), clamped(*monthNumber), *yearNumber, 0, 0, 0, calendar);
    return date ? Entry {State::real, *date} : Entry {State::notReal};
}

} // namespace zelta
