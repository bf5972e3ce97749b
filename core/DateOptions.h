#pragma once

#include "core/Calendar.h"
#include "core/WeekendRule.h"

#include <string>

namespace zelta {

/// The settings under which a span or a month is computed.
struct DateOptions
{
    bool includeEndDate = false; ///< The end date itself is counted.
    WeekendRule weekendRule = WeekendRule::satSun();
    std::string timeZoneIdentifier; ///< "Europe/Paris"; an unknown one means the system's zone.

    [[nodiscard]] Calendar calendar() const { return Calendar(timeZoneIdentifier); }

    friend bool operator==(const DateOptions&, const DateOptions&) = default;
};

} // namespace zelta
