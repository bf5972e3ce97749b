#include "core/Store.h"

#include "core/BlockReader.h"
#include "core/Unicode.h"
#include "core/UserDirectories.h"

#include <algorithm>
#include <cmath>
#include <system_error>
#include <utility>

namespace zelta {

namespace {

using sqlite::Statement;
using sqlite::Step;
using sqlite::StoreError;

constexpr int lockTimeout = 1000; // milliseconds

constexpr auto schema = R"(
CREATE TABLE IF NOT EXISTS meta (
    key TEXT PRIMARY KEY,
    value TEXT NOT NULL
);
CREATE TABLE IF NOT EXISTS history (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    created_at REAL NOT NULL,
    module TEXT NOT NULL,
    title TEXT NOT NULL,
    summary TEXT NOT NULL,
    detail TEXT NOT NULL
);
CREATE INDEX IF NOT EXISTS idx_history_created ON history (created_at DESC);
CREATE TABLE IF NOT EXISTS settings (
    key TEXT PRIMARY KEY,
    value TEXT NOT NULL
);
CREATE TABLE IF NOT EXISTS notes (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    created_at REAL NOT NULL,
    updated_at REAL NOT NULL,
    blocks TEXT NOT NULL,
    search TEXT NOT NULL DEFAULT ''
);
CREATE INDEX IF NOT EXISTS idx_notes_updated ON notes (updated_at DESC);
)";

/// Seconds since 1970 UTC, as the columns hold them.
double toSeconds(Instant instant)
{
    return static_cast<double>(instant.time_since_epoch().count()) / 1e6;
}

/// The nearest instant; a file may hold any number.
Instant toInstant(double seconds)
{
    constexpr double limit = 9.2e12; // just inside what an Instant can hold
    return Instant(std::chrono::microseconds(std::llround(std::clamp(seconds, -limit, limit) * 1e6)));
}

HistoryEntry readHistoryEntry(const Statement& row)
{
    return {.id = row.integer(0),
            .createdAt = toInstant(row.real(1)),
            .module = std::string(row.text(2)),
            .title = std::string(row.text(3)),
            .summary = std::string(row.text(4)),
            .detail = std::string(row.text(5))};
}

/// Reads rows of `columns`.
class NoteRows
{
public:
    static constexpr std::string_view columns = "id, created_at, updated_at, blocks";

    Note operator()(const Statement& row)
    {
        return {row.integer(0), m_blocks.read(row.text(3)), toInstant(row.real(1)), toInstant(row.real(2))};
    }

private:
    BlockReader m_blocks;
};

} // namespace

Store::Store(std::optional<std::filesystem::path> location)
    : m_url(location ? *std::move(location) : dataDirectory() / "Zelta Basic" / "zelta-basic.sqlite")
{
    try {
        // Absolute, so that no name can be taken for one with a meaning of its own, such as ":memory:".
        const std::filesystem::path file = absolute(m_url);
        createPrivateDirectories(file.parent_path());
        createPrivateFile(file); // the engine would let everybody read it, and gives its log the same mode
        open(file.string());
        return;
    } catch (const StoreError& error) {
        m_lastError = error.description();
    } catch (const std::system_error& error) {
        m_lastError = error.code().message();
    }
    m_isPersistent = false;
    m_connection = {}; // which may have the file open
    try {
        open(":memory:");
    } catch (const StoreError&) {
        // Without even memory every operation fails and says so by its result.
    }
}

void Store::open(const std::string& path)
{
    m_connection = sqlite::Connection::open(path);
    m_connection.useWriteAheadLog(lockTimeout);
    m_connection.waitForLocks(lockTimeout);
    m_connection.execute("PRAGMA synchronous = NORMAL;");
    m_connection.execute("PRAGMA foreign_keys = ON;");
    m_connection.execute(schema);
    setMeta("schema_version", std::to_string(schemaVersion));
}

void Store::setMeta(std::string_view key, std::string_view value)
{
    if (!run("INSERT INTO meta (key, value) VALUES (?, ?) ON CONFLICT(key) DO UPDATE SET value = "
             "excluded.value;",
             key, value))
        throw StoreError {StoreError::Kind::sql, m_lastError.value_or("meta write failed")};
}

template <class... Values> bool Store::run(std::string_view sql, const Values&... values)
{
    const std::lock_guard guard(m_lock);
    try {
        Statement statement = m_connection.prepare(sql);
        int parameter = 0;
        (statement.bind(++parameter, values), ...);
        if (statement.step() != Step::failed)
            return true;
        m_lastError = m_connection.errorMessage();
    } catch (const StoreError& error) {
        m_lastError = error.description();
    }
    return false;
}

template <class Row, class Read, class... Values>
std::vector<Row> Store::select(std::string_view sql, std::int64_t expected, Read&& read,
                               const Values&... values)
{
    constexpr std::int64_t atMostExpected = 1000; // a limit may be any number
    const std::lock_guard guard(m_lock);
    std::vector<Row> rows;
    rows.reserve(static_cast<std::size_t>(std::min(expected, atMostExpected)));
    try {
        Statement statement = m_connection.prepare(sql);
        const std::lock_guard reading(m_connection);
        int parameter = 0;
        (statement.bind(++parameter, values), ...);
        while (statement.step() == Step::row)
            rows.push_back(read(statement));
    } catch (const StoreError& error) {
        m_lastError = error.description();
    } catch (const std::bad_alloc&) {
        m_lastError = "out of memory";
    }
    return rows;
}

bool Store::addHistory(const HistoryEntry& entry)
{
    return run("INSERT INTO history (created_at, module, title, summary, detail)\n"
               "VALUES (?, ?, ?, ?, ?);",
               toSeconds(entry.createdAt), entry.module, entry.title, entry.summary, entry.detail);
}

std::vector<HistoryEntry> Store::history(std::int64_t limit)
{
    limit = std::max<std::int64_t>(limit, 1);
    return select<HistoryEntry>("SELECT id, created_at, module, title, summary, detail\n"
                                "FROM history ORDER BY created_at DESC, id DESC LIMIT ?;",
                                limit, readHistoryEntry, limit);
}

bool Store::deleteHistory(std::int64_t id)
{
    return run("DELETE FROM history WHERE id = ?;", id);
}

bool Store::clearHistory()
{
    return run("DELETE FROM history;");
}

std::optional<Note> Store::createNote(const Note& note)
{
    // Held over both steps, so that the id is that of this row and not of another thread's.
    const std::lock_guard guard(m_lock);
    Note created = note; // before the row is there: a copy may find no memory
    if (!run("INSERT INTO notes (created_at, updated_at, blocks, search)\nVALUES (?, ?, ?, ?);",
             toSeconds(note.createdAt), toSeconds(note.updatedAt), note.encodedBlocks(), note.searchText()))
        return std::nullopt;
    created.id = m_connection.lastInsertedRowId();
    return created;
}

bool Store::updateNote(const Note& note)
{
    return run("UPDATE notes SET updated_at = ?, blocks = ?, search = ? WHERE id = ?;",
               toSeconds(note.updatedAt), note.encodedBlocks(), note.searchText(), note.id);
}

bool Store::deleteNote(std::int64_t id)
{
    return run("DELETE FROM notes WHERE id = ?;", id);
}

template <class Row, class Read>
std::vector<Row> Store::selectNotes(std::string_view columns, std::string_view search, std::int64_t limit,
                                    Read&& read)
{
    const std::string text = Unicode::lowerCase(Unicode::trim(search));
    std::string sql = "SELECT " + std::string(columns) + " FROM notes";
    if (!text.empty())
        sql += " WHERE search LIKE ?";
    sql += " ORDER BY updated_at DESC, id DESC LIMIT ?;";
    limit = std::max<std::int64_t>(limit, 1);
    return text.empty() ? select<Row>(sql, limit, std::forward<Read>(read), limit)
                        : select<Row>(sql, limit, std::forward<Read>(read), '%' + text + '%', limit);
}

std::vector<Note> Store::notes(std::string_view search, std::int64_t limit)
{
    return selectNotes<Note>(NoteRows::columns, search, limit, NoteRows());
}

std::vector<NoteStamp> Store::noteStamps(std::string_view search, std::int64_t limit)
{
    if (!Unicode::trim(search).empty()) {
        return selectNotes<NoteStamp>("id, updated_at", search, limit, [](const Statement& row) {
            return NoteStamp {.id = row.integer(0), .updatedAt = toInstant(row.real(1))};
        });
    }
    // The index has the notes of one time by rising ids. Asked for falling ones, the engine would sort each
    // time apart, which takes several times as long as reading; so they are turned round here.
    using Row = std::pair<std::int64_t, double>;
    limit = std::max<std::int64_t>(limit, 1);
    std::vector<Row> rows = select<Row>(
        "SELECT id, updated_at FROM notes WHERE updated_at >= coalesce("
        "(SELECT updated_at FROM notes ORDER BY updated_at DESC LIMIT 1 OFFSET ?), -9e999) "
        "ORDER BY updated_at DESC, id;",
        limit, [](const Statement& row) { return Row(row.integer(0), row.real(1)); }, limit - 1);
    for (auto first = rows.begin(), end = first; first != rows.end(); first = end) {
        end = std::find_if(first, rows.end(),
                           [first](const Row& row) { return row.second != first->second; });
        std::reverse(first, end);
    }
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(limit)));
    std::vector<NoteStamp> stamps;
    stamps.reserve(rows.size());
    for (const auto& [id, time] : rows)
        stamps.push_back({.id = id, .updatedAt = toInstant(time)});
    return stamps;
}

std::optional<Note> Store::note(std::int64_t id)
{
    const std::string sql = "SELECT " + std::string(NoteRows::columns) + " FROM notes WHERE id = ?;";
    std::vector<Note> found = select<Note>(sql, 1, NoteRows(), id);
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

std::optional<std::string> Store::setting(std::string_view key)
{
    std::vector<std::string> found = select<std::string>(
        "SELECT value FROM settings WHERE key = ?;", 1,
        [](const Statement& row) { return std::string(row.text(0)); }, key);
    return found.empty() ? std::nullopt : std::optional(std::move(found.front()));
}

bool Store::setting(std::string_view key, bool fallback)
{
    const std::optional<std::string> text = setting(key);
    return text ? *text == "1" || Unicode::lowerCase(*text) == "true" : fallback;
}

bool Store::setSetting(std::string_view key, std::string_view value)
{
    return run("INSERT INTO settings (key, value) VALUES (?, ?) ON CONFLICT(key) DO UPDATE SET value = "
               "excluded.value;",
               key, value);
}

std::optional<std::string> Store::lastError() const
{
    const std::lock_guard guard(m_lock);
    return m_lastError;
}

} // namespace zelta
