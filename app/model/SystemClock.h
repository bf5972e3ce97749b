#pragma once

#include "app/model/Clock.h"

namespace zelta {

/// The real clock: the system's wall clock, and precise Qt timers (coarse ones may be 5 % off). Those stand
/// still while the computer sleeps, which matters to a long delay: the kernel has a clock for it that does
/// not.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] Instant now() const override;

protected:
    std::shared_ptr<void> schedule(std::chrono::milliseconds delay, Fire fire) override;
};

} // namespace zelta
