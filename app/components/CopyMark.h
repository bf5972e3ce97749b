#pragma once

#include "app/model/Clock.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zelta {

/// Which of several copyable things shows a check mark: the one copied last, for half a second from its own
/// copy.
class CopyMark
{
public:
    /// `changed` is called each time another thing is marked and when the mark goes.
    CopyMark(Clock& clock, std::function<void()> changed);

    void set(std::string key);
    [[nodiscard]] bool isOn(std::string_view key) const;

private:
    Clock& m_clock;
    std::function<void()> m_changed;
    std::optional<std::string> m_key;
    Clock::Task m_reset;
};

} // namespace zelta
