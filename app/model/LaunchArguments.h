#pragma once

#include <optional>
#include <span>
#include <string>

namespace zelta {

/// What the command line asks for: `zelta-basic [-ZeltaBasicDatabase PATH] [--version] [--help]`.
struct LaunchArguments
{
    enum class Request { run, version, help, refuse };

    Request request = Request::run;
    std::optional<std::string> database; ///< As given; the last one where it is given twice.
    std::optional<std::string> complaint; ///< One line for standard error.

    friend bool operator==(const LaunchArguments&, const LaunchArguments&) = default;
};

/// Reads the arguments that follow the program's name. A database option without its path is complained
/// about, and the default location is used; any other option is refused.
LaunchArguments parseLaunchArguments(std::span<const char* const> arguments);

} // namespace zelta
