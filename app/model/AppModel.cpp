#include "app/model/AppModel.h"

#include "core/HistoryEntry.h"
#include "core/UserDirectories.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace zelta {
namespace {

using namespace std::chrono_literals;

constexpr auto autoSaveDelay = 1500ms;
constexpr auto messageTime = 2000ms;
constexpr std::string_view defaultWeekend = "sat-sun";

std::string summaryOf(const std::vector<ResultRow>& rows)
{
    const auto headline = std::ranges::find(rows, Weight::headline, &ResultRow::weight);
    return headline == rows.end() ? plainText(rows.front()) : headline->label + ": " + headline->value;
}

} // namespace

AppModel::AppModel(std::unique_ptr<Store> store, Clock& clock, QObject* parent)
    : QObject(parent)
    , m_store(std::move(store))
    , m_clock(clock)
    , m_selection(fromRawValue<Module>(m_store->setting("module").value_or("")).value_or(Module::calculator))
    , m_weekendPresetID(m_store->setting("weekend").value_or(std::string(defaultWeekend)))
    , m_use24Hour(m_store->setting("clock24", false))
{ }

std::unique_ptr<Store> AppModel::launchStore(const std::optional<std::string>& path)
{
    if (!path || path->find_first_not_of(" \t") == std::string::npos)
        return std::make_unique<Store>(std::nullopt);
    if (*path == "~" || path->starts_with("~/"))
        return std::make_unique<Store>(homeDirectory().string() + path->substr(1));
    return std::make_unique<Store>(*path);
}

WeekendRule AppModel::weekendRule() const
{
    return WeekendRule::forPresetId(m_weekendPresetID);
}

std::string AppModel::timeZoneIdentifier() const
{
    return CalendarKit::systemTimeZoneId();
}

Calendar AppModel::calendar() const
{
    return CalendarKit::calendar(timeZoneIdentifier());
}

DateOptions AppModel::dateOptions() const
{
    return {
        .includeEndDate = false, .weekendRule = weekendRule(), .timeZoneIdentifier = timeZoneIdentifier()};
}

Instant AppModel::today() const
{
    return CalendarKit::startOfDay(m_clock.now(), calendar());
}

std::chrono::milliseconds AppModel::untilMidnight() const
{
    const Instant now = m_clock.now();
    const Calendar there = calendar();
    const CivilDay day = there.civilDay(now);
    // A zone may skip a whole day, but not two.
    const auto tomorrow = there.instantOrAfterJump({day.addingDays(1), 12});
    const auto noon = tomorrow ? tomorrow : there.instantOrAfterJump({day.addingDays(2), 12});
    const Instant midnight = noon ? there.startOfDay(*noon) : now;
    const auto wait = midnight > now ? midnight - now : std::chrono::minutes(1);
    return std::chrono::ceil<std::chrono::milliseconds>(wait);
}

std::string AppModel::clockText(Instant instant, const Calendar& calendar) const
{
    return m_use24Hour ? CalendarKit::clock(instant, calendar) : CalendarKit::clock12(instant, calendar);
}

std::string AppModel::subtitle(Module module) const
{
    if (module != Module::settings)
        return std::string(fixedSubtitle(module));
    return WeekendRule::preset(m_weekendPresetID).name
        + (m_use24Hour ? ", 24-hour clock" : ", 12-hour clock");
}

void AppModel::setSelection(Module module)
{
    const bool changed = std::exchange(m_selection, module) != module;
    if (changed)
        Q_EMIT selectionChanged();
    m_store->setSetting("module", rawValue(module));
}

void AppModel::setWeekendPresetID(std::string id)
{
    const bool changed = m_weekendPresetID != id;
    m_weekendPresetID = std::move(id);
    if (changed)
        Q_EMIT weekendRuleChanged();
    m_store->setSetting("weekend", std::string_view(m_weekendPresetID));
}

void AppModel::setUse24Hour(bool use24Hour)
{
    const bool changed = std::exchange(m_use24Hour, use24Hour) != use24Hour;
    if (changed)
        Q_EMIT use24HourChanged();
    m_store->setSetting("clock24", use24Hour);
}

void AppModel::record(Module module, const std::string& title, const std::vector<ResultRow>& rows)
{
    if (rows.empty())
        return;
    write(module, title, rows);
    setLastSaveMessage("Saved to history");
    scheduleMessageReset();
}

void AppModel::autoRecord(Module module, const std::string& title, const std::vector<ResultRow>& rows)
{
    if (rows.empty())
        return;
    std::string detail = plainText(rows);
    if (detail == m_lastAutoSavedDetail)
        return;
    m_autoSaveTask = m_clock.after(
        autoSaveDelay,
        [this, module, title, rows, detail = std::move(detail)] {
            m_lastAutoSavedDetail = detail;
            write(module, title, rows);
        },
        Clock::Purpose::save);
}

void AppModel::write(Module module, const std::string& title, const std::vector<ResultRow>& rows)
{
    m_store->addHistory(HistoryEntry {.createdAt = m_clock.now(),
                                      .module = std::string(rawValue(module)),
                                      .title = title,
                                      .summary = summaryOf(rows),
                                      .detail = plainText(rows)});
    ++m_historyToken;
    // Only the newest write's wait clears a message that is still shown.
    if (m_lastSaveMessage)
        scheduleMessageReset();
    Q_EMIT historyTokenChanged();
}

void AppModel::setLastSaveMessage(std::optional<std::string> message)
{
    if (m_lastSaveMessage == message)
        return;
    m_lastSaveMessage = std::move(message);
    Q_EMIT lastSaveMessageChanged();
}

void AppModel::scheduleMessageReset()
{
    m_messageReset = m_clock.after(messageTime, [this] { setLastSaveMessage(std::nullopt); });
}

} // namespace zelta
