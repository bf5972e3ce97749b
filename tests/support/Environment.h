#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace zelta::test {

/// Sets an environment variable, or removes it, for the length of a scope.
class Environment
{
public:
    Environment(const char* name, const std::optional<std::string>& value)
        : m_name(name)
    {
        if (const char* before = std::getenv(name))
            m_before = before;
        set(value);
    }
    ~Environment() { set(m_before); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    void set(const std::optional<std::string>& value) const
    {
        if (value)
            setenv(m_name.c_str(), value->c_str(), 1);
        else
            unsetenv(m_name.c_str());
    }

    std::string m_name;
    std::optional<std::string> m_before;
};

} // namespace zelta::test
