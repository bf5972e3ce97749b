#pragma once

#include <algorithm>
#include <chrono>

namespace zelta {

/// How long to wait before the next search, so that searching a large database never keeps up with the keys
/// by blocking them: a search that fits into a frame runs at each key, a longer one when the typing has had
/// as much time as the search takes. Keys that come while one is due are one search.
class SearchPace
{
public:
    static constexpr std::chrono::milliseconds frame {16};
    static constexpr std::chrono::milliseconds longestWait {500};

    /// A search has just taken this long.
    void took(std::chrono::microseconds duration)
    {
        m_wait = duration <= frame
            ? std::chrono::milliseconds(0)
            : std::min(std::chrono::ceil<std::chrono::milliseconds>(duration), longestWait);
    }

    /// Zero when the next search may run at once.
    [[nodiscard]] std::chrono::milliseconds wait() const { return m_wait; }

private:
    std::chrono::milliseconds m_wait {};
};

} // namespace zelta
