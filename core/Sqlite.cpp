#include "core/Sqlite.h"

#include <sqlite3.h>

#include <cassert>

namespace zelta::sqlite {

std::string StoreError::description() const
{
    const std::string_view start
        = kind == Kind::open ? "Could not open the Zelta Basic database: " : "Database error: ";
    return std::string(start) + message;
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

void Statement::bind(int parameter, std::string_view text)
{
    // A null pointer would bind NULL, and an empty view may hold one.
    const char* start = text.empty() ? "" : text.data();
    sqlite3_bind_text64(m_statement.get(), parameter, start, text.substr(0, text.find('\0')).size(),
                        SQLITE_STATIC, SQLITE_UTF8);
}

void Statement::bind(int parameter, std::int64_t value)
{
    sqlite3_bind_int64(m_statement.get(), parameter, value);
}

void Statement::bind(int parameter, double value)
{
    sqlite3_bind_double(m_statement.get(), parameter, value);
}

Step Statement::step()
{
    switch (sqlite3_step(m_statement.get())) {
    case SQLITE_ROW:
        return Step::row;
    case SQLITE_DONE:
        return Step::done;
    default:
        return Step::failed;
    }
}

std::string_view Statement::text(int column) const
{
    // The size first, which makes any value UTF-8; then the bytes as they lie in the page. Asking for a text
    // would copy every value once more, only to put a NUL behind it.
    sqlite3_value* value = sqlite3_column_value(m_statement.get(), column);
    const int size = sqlite3_value_bytes(value);
    const void* start = sqlite3_value_blob(value);
    if (start == nullptr)
        return {};
    return {static_cast<const char*>(start), static_cast<std::size_t>(size)};
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

void Connection::lock()
{
    assert(m_handle);
    sqlite3_mutex_enter(sqlite3_db_mutex(m_handle.get()));
}

void Connection::unlock()
{
    sqlite3_mutex_leave(sqlite3_db_mutex(m_handle.get()));
}

void Connection::Close::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

Connection Connection::open(const std::string& path)
{
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(
        path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, nullptr);
    Connection connection;
    connection.m_handle.reset(handle); // a failed open leaves one, too, which holds the message
    if (handle == nullptr)
        throw StoreError {StoreError::Kind::open, "unknown"};
    if (result != SQLITE_OK)
        throw StoreError {StoreError::Kind::open, sqlite3_errmsg(handle)};
    // The engine takes such a file for reading only, and with the first statement leaves log files beside it
    // that have its mode: they would stop every write once the file itself can be written again.
    if (sqlite3_db_readonly(handle, "main") == 1)
        throw StoreError {StoreError::Kind::sql, sqlite3_errstr(SQLITE_READONLY)};
    return connection;
}

void Connection::waitForLocks(int milliseconds)
{
    sqlite3_busy_timeout(m_handle.get(), milliseconds);
}

void Connection::useWriteAheadLog(int milliseconds)
{
    constexpr int pause = 10;
    for (int waited = 0;; waited += pause) {
        try {
            execute("PRAGMA journal_mode = WAL;");
            return;
        } catch (const StoreError&) {
            if (sqlite3_errcode(m_handle.get()) != SQLITE_BUSY || waited >= milliseconds)
                throw;
            sqlite3_sleep(pause);
        }
    }
}

void Connection::execute(const std::string& script)
{
    if (!m_handle)
        throw StoreError {StoreError::Kind::sql, "no database handle"};
    char* message = nullptr;
    const int result = sqlite3_exec(m_handle.get(), script.c_str(), nullptr, nullptr, &message);
    const std::unique_ptr<char, decltype(&sqlite3_free)> owner(message, sqlite3_free);
    if (result != SQLITE_OK)
        throw StoreError {StoreError::Kind::sql, message == nullptr ? "unknown" : message};
}

Statement Connection::prepare(std::string_view sql)
{
    if (!m_handle)
        throw StoreError {StoreError::Kind::sql, "no database handle"};
    sqlite3_stmt* compiled = nullptr;
    if (sqlite3_prepare_v2(m_handle.get(), sql.data(), static_cast<int>(sql.size()), &compiled, nullptr)
        != SQLITE_OK)
        throw StoreError {StoreError::Kind::sql, sqlite3_errmsg(m_handle.get())};
    Statement statement;
    statement.m_statement.reset(compiled);
    return statement;
}

std::int64_t Connection::lastInsertedRowId() const
{
    return m_handle ? sqlite3_last_insert_rowid(m_handle.get()) : 0;
}

std::string Connection::errorMessage() const
{
    return m_handle ? sqlite3_errmsg(m_handle.get()) : "";
}

} // namespace zelta::sqlite
