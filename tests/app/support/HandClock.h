#pragma once

#include "app/model/Clock.h"

#include <list>
#include <memory>

namespace zelta::test {

/// A clock that moves only when told to: delays are tested to the millisecond, without waiting.
class HandClock final : public Clock
{
public:
    /// Saturday, 7 March 2026, 12:00:00 UTC.
    static constexpr Instant noon = Instant(std::chrono::seconds(1'772'884'800));

    [[nodiscard]] Instant now() const override { return m_now; }

    /// Moves time on, running what falls due in the order in which it falls due.
    void advance(std::chrono::milliseconds duration);

    /// Somebody sets the wall clock: delays do not notice.
    void setWallClock(Instant now) { m_now = now; }

protected:
    std::shared_ptr<void> schedule(std::chrono::milliseconds delay, Fire fire) override;

private:
    struct Alarm
    {
        std::chrono::microseconds due {};
        Fire fire;
    };

    Instant m_now = noon;
    std::chrono::microseconds m_elapsed {};
    std::list<Alarm> m_alarms;
};

} // namespace zelta::test
