#include "core/Calendar.h"

#include <cctz/time_zone.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace zelta {

namespace {

using std::chrono::seconds;
using SecondsPoint = cctz::time_point<cctz::seconds>;

constexpr const char* localTimeFile = "/etc/localtime";
constexpr std::string_view zonesFolder = "zoneinfo/";

bool isKnownZone(const std::string& identifier)
{
    cctz::time_zone zone;
    return !identifier.empty() && cctz::load_time_zone(identifier, &zone);
}

/// "Europe/Paris" of "/usr/share/zoneinfo/Europe/Paris"; any other text as it is. The same zones are there
/// twice more, in folders that say whether leap seconds count.
std::string zoneOfPath(std::string_view path)
{
    if (const std::size_t position = path.find(zonesFolder); position != std::string_view::npos)
        path.remove_prefix(position + zonesFolder.size());
    for (const std::string_view variant : {"posix/", "right/"}) {
        if (path.starts_with(variant))
            path.remove_prefix(variant.size());
    }
    return std::string(path);
}

/// Where the system's link leads, over other links where its own folder cannot be written to. Of the links
/// among the zones the first counts: "US/Eastern" is the name that was chosen.
std::filesystem::path linkedZoneFile()
{
    constexpr int mostLinks = 40; // as many as the system follows
    std::filesystem::path file = localTimeFile;
    for (int i = 0; i < mostLinks && file.string().find(zonesFolder) == std::string::npos; ++i) {
        std::error_code failure;
        const std::filesystem::path target = std::filesystem::read_symlink(file, failure);
        if (failure)
            break;
        file = file.parent_path() / target;
    }
    return file;
}

cctz::civil_second toCctz(const CivilTime& time)
{
    return cctz::civil_second(time.day.year, time.day.month, time.day.day, time.hour, time.minute,
                              time.second);
}

SecondsPoint toCctz(Instant instant)
{
    return SecondsPoint(std::chrono::floor<seconds>(instant).time_since_epoch());
}

/// Nothing for a moment that is too far away to be counted in microseconds.
std::optional<Instant> toInstant(SecondsPoint point)
{
    const auto count = point.time_since_epoch();
    if (count > std::chrono::floor<seconds>(Instant::duration::max())
        || count < std::chrono::ceil<seconds>(Instant::duration::min()))
        return std::nullopt;
    return Instant(count);
}

} // namespace

std::string systemTimeZoneId()
{
    if (const char* variable = std::getenv("TZ")) {
        std::string_view text = variable;
        // The C library's spelling ":Europe/Paris" says that a file is meant.
        if (text.starts_with(':'))
            text.remove_prefix(1);
        std::string identifier = zoneOfPath(text);
        // That file, and the zone named after it, are whatever the system has.
        const bool isSystems = identifier == localTimeFile || identifier == "localtime";
        if (!isSystems && isKnownZone(identifier))
            return identifier;
    }
    std::string identifier = zoneOfPath(linkedZoneFile().string());
    if (isKnownZone(identifier))
        return identifier;
    // A copied zone file does not tell its name, but it still tells the time.
    return isKnownZone(localTimeFile) ? localTimeFile : "UTC";
}

struct Calendar::Zone
{
    cctz::time_zone rules;
};

Calendar::Calendar(std::string_view timeZoneIdentifier)
    : m_timeZoneIdentifier(timeZoneIdentifier)
{
    if (!isKnownZone(m_timeZoneIdentifier))
        m_timeZoneIdentifier = systemTimeZoneId();
    auto zone = std::make_shared<Zone>();
    // Fails for a zone only that was known a moment ago, and then the rules are UTC's.
    cctz::load_time_zone(m_timeZoneIdentifier, &zone->rules);
    m_zone = std::move(zone);
}

CivilTime Calendar::civilTime(Instant instant) const
{
    const cctz::civil_second civil = cctz::convert(toCctz(instant), m_zone->rules);
    return {{civil.year(), civil.month(), civil.day()}, civil.hour(), civil.minute(), civil.second()};
}

std::optional<Instant> Calendar::instant(const CivilTime& time) const
{
    const auto found = m_zone->rules.lookup(toCctz(time));
    if (found.kind == cctz::time_zone::civil_lookup::SKIPPED)
        return std::nullopt;
    return toInstant(found.pre);
}

std::optional<Instant> Calendar::instantOrAfterJump(const CivilTime& time) const
{
    const std::optional<Instant> found = toInstant(cctz::convert(toCctz(time), m_zone->rules));
    if (!found || civilDay(*found) != time.day)
        return std::nullopt;
    return found;
}

Instant Calendar::startOfDay(Instant instant) const
{
    // The instant lies on this day, so the zone did not skip it.
    return instantOrAfterJump({civilDay(instant)}).value_or(instant);
}

std::optional<Instant> Calendar::addingDays(Instant instant, std::int64_t count) const
{
    CivilTime time = civilTime(instant);
    time.day = time.day.addingDays(count);
    return instantOrAfterJump(time);
}

} // namespace zelta
