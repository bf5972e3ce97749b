#include "app/model/LaunchArguments.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace zelta {
namespace {

constexpr std::string_view databaseOption = "-ZeltaBasicDatabase";

/// In one line, and nothing that a terminal would obey.
std::string shown(std::string text)
{
    std::ranges::replace_if(
        text, [](unsigned char byte) { return byte < ' ' || byte == 0x7f; }, '?');
    return text;
}

} // namespace

LaunchArguments parseLaunchArguments(std::span<const char* const> arguments)
{
    using Request = LaunchArguments::Request;
    LaunchArguments result;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == databaseOption && i + 1 < arguments.size()) {
            result.database = arguments[++i];
        } else if (argument == databaseOption) {
            result.complaint = "zelta-basic: -ZeltaBasicDatabase needs a path; using the default location";
            result.database.reset();
        } else if (argument == "--version" || argument == "--help") {
            if (result.request == Request::run)
                result.request = argument == "--help" ? Request::help : Request::version;
        } else {
            result.request = Request::refuse;
            result.complaint
                = "zelta-basic: unknown option '" + shown(std::string(argument)) + "'; see --help";
            return result;
        }
    }
    return result;
}

} // namespace zelta
