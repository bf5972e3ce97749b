#pragma once

#include <filesystem>

namespace zelta {

/// The user's home directory: `$HOME`, else the one that the user database names.
std::filesystem::path homeDirectory();

/// Where programs keep what belongs to this user: `$XDG_DATA_HOME` when it is an absolute path, else
/// `~/.local/share`; on macOS `~/Library/Application Support`, on Windows `%LOCALAPPDATA%`.
std::filesystem::path dataDirectory();

/// Makes a directory with all that are missing above it, each readable by its owner only, as the XDG base
/// directory rules ask. Throws std::system_error.
void createPrivateDirectories(const std::filesystem::path& directory);

/// Makes an empty file that its owner only can read and write. Does nothing where there is one, or none can
/// be made.
void createPrivateFile(const std::filesystem::path& file);

} // namespace zelta
