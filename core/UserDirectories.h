#pragma once

#include <filesystem>

namespace zelta {

/// The user's home directory: `$HOME`, else the one in the user database, else "/"; on Windows
/// `%USERPROFILE%`.
std::filesystem::path homeDirectory();

/// Where programs keep what belongs to this user: `$XDG_DATA_HOME` when it is an absolute path, else
/// `~/.local/share`; on macOS `~/Library/Application Support`, on Windows `%LOCALAPPDATA%`.
std::filesystem::path dataDirectory();

/// Makes a directory with all that are missing above it, each open to its owner only, as the XDG base
/// directory rules ask. Throws std::system_error.
void createPrivateDirectories(const std::filesystem::path& directory);

/// Makes an empty file that only its owner can read and write. Does nothing where there is one already, where
/// none can be made, and on Windows.
void createPrivateFile(const std::filesystem::path& file);

} // namespace zelta
