#include "core/UserDirectories.h"

#include <cstdlib>
#include <system_error>
#include <vector>

#ifndef _WIN32
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>
#endif

namespace zelta {

namespace {

std::filesystem::path pathFromEnvironment(const char* name)
{
    const char* value = std::getenv(name); // no thread changes it meanwhile
    return value == nullptr ? "" : value;
}

} // namespace

std::filesystem::path homeDirectory()
{
#ifdef _WIN32
    return pathFromEnvironment("USERPROFILE");
#else
    if (std::filesystem::path home = pathFromEnvironment("HOME"); !home.empty())
        return home;
    const passwd* user = getpwuid(getuid()); // asked once, at the start
    return user == nullptr ? "/" : user->pw_dir;
#endif
}

std::filesystem::path dataDirectory()
{
#if defined(_WIN32)
    return pathFromEnvironment("LOCALAPPDATA");
#elif defined(__APPLE__)
    return homeDirectory() / "Library" / "Application Support";
#else
    const std::filesystem::path configured = pathFromEnvironment("XDG_DATA_HOME");
    return configured.is_absolute() ? configured : homeDirectory() / ".local" / "share";
#endif
}

void createPrivateDirectories(const std::filesystem::path& directory)
{
    std::vector<std::filesystem::path> missing;
    for (std::filesystem::path path = directory; !path.empty() && !exists(path); path = path.parent_path())
        missing.push_back(path);
    for (; !missing.empty(); missing.pop_back()) {
        // False: another process was quicker, and the directory is its own.
        std::error_code refusal; // some file systems know no permissions, and hold a database all the same
        if (create_directory(missing.back()))
            permissions(missing.back(), std::filesystem::perms::owner_all, refusal);
    }
    if (!directory.empty() && !is_directory(directory))
        throw std::system_error(std::make_error_code(std::errc::not_a_directory));
}

void createPrivateFile([[maybe_unused]] const std::filesystem::path& file)
{
#ifndef _WIN32
    constexpr int create = O_CREAT | O_RDWR | O_CLOEXEC;
    int made = ::open(file.c_str(), create | O_EXCL, S_IRUSR | S_IWUSR);
    // A link to a file that is still to be made. One that is there is not opened: closing it again would give
    // up the locks that this process has on it.
    std::error_code unknown;
    if (made == -1 && !exists(file, unknown) && !unknown)
        made = ::open(file.c_str(), create, S_IRUSR | S_IWUSR);
    if (made != -1)
        ::close(made);
#endif
}

} // namespace zelta
