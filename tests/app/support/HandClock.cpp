#include "tests/app/support/HandClock.h"

#include <algorithm>
#include <utility>

namespace zelta::test {

void HandClock::advance(std::chrono::milliseconds duration)
{
    const auto end = m_elapsed + duration;
    while (true) {
        const auto next = std::ranges::min_element(m_alarms, {}, &Alarm::due);
        if (next == m_alarms.end() || next->due > end)
            break;
        m_now += next->due - m_elapsed;
        m_elapsed = next->due;
        const Fire fire = std::move(next->fire);
        m_alarms.erase(next);
        fire();
    }
    m_now += end - m_elapsed;
    m_elapsed = end;
}

std::shared_ptr<void> HandClock::schedule(std::chrono::milliseconds delay, Fire fire)
{
    // An alarm that was called off stays in the list and finds nothing left to run.
    m_alarms.push_back({m_elapsed + delay, std::move(fire)});
    return nullptr;
}

} // namespace zelta::test
