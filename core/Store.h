#pragma once

#include "core/HistoryEntry.h"
#include "core/Note.h"
#include "core/Sqlite.h"

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelta {

/// Everything that outlives a run: settings, history and notes, in one SQLite file. Each operation is one
/// statement, so it happens whole or not at all, and once it has returned true it survives the end of the
/// process however that comes. A file that cannot be opened is replaced by a database in memory, so that the
/// program goes on, and forgets only when it ends.
///
/// No operation throws, but for std::bad_alloc where there is no memory for what is to be written. One that
/// fails returns false, nothing or an empty list and leaves the reason in `lastError()`; a read that breaks
/// off under way gives the rows so far, and no reason. All may be called from any thread. One that meets
/// another process's lock waits for at most one second.
class Store
{
public:
    static constexpr int schemaVersion = 1;

    /// Opens the file, making it and the directories above it when they are missing; without a location,
    /// "Zelta Basic/zelta-basic.sqlite" in the user's data directory. Never fails.
    explicit Store(std::optional<std::filesystem::path> location);
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    /// The entry's id is ignored; the row gets the next free one.
    bool addHistory(const HistoryEntry& entry);
    /// Newest first, by time, then id; a limit below 1 reads 1.
    std::vector<HistoryEntry> history(std::int64_t limit);
    /// True also when no entry has the id.
    bool deleteHistory(std::int64_t id);
    bool clearHistory();

    /// A copy of the note with its new id; nothing when it could not be written.
    std::optional<Note> createNote(const Note& note);
    /// Writes blocks and `updatedAt`; the time of creation stays. True also when no note has the id.
    bool updateNote(const Note& note);
    /// True also when no note has the id.
    bool deleteNote(std::int64_t id);
    /// Most recently updated first, by time, then id; a limit below 1 reads 1. A search text, trimmed and in
    /// lower case, selects the notes whose title or text contains it; % and _ in it match any run and any one
    /// character.
    std::vector<Note> notes(std::string_view search, std::int64_t limit);
    /// The notes that `notes` gives, in its order. Without a search no note's text is read for it.
    std::vector<NoteStamp> noteStamps(std::string_view search, std::int64_t limit);
    std::optional<Note> note(std::int64_t id);

    std::optional<std::string> setting(std::string_view key);
    /// True for "1" and for "true" in any letter case, false for any other text; `fallback` where there is
    /// none.
    bool setting(std::string_view key, bool fallback);
    bool setSetting(std::string_view key, std::string_view value);
    /// Stored as "1" or "0". Only for a bool itself: a string literal would rather become one than a view.
    bool setSetting(std::string_view key, std::same_as<bool> auto value)
    {
        return setSetting(key, value ? std::string_view("1") : std::string_view("0"));
    }

    /// The file that was asked for, whether or not it could be opened.
    const std::filesystem::path& url() const { return m_url; }
    /// False when all is kept in memory only.
    bool isPersistent() const { return m_isPersistent; }
    /// Reason for the most recent failure; a later success does not clear it.
    std::optional<std::string> lastError() const;

private:
    void open(const std::string& path);
    void setMeta(std::string_view key, std::string_view value);
    template <class... Values> bool run(std::string_view sql, const Values&... values);
    template <class Row, class Read, class... Values>
    std::vector<Row> select(std::string_view sql, std::int64_t expected, Read&& read,
                            const Values&... values);
    template <class Row, class Read>
    std::vector<Row> selectNotes(std::string_view columns, std::string_view search, std::int64_t limit,
                                 Read&& read);

    mutable std::recursive_mutex m_lock; ///< Guards the connection and the error text.
    sqlite::Connection m_connection;
    std::filesystem::path m_url;
    bool m_isPersistent = true;
    std::optional<std::string> m_lastError;
};

} // namespace zelta
