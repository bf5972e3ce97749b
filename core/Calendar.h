#pragma once

#include "core/CivilTime.h"
#include "core/Instant.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zelta {

/// The Gregorian calendar in one time zone, with weeks that begin on Monday: translates between instants
/// and what clocks and calendars on the wall show there. Cheap to copy; the rules of a zone are read once.
///
/// A forward jump of the clocks skips civil times, a backward jump repeats them. Of two instants with one
/// civil time the first is meant; a skipped time has no instant of its own.
class Calendar
{
public:
    static constexpr int firstWeekday = 2; ///< Monday.

    /// An unknown identifier gives the system's zone.
    explicit Calendar(std::string_view timeZoneIdentifier);

    /// The zone in force: "Europe/Paris"; "/etc/localtime" where the system's zone has no name.
    [[nodiscard]] const std::string& timeZoneIdentifier() const { return m_timeZoneIdentifier; }

    [[nodiscard]] CivilTime civilTime(Instant instant) const;
    [[nodiscard]] CivilDay civilDay(Instant instant) const { return civilTime(instant).day; }

    /// The instant with this civil time; nothing when it was skipped or an Instant cannot hold it.
    [[nodiscard]] std::optional<Instant> instant(const CivilTime& time) const;
    /// As above, but a skipped time gives the first moment after the jump if that is still on the same day.
    [[nodiscard]] std::optional<Instant> instantOrAfterJump(const CivilTime& time) const;

    /// The first moment of the instant's civil day: midnight, or later where midnight was skipped.
    [[nodiscard]] Instant startOfDay(Instant instant) const;

    /// The same time of day so many days later (earlier for a negative count), as `instantOrAfterJump` gives
    /// it.
    [[nodiscard]] std::optional<Instant> addingDays(Instant instant, std::int64_t count) const;

    friend bool operator==(const Calendar& a, const Calendar& b)
    {
        return a.m_timeZoneIdentifier == b.m_timeZoneIdentifier;
    }

private:
    struct Zone;

    std::string m_timeZoneIdentifier;
    std::shared_ptr<const Zone> m_zone;
};

/// The time zone of this system now: $TZ when it names one, else the one that /etc/localtime points to, else
/// that file itself where it is a copy, else "UTC". Read again at each call, so that a change shows at once.
std::string systemTimeZoneId();

} // namespace zelta
