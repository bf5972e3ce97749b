#include "app/components/CopyMark.h"

#include <utility>

namespace zelta {

CopyMark::CopyMark(Clock& clock, std::function<void()> changed)
    : m_clock(clock)
    , m_changed(std::move(changed))
{ }

void CopyMark::set(std::string key)
{
    using namespace std::chrono_literals;
    m_key = std::move(key);
    m_reset = m_clock.after(500ms, [this] {
        m_key.reset();
        m_changed();
    });
    m_changed();
}

bool CopyMark::isOn(std::string_view key) const
{
    return m_key == key;
}

} // namespace zelta
