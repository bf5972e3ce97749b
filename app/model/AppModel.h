#pragma once

#include "app/model/Clock.h"
#include "app/model/Module.h"
#include "core/CalendarKit.h"
#include "core/DateOptions.h"
#include "core/Instant.h"
#include "core/ResultRow.h"
#include "core/Store.h"
#include "core/WeekendRule.h"

#include <QObject>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zelta {

/// The one shared state of the running program: which page is shown, the user's weekend rule and clock
/// format, and the only way in which a page puts a calculation into the history. Settings are stored the
/// moment they change; restoring them never writes. A storage failure never reaches the user: the model goes
/// on, the database stays.
class AppModel final : public QObject
{
    Q_OBJECT

public:
    /// Restores page, weekend and clock format from the store's settings. The clock must outlive the model.
    AppModel(std::unique_ptr<Store> store, Clock& clock, QObject* parent = nullptr);

    /// Opens the database at the path given on the command line, a leading "~" standing for the home
    /// directory; at the store's default location when none or only blanks were given.
    static std::unique_ptr<Store> launchStore(const std::optional<std::string>& path);

    Store& store() { return *m_store; }
    Clock& clock() { return m_clock; }

    [[nodiscard]] Module selection() const { return m_selection; }
    /// Counts the writes to the history made through this model, successful or not.
    [[nodiscard]] std::int64_t historyToken() const { return m_historyToken; }
    /// "Saved to history" for two seconds after a manual save, else nothing.
    [[nodiscard]] const std::optional<std::string>& lastSaveMessage() const { return m_lastSaveMessage; }
    [[nodiscard]] const std::string& weekendPresetID() const { return m_weekendPresetID; }
    [[nodiscard]] bool use24Hour() const { return m_use24Hour; }

    /// The rule of the chosen preset; Saturday and Sunday when the stored id names none.
    [[nodiscard]] WeekendRule weekendRule() const;
    /// Name of the system's current time zone (IANA, or the path of a zone file), read anew at each use.
    [[nodiscard]] std::string timeZoneIdentifier() const;
    /// The calendar of every date computation, in the system's current time zone.
    [[nodiscard]] Calendar calendar() const;
    /// The zone and the weekend of this moment.
    [[nodiscard]] DateOptions dateOptions() const;
    /// The first moment of the current civil day.
    [[nodiscard]] Instant today() const;
    /// How long until the next one begins; a minute where the clocks go back over its beginning.
    [[nodiscard]] std::chrono::milliseconds untilMidnight() const;
    /// Time of day in the user's clock format, without seconds: "9:05 AM" or "09:05".
    [[nodiscard]] std::string clockText(Instant instant) const { return clockText(instant, calendar()); }
    [[nodiscard]] std::string clockText(Instant instant, const Calendar& calendar) const;
    /// The line under a page's title.
    [[nodiscard]] std::string subtitle(Module module) const;

    void setSelection(Module module);
    void setWeekendPresetID(std::string id);
    void setUse24Hour(bool use24Hour);

    /// Writes one history entry now and announces it for two seconds. No rows, no entry.
    void record(Module module, const std::string& title, const std::vector<ResultRow>& rows);

    /// Writes one history entry when this result has stood still for 1.5 seconds, unless it is the one that
    /// was written so last. Each different result starts the wait anew.
    void autoRecord(Module module, const std::string& title, const std::vector<ResultRow>& rows);

Q_SIGNALS:
    void selectionChanged();
    void historyTokenChanged();
    void lastSaveMessageChanged();
    void weekendRuleChanged();
    void use24HourChanged();

private:
    void write(Module module, const std::string& title, const std::vector<ResultRow>& rows);
    void setLastSaveMessage(std::optional<std::string> message);
    void scheduleMessageReset();

    std::unique_ptr<Store> m_store;
    Clock& m_clock;
    Module m_selection = Module::calculator;
    std::string m_weekendPresetID;
    bool m_use24Hour = false;
    std::int64_t m_historyToken = 0;
    std::optional<std::string> m_lastSaveMessage;
    std::string m_lastAutoSavedDetail;
    Clock::Task m_autoSaveTask;
    Clock::Task m_messageReset;
};

} // namespace zelta
