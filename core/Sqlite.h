#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// SQLite's C interface as two owners: a connection and a statement. Opening, executing and preparing throw
/// `StoreError`; a step returns its failure, and `Connection::errorMessage` has the text.
namespace zelta::sqlite {

/// What went wrong; the description reads "Database error: database is locked".
struct StoreError
{
    enum class Kind { open, sql };

    Kind kind;
    std::string message; ///< The engine's own text.

    [[nodiscard]] std::string description() const;
};

/// What one step of a statement gave.
enum class Step { row, done, failed };

/// A compiled statement. Parameters count from 1, columns from 0, as in SQL's C interface. Bound texts are
/// not copied: they must live until the last step.
class Statement
{
public:
    /// Binds a text up to its first NUL, if it has one.
    void bind(int parameter, std::string_view text);
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, double value);

    Step step();

    /// Columns of the current row, to be read while the connection is locked. A NULL reads as "", 0 or 0.0.
    /// The text lives until the next step.
    [[nodiscard]] std::string_view text(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;

private:
    friend class Connection;
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/// An open database, or none: a default-constructed one has no handle. Without one statements and scripts
/// fail, and a function that needs a handle must not be called.
class Connection
{
public:
    /// Opens, and creates when missing, for reading and writing in serialized mode; what can only be read is
    /// an error. `path` is absolute UTF-8 or ":memory:". A lock held elsewhere fails a statement at once,
    /// until `waitForLocks`. Throws StoreError.
    static Connection open(const std::string& path);

    /// Lets every statement from now on wait for a lock, for at most so many milliseconds. Needs a handle.
    void waitForLocks(int milliseconds);

    /// Runs a script without parameters. Throws StoreError.
    void execute(const std::string& script);

    /// Switches to a write-ahead log, trying for at most so many milliseconds: where two connections want
    /// this of a new file at once the engine refuses one of them without waiting. Throws StoreError.
    void useWriteAheadLog(int milliseconds);

    /// Compiles one statement. Throws StoreError.
    Statement prepare(std::string_view sql);

    /// Holds the engine's own mutex, which each of its functions takes; taken again by the thread that has
    /// it, it costs next to nothing. For `std::lock_guard` around the reading of many rows. Needs a handle.
    void lock();
    void unlock();

    [[nodiscard]] std::int64_t lastInsertedRowId() const; ///< 0 without a handle.
    [[nodiscard]] std::string errorMessage() const; ///< Of the most recent failure; empty without a handle.

private:
    struct Close
    {
        void operator()(sqlite3* handle) const;
    };
    std::unique_ptr<sqlite3, Close> m_handle;
};

} // namespace zelta::sqlite
