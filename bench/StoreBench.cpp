#include "bench/Ratio.h"
#include "core/Store.h"
#include "tests/support/TemporaryDirectory.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace zelta;

/// One database of the size that the pages read, made once.
class Fixture
{
public:
    Fixture()
    {
        sqlite3_open(file.c_str(), &bare);
        sqlite3_exec(bare, "PRAGMA synchronous = NORMAL;", nullptr, nullptr, nullptr);
        for (int i = 0; i < 500; ++i)
            store.addHistory(entry(i));
        for (int i = 0; i < 1000; ++i)
            store.createNote(note(i, 2000));
    }
    ~Fixture() { sqlite3_close_v2(bare); }
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;

    static HistoryEntry entry(int number)
    {
        return {0,
                Instant(std::chrono::seconds(1'700'000'000 + number)),
                "percent",
                std::to_string(number) + " compared with 75",
                "Change X → Y: +50%",
                "Change X → Y: +50%  (increase)\nX as a share of Y: 66.666667%\nY as a share of X: 150%\n"
                "Amount of the change: 25"};
    }

    /// Words in paragraphs of 300 characters or so.
    static Note note(int number, std::size_t size)
    {
        std::mt19937 random(static_cast<unsigned>(number));
        std::vector<NoteBlock> blocks;
        for (std::size_t written = 0; written < size; written += blocks.back().text.size()) {
            NoteBlock block;
            while (block.text.size() < 300) {
                for (auto letters = 2 + random() % 8; letters > 0; --letters)
                    block.text += static_cast<char>('a' + random() % 26);
                block.text += random() % 12 == 0 ? '\n' : ' ';
            }
            blocks.push_back(std::move(block));
        }
        const Instant time(std::chrono::seconds(1'700'000'000 + number));
        return {0, std::move(blocks), time, time};
    }

    test::TemporaryDirectory directory;
    std::filesystem::path file = directory / "zelta.sqlite";
    Store store {file};
    sqlite3* bare = nullptr;
};

/// A file of many notes, written in one transaction, with a second connection to it.
class ManyNotes
{
public:
    ManyNotes()
    {
        sqlite3_open(file.c_str(), &bare);
        sqlite3_exec(bare, "BEGIN;", nullptr, nullptr, nullptr);
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(bare,
                           "INSERT INTO notes (created_at, updated_at, blocks, search) VALUES (1, ?, ?, ?);",
                           -1, &insert, nullptr);
        for (int i = 0; i < 100'000; ++i) {
            const Note note = Fixture::note(i, 1000);
            const std::string blocks = note.encodedBlocks();
            const std::string search = note.searchText();
            sqlite3_bind_int(insert, 1, i);
            sqlite3_bind_text(insert, 2, blocks.data(), static_cast<int>(blocks.size()), SQLITE_STATIC);
            sqlite3_bind_text(insert, 3, search.data(), static_cast<int>(search.size()), SQLITE_STATIC);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        sqlite3_exec(bare, "COMMIT;", nullptr, nullptr, nullptr);
    }
    ~ManyNotes() { sqlite3_close_v2(bare); }
    ManyNotes(const ManyNotes&) = delete;
    ManyNotes& operator=(const ManyNotes&) = delete;

    test::TemporaryDirectory directory;
    std::filesystem::path file = directory / "zelta.sqlite";
    Store store {file};
    sqlite3* bare = nullptr;
};

Fixture& fixture()
{
    static Fixture one;
    return one;
}

ManyNotes& manyNotes()
{
    static ManyNotes one;
    return one;
}

enum class Columns { untouched, read };

/// Steps a query to its end; `Columns::untouched` is as quick as the engine can give rows at all.
void stepThrough(sqlite3* database, std::string_view sql, Columns columns, benchmark::State& state)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    int rows = 0;
    for (; sqlite3_step(statement) == SQLITE_ROW; ++rows) {
        for (int column = 0; columns == Columns::read && column < sqlite3_column_count(statement); ++column)
            benchmark::DoNotOptimize(sqlite3_column_blob(statement, column));
    }
    sqlite3_finalize(statement);
    if (rows == 0)
        state.SkipWithError("no rows");
}

constexpr std::string_view historyQuery = "SELECT id, created_at, module, title, summary, detail\n"
                                          "FROM history ORDER BY created_at DESC, id DESC LIMIT 500;";
constexpr std::string_view notesQuery
    = "SELECT id, created_at, updated_at, blocks FROM notes ORDER BY updated_at DESC, id DESC LIMIT 1000;";
constexpr std::string_view searchQuery
    = "SELECT id, created_at, updated_at, blocks FROM notes WHERE search LIKE '%qzxj%' "
      "ORDER BY updated_at DESC, id DESC LIMIT 1000;";

void historyOurs(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fixture().store.history(500));
}

void notesOurs(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fixture().store.notes("", 1000));
}

void searchOurs(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(manyNotes().store.notes("QZXJ ", 1000));
}

void searchBare(benchmark::State& state)
{
    for (auto _ : state)
        stepThrough(manyNotes().bare, searchQuery, Columns::untouched, state);
}

void addOurs(benchmark::State& state)
{
    const test::TemporaryDirectory directory;
    Store store(directory / "zelta.sqlite");
    const HistoryEntry entry = Fixture::entry(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(store.addHistory(entry));
}

void addBare(benchmark::State& state)
{
    const test::TemporaryDirectory directory;
    const std::filesystem::path file = directory / "zelta.sqlite";
    {
        const Store schema(file);
    }
    const HistoryEntry entry = Fixture::entry(1);
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    sqlite3_exec(database, "PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON;", nullptr, nullptr,
                 nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(
        database, "INSERT INTO history (created_at, module, title, summary, detail) VALUES (?, ?, ?, ?, ?);",
        -1, &insert, nullptr);
    const auto bind = [&](int parameter, const std::string& text) {
        sqlite3_bind_text(insert, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    };
    for (auto _ : state) {
        sqlite3_bind_double(insert, 1, 1.7e9);
        bind(2, entry.module);
        bind(3, entry.title);
        bind(4, entry.summary);
        bind(5, entry.detail);
        benchmark::DoNotOptimize(sqlite3_step(insert));
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_close_v2(database);
}

template <Columns columns> void historyBare(benchmark::State& state)
{
    for (auto _ : state)
        stepThrough(fixture().bare, historyQuery, columns, state);
}

template <Columns columns> void notesBare(benchmark::State& state)
{
    for (auto _ : state)
        stepThrough(fixture().bare, notesQuery, columns, state);
}

BENCHMARK(historyOurs)->Name("store-history/ours");
BENCHMARK(historyBare<Columns::untouched>)->Name("store-history/bare-steps");
BENCHMARK(historyBare<Columns::read>)->Name("store-history/bare-values");
const bench::Budget historyBudget("store-history", 1.3);

BENCHMARK(notesOurs)->Name("store-notes/ours");
BENCHMARK(notesBare<Columns::untouched>)->Name("store-notes/bare-steps");
BENCHMARK(notesBare<Columns::read>)->Name("store-notes/bare-values");
const bench::Budget notesBudget("store-notes", 2.0);

BENCHMARK(addOurs)->Name("store-add/ours");
BENCHMARK(addBare)->Name("store-add/bare");
const bench::Budget addBudget("store-add", 1.2);

BENCHMARK(searchOurs)->Name("store-search-100000/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(searchBare)->Name("store-search-100000/bare")->Unit(benchmark::kMillisecond);
const bench::Budget searchBudget("store-search-100000", 1.3);

} // namespace
