#include "core/Store.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Environment.h"
#include "tests/support/Oracle.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using std::filesystem::path;

const HistoryEntry someEntry {0, Instant(1s), "percent", "title", "summary", "detail"};

std::string contents(const path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const path& file, std::string_view text)
{
    std::ofstream(file, std::ios::binary) << text;
}

std::string ask(const path& file, const std::string& sql)
{
    return test::Oracle("core/sqlite_oracle.py", {file.string()}).ask({sql}).front();
}

mode_t modeOf(const path& file)
{
    struct stat status
    { };
    stat(file.c_str(), &status);
    return status.st_mode & 0777U;
}

class StoreFile : public testing::Test
{
protected:
    /// Works as any store does, but keeps nothing.
    static void expectInMemory(Store& store, const path& asked)
    {
        EXPECT_FALSE(store.isPersistent());
        EXPECT_EQ(store.url(), asked);
        EXPECT_TRUE(store.addHistory(someEntry));
        EXPECT_EQ(store.history(500).size(), 1U);
        EXPECT_TRUE(store.setSetting("module", "notes"));
        EXPECT_EQ(store.setting("module"), "notes");
        EXPECT_TRUE(store.createNote(Note(0, {}, {}, {})));
    }

    test::TemporaryDirectory directory;
    path file = directory / "zelta.sqlite";
};

TEST_F(StoreFile, MakesMissingDirectoriesForItsOwnerOnly)
{
    const path nested = directory / "one/two/zelta.sqlite";
    const Store store(nested);
    EXPECT_TRUE(store.isPersistent());
    EXPECT_TRUE(exists(nested));
    EXPECT_EQ(modeOf(directory / "one"), 0700U);
    EXPECT_EQ(modeOf(directory / "one/two"), 0700U);
}

TEST_F(StoreFile, IsReadableByItsOwnerOnlyWhereverItLies)
{
    const mode_t before = umask(0);
    const Store store(file);
    umask(before);
    for (const char* part : {"", "-wal", "-shm"})
        EXPECT_EQ(modeOf(file.string() + part), 0600U) << part;
}

TEST_F(StoreFile, IsReadableByItsOwnerOnlyBehindALinkAsWell)
{
    const path link = directory / "link.sqlite";
    create_symlink(file, link);
    const mode_t before = umask(0);
    const Store store(link);
    umask(before);
    EXPECT_TRUE(store.isPersistent());
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(StoreFile, LeavesTheRightsOfAnExistingFile)
{
    write(file, "");
    chmod(file.c_str(), 0640);
    const Store store(file);
    EXPECT_TRUE(store.isPersistent());
    EXPECT_EQ(modeOf(file), 0640U);
}

TEST_F(StoreFile, LeavesExistingDirectoriesAsTheyAre)
{
    create_directory(directory / "open");
    chmod((directory / "open").c_str(), 0755);
    const Store store(directory / "open/zelta.sqlite");
    EXPECT_TRUE(store.isPersistent());
    EXPECT_EQ(modeOf(directory / "open"), 0755U);
}

TEST_F(StoreFile, LiesInTheDataDirectoryByDefault)
{
    const test::Environment data("XDG_DATA_HOME", (directory / "data").string());
    const Store store(std::nullopt);
    EXPECT_EQ(store.url(), directory / "data/Zelta Basic/zelta-basic.sqlite");
    EXPECT_TRUE(store.isPersistent());
    EXPECT_EQ(modeOf(directory / "data/Zelta Basic"), 0700U);
}

TEST_F(StoreFile, IgnoresADataDirectoryThatIsNotAbsolute)
{
    const test::Environment home("HOME", directory.path().string());
    for (const char* value : {"", "data", "./data", "~/data"}) {
        const test::Environment data("XDG_DATA_HOME", value);
        const Store store(std::nullopt);
        EXPECT_EQ(store.url(), directory / ".local/share/Zelta Basic/zelta-basic.sqlite") << value;
        EXPECT_TRUE(exists(store.url()));
    }
}

TEST_F(StoreFile, TakesNoNameForAMeaning)
{
    const path before = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    for (const char* name : {":memory:", "file:x?mode=memory", "plain", "with blank ü 漢.sqlite"}) {
        Store store {path(name)};
        EXPECT_EQ(store.url(), name) << "as it was asked for";
        EXPECT_TRUE(store.addHistory(someEntry));
        EXPECT_TRUE(exists(directory / name)) << name;
    }
    std::filesystem::current_path(before);
}

TEST_F(StoreFile, HasTheSchemaThatOtherProgramsExpect)
{
    Store store(file);
    const auto columns = [&](const std::string& table) {
        return ask(file,
                   "SELECT name, type, \"notnull\", dflt_value, pk FROM pragma_table_info('" + table + "')");
    };
    EXPECT_EQ(columns("meta"), R"([["key", "TEXT", 0, null, 1], ["value", "TEXT", 1, null, 0]])");
    EXPECT_EQ(columns("settings"), columns("meta"));
    EXPECT_EQ(columns("history"),
              R"([["id", "INTEGER", 0, null, 1], ["created_at", "REAL", 1, null, 0], )"
              R"(["module", "TEXT", 1, null, 0], ["title", "TEXT", 1, null, 0], )"
              R"(["summary", "TEXT", 1, null, 0], ["detail", "TEXT", 1, null, 0]])");
    EXPECT_EQ(columns("notes"),
              R"([["id", "INTEGER", 0, null, 1], ["created_at", "REAL", 1, null, 0], )"
              R"(["updated_at", "REAL", 1, null, 0], ["blocks", "TEXT", 1, null, 0], )"
              R"(["search", "TEXT", 1, "''", 0]])");
    EXPECT_EQ(
        ask(file, "SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY name"),
        R"x([["CREATE INDEX idx_history_created ON history (created_at DESC)"], )x"
        R"x(["CREATE INDEX idx_notes_updated ON notes (updated_at DESC)"]])x");
    EXPECT_EQ(ask(file, "SELECT count(*) FROM sqlite_master WHERE sql LIKE '%AUTOINCREMENT%'"), "[[2]]");
    EXPECT_EQ(ask(file, "SELECT * FROM meta"), R"([["schema_version", "1"]])");
    EXPECT_EQ(ask(file, "PRAGMA journal_mode"), R"([["wal"]])");
}

TEST_F(StoreFile, WritesColumnsThatOtherProgramsCanRead)
{
    Store store(file);
    store.addHistory({0, Instant(1'500ms), "duration", "‘A’ to ‘B’", "Total days: 44", "a\nb"});
    EXPECT_EQ(ask(file, "SELECT * FROM history"),
              R"([[1, 1.5, "duration", "‘A’ to ‘B’", "Total days: 44", "a\nb"]])");
    store.createNote(Note(0, {{*Uuid::fromText("6f1c2a4e-0b7d-4e21-9a53-2c8d1f0e7b64"), "Äpfel\nB"}},
                          Instant(2s), Instant(-250ms)));
    EXPECT_EQ(
        ask(file, "SELECT created_at, updated_at, json_extract(blocks, '$[0].text'), search FROM notes"),
        R"([[2.0, -0.25, "Äpfel\nB", "äpfel\näpfel\nb"]])");
    EXPECT_EQ(ask(file, "SELECT json_extract(blocks, '$[0].id'), json_valid(blocks) FROM notes"),
              R"([["6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64", 1]])");
    store.setSetting("clock24", true);
    EXPECT_EQ(ask(file, "SELECT * FROM settings"), R"([["clock24", "1"]])");
}

TEST_F(StoreFile, ReopeningKeepsAllRowsAndRewritesTheVersion)
{
    {
        Store store(file);
        store.addHistory(someEntry);
        store.setSetting("module", "notes");
        store.createNote(Note(0, {{.text = "kept"}}, Instant(1s), Instant(1s)));
    }
    ask(file, "UPDATE meta SET value = '7'");
    Store store(file);
    EXPECT_EQ(ask(file, "SELECT * FROM meta"), R"([["schema_version", "1"]])");
    EXPECT_EQ(store.history(500).size(), 1U);
    EXPECT_EQ(store.setting("module"), "notes");
    EXPECT_EQ(store.notes("kept", 1000).size(), 1U);
    EXPECT_EQ(store.lastError(), std::nullopt);
}

// The fixture was written by a program of schema 1; its rows must read the same for ever.
TEST_F(StoreFile, ReadsAFileOfAnOlderRun)
{
    copy_file(path(ZELTA_TESTS_DIR) / "fixtures/store-schema-1.sqlite", file);
    Store store(file);
    EXPECT_TRUE(store.isPersistent());
    const std::vector<HistoryEntry> history = store.history(500);
    ASSERT_EQ(history.size(), 2U);
    EXPECT_EQ(
        history[0],
        (HistoryEntry {5, Instant(1'767'225'600'250ms), "percent", "50 compared with 75",
                       "Change X → Y: +50%", "Change X → Y: +50%  (increase)\nAmount of the change: 25"}));
    EXPECT_EQ(history[1].module, "abacus") << "a page that this version does not know";
    const std::vector<Note> notes = store.notes("", 1000);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].plainText(), "Shopping\n\nmilk\nbread");
    EXPECT_EQ(notes[0].blocks[0].id.text(), "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64");
    EXPECT_EQ(notes[1].plainText(), "مرحبا بالعالم");
    EXPECT_EQ(notes[2].plainText(), "from before there were paragraphs");
    EXPECT_EQ(store.notes("بالعالم", 1000), std::vector {notes[1]});
    EXPECT_EQ(store.setting("weekend"), "fri-sat");
    EXPECT_TRUE(store.setting("clock24", false));
    EXPECT_TRUE(store.addHistory(someEntry));
    EXPECT_EQ(store.history(500).back().id, 6) << "ids go on";
}

TEST_F(StoreFile, ReadsWhateverOtherProgramsLeftInTheColumns)
{
    Store store(file);
    ask(file, "INSERT INTO history VALUES (1, 1e300, 1, x'6100', 2.5, '')");
    ask(file, "INSERT INTO history VALUES (2, -1e300, '', char(0), '', '')");
    ask(file, "INSERT INTO history VALUES (3, 'noon', '', 'ok', '', '')");
    ask(file, "INSERT INTO history VALUES (4, 9e999, '', '', '', '')");
    ask(file,
        "INSERT INTO notes VALUES (1, 1, 1, '[{\"id\":\"x\"}]', 'x'), (2, 2, 2, x'ff00', ''), (3, 3, 3, 17, "
        "'')");
    EXPECT_EQ(store.history(500).size(), 4U);
    EXPECT_EQ(store.history(500)[0].title, "ok");
    EXPECT_EQ(store.history(500)[0].createdAt, Instant()) << "a time that is no number";
    const std::vector<Note> notes = store.notes("", 1000);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].plainText(), "17");
    EXPECT_EQ(notes[1].plainText(), std::string("\xFF\0", 2));
    EXPECT_EQ(notes[2].plainText(), "[{\"id\":\"x\"}]");
}

TEST_F(StoreFile, WorksInMemoryWhereAFileIsInTheWay)
{
    write(directory / "file", "in the way");
    for (const path& asked : {directory / "file/zelta.sqlite", directory / "file/more/zelta.sqlite"}) {
        Store store(asked);
        EXPECT_EQ(store.lastError(), "Not a directory");
        expectInMemory(store, asked);
    }
    EXPECT_EQ(contents(directory / "file"), "in the way");
}

TEST_F(StoreFile, WorksInMemoryWhereADirectoryIsInTheWay)
{
    create_directory(file);
    Store store(file);
    EXPECT_EQ(store.lastError(), "Could not open the Zelta Basic database: unable to open database file");
    expectInMemory(store, file);
}

TEST_F(StoreFile, WorksInMemoryWhenTheFileIsNoDatabase)
{
    const std::string text(5000, 'x');
    write(file, text);
    Store store(file);
    EXPECT_EQ(store.lastError(), "Database error: file is not a database");
    expectInMemory(store, file);
    EXPECT_EQ(contents(file), text) << "left alone";
}

TEST_F(StoreFile, WorksInMemoryWhenTablesHaveOtherColumns)
{
    ask(file, "CREATE TABLE meta (other TEXT)");
    Store store(file);
    EXPECT_EQ(store.lastError(), "Database error: Database error: table meta has no column named key");
    expectInMemory(store, file);
}

TEST_F(StoreFile, StartsAnEmptyFileAsANewDatabase)
{
    write(file, "");
    Store store(file);
    EXPECT_TRUE(store.isPersistent());
    EXPECT_TRUE(store.addHistory(someEntry));
}

TEST_F(StoreFile, WorksInMemoryWithoutTheRightToMakeADirectory)
{
    chmod(directory.path().c_str(), 0555);
    EXPECT_EQ(test::asOrdinaryUser([&] {
                  Store store(directory / "missing/zelta.sqlite");
                  expectInMemory(store, directory / "missing/zelta.sqlite");
                  return int {store.lastError() == "Permission denied"};
              }),
              1);
}

TEST_F(StoreFile, WorksInMemoryWithoutTheRightToMakeTheFile)
{
    chmod(directory.path().c_str(), 0555);
    EXPECT_EQ(test::asOrdinaryUser([&] {
                  Store store(file);
                  expectInMemory(store, file);
                  return int {store.lastError()
                              == "Could not open the Zelta Basic database: unable to open database file"};
              }),
              1);
}

TEST_F(StoreFile, WorksInMemoryWhenTheFileIsWriteProtected)
{
    Store(file).addHistory(someEntry);
    const std::string kept = contents(file);
    chmod(file.c_str(), 0444);
    chmod(directory.path().c_str(), 0777);
    EXPECT_EQ(test::asOrdinaryUser([&] {
                  Store store(file);
                  const bool isToldWhy
                      = store.lastError() == "Database error: attempt to write a readonly database";
                  return int {isToldWhy && !store.isPersistent() && store.history(500).empty()
                              && store.addHistory(someEntry)};
              }),
              1);
    EXPECT_EQ(contents(file), kept);

    chmod(file.c_str(), 0666);
    EXPECT_EQ(test::asOrdinaryUser([&] {
                  Store store(file);
                  return int {store.isPersistent() && store.history(500).size() == 1
                              && store.addHistory(someEntry)};
              }),
              1)
        << "nothing of the first try is in the way";
}

TEST_F(StoreFile, SaysThatAWriteFoundNoRoomAndLosesNothingEarlier)
{
    test::ChildProcess child([&](const test::ChildProcess::Report& report) {
        std::signal(SIGXFSZ, SIG_IGN);
        Store store(file);
        HistoryEntry large = someEntry;
        large.detail = std::string(20'000, 'x');
        const rlimit before {RLIM_INFINITY, RLIM_INFINITY};
        const rlimit full {500'000, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &full);
        int written = 0;
        while (written < 1000 && store.addHistory(large))
            ++written;
        report(written);
        report(store.lastError() == "disk I/O error" || store.lastError() == "database or disk is full");
        report(store.setSetting("module", std::string(20'000, 'y')));
        report(static_cast<int>(store.history(500).size()));
        setrlimit(RLIMIT_FSIZE, &before);
        report(store.addHistory(large));
    });
    const int written = child.next().value();
    EXPECT_GT(written, 5);
    EXPECT_LT(written, 1000);
    EXPECT_EQ(child.next(), 1) << "the reason is kept";
    EXPECT_EQ(child.next(), 0) << "still no room";
    EXPECT_EQ(child.next(), written) << "reading goes on";
    EXPECT_EQ(child.next(), 1) << "and writing, once there is room again";
    EXPECT_EQ(ask(file, "PRAGMA integrity_check"), R"([["ok"]])");
    EXPECT_EQ(Store(file).history(500).size(), static_cast<std::size_t>(written) + 1);
}

TEST_F(StoreFile, FailsWithoutThrowingWhenATableIsGone)
{
    Store store(file);
    ask(file, "DROP TABLE history");
    EXPECT_FALSE(store.addHistory(someEntry));
    EXPECT_EQ(store.lastError(), "no such table: history") << "the step found it gone";
    EXPECT_FALSE(store.addHistory(someEntry));
    EXPECT_EQ(store.lastError(), "Database error: no such table: history") << "now compiling does";
    EXPECT_TRUE(store.history(500).empty());
    EXPECT_FALSE(store.clearHistory());
    EXPECT_TRUE(store.setSetting("module", "notes"));
    EXPECT_EQ(store.lastError(), "Database error: no such table: history") << "a success does not clear it";
}

TEST_F(StoreFile, GivesTheEnginesOwnTextWhenAStepFails)
{
    Store store(file);
    ask(file, "CREATE TRIGGER refuse BEFORE INSERT ON notes BEGIN SELECT RAISE(ABORT, 'refused'); END");
    EXPECT_EQ(store.createNote(Note(0, {}, {}, {})), std::nullopt);
    EXPECT_EQ(store.lastError(), "refused");
}

TEST(StoreConnection, WithoutAHandleSaysSo)
{
    sqlite::Connection none;
    try {
        none.execute("SELECT 1;");
        FAIL() << "nothing to run it";
    } catch (const sqlite::StoreError& error) {
        EXPECT_EQ(error.description(), "Database error: no database handle");
    }
    EXPECT_EQ(none.lastInsertedRowId(), 0);
    EXPECT_EQ(none.errorMessage(), "");
}

} // namespace
} // namespace zelta
