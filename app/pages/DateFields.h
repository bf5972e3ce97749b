#pragma once

#include "core/Calendar.h"
#include "core/Instant.h"

#include <string>

namespace zelta {

/// The texts of the three fields in which a date is typed, and what they say. Entering a date passes through
/// texts that are no date: those are unfinished, not wrong, and what is typed is never rewritten meanwhile.
///
///     DateFields fields {"31", "04", "2026"};
///     fields.read(calendar)          // State::notReal, date in force unchanged
///     fields.day = "7";
///     fields.read(calendar)          // State::real: 7 April 2026, and the field still says "7"
struct DateFields
{
    enum class State { unfinished, notReal, real };

    struct Entry
    {
        State state = State::unfinished;
        /// Start of the day, or noon where midnight was skipped; only when `state` is `real`.
        Instant date {};

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    std::string day;
    std::string month;
    std::string year;

    /// A date written in full: "07", "03", "2026".
    static DateFields of(Instant date, const Calendar& calendar);

    /// Each text is a whole number in ASCII digits, with or without a sign and white space around it, and the
    /// year as typed has four characters; otherwise the entry is unfinished.
    [[nodiscard]] Entry read(const Calendar& calendar) const;

    friend bool operator==(const DateFields&, const DateFields&) = default;
};

} // namespace zelta
