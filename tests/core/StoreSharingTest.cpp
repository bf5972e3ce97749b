#include "core/Store.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Oracle.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using test::ChildProcess;

HistoryEntry numbered(int number)
{
    return {0, Instant(std::chrono::seconds(number)), "percent", std::to_string(number), "summary", "detail"};
}

class StoreSharing : public testing::Test
{
protected:
    std::string ask(const std::string& sql)
    {
        return test::Oracle("core/sqlite_oracle.py", {file.string()}).ask({sql}).front();
    }

    test::TemporaryDirectory directory;
    std::filesystem::path file = directory / "zelta.sqlite";
};

TEST_F(StoreSharing, ThreadsLoseNothing)
{
    Store store(file);
    constexpr int threads = 4;
    constexpr int rounds = 50;
    std::atomic<int> failures = 0;
    std::vector<std::set<std::int64_t>> ids(threads);
    {
        std::vector<std::jthread> workers;
        for (int t = 0; t < threads; ++t) {
            workers.emplace_back([&, t] {
                for (int i = 0; i < rounds; ++i) {
                    const std::string text = std::to_string(t) + ' ' + std::to_string(i);
                    const auto created
                        = store.createNote(Note(0, {{.text = text}}, Instant(1s), Instant(1s)));
                    failures += !created || store.note(created->id)->plainText() != text;
                    failures += !store.addHistory(numbered(i)) || store.history(3).empty();
                    failures += !store.setSetting("key" + std::to_string(t), text);
                    failures += store.setting("key" + std::to_string(t)) != text;
                    failures += store.lastError().has_value();
                    if (created)
                        ids[static_cast<std::size_t>(t)].insert(created->id);
                }
            });
        }
    }
    EXPECT_EQ(failures, 0);
    constexpr auto everything = std::size_t {threads} * rounds;
    std::set<std::int64_t> all;
    for (const std::set<std::int64_t>& own : ids)
        all.insert(own.begin(), own.end());
    EXPECT_EQ(all.size(), everything) << "each note has an id of its own";
    EXPECT_EQ(store.history(1000).size(), everything);
}

TEST_F(StoreSharing, ProcessesWritingAtOnceLoseNothing)
{
    constexpr int processes = 3;
    constexpr int rounds = 200;
    Store store(file);
    std::vector<std::unique_ptr<ChildProcess>> children;
    for (int p = 0; p < processes; ++p) {
        children.push_back(std::make_unique<ChildProcess>([&, p](const ChildProcess::Report& report) {
            Store own(file);
            int written = 0;
            for (int i = 0; i < rounds; ++i) {
                written += own.addHistory(numbered(p * rounds + i));
                written += own.createNote(Note(0, {{.text = "note"}}, Instant(1s), Instant(1s))).has_value();
                written += own.setSetting("last", std::to_string(i));
            }
            report(own.isPersistent() ? written : -1);
        }));
    }
    for (int i = 0; i < rounds; ++i)
        EXPECT_TRUE(store.addHistory(numbered(processes * rounds + i)));
    for (const auto& child : children)
        EXPECT_EQ(child->next(), 3 * rounds);
    EXPECT_EQ(ask("SELECT count(DISTINCT title) FROM history"),
              "[[" + std::to_string((processes + 1) * rounds) + "]]");
    EXPECT_EQ(ask("SELECT count(*) FROM notes"), "[[" + std::to_string(processes * rounds) + "]]");
    EXPECT_EQ(ask("PRAGMA integrity_check"), R"([["ok"]])");
}

// Two copies started together on a new file both want to make it.
TEST_F(StoreSharing, ProcessesOpeningANewFileAtOnceAllKeepTheirRows)
{
    constexpr int processes = 4;
    for (int round = 0; round < 20; ++round) {
        file = directory / ("new/" + std::to_string(round) + "/zelta.sqlite");
        std::vector<std::unique_ptr<ChildProcess>> children;
        for (int p = 0; p < processes; ++p) {
            children.push_back(std::make_unique<ChildProcess>([&, p](const ChildProcess::Report& report) {
                Store own(file);
                report(own.isPersistent() && own.addHistory(numbered(p)));
            }));
        }
        for (const auto& child : children)
            ASSERT_EQ(child->next(), 1) << "round " << round;
        ASSERT_EQ(Store(file).history(500).size(), std::size_t {processes});
    }
}

TEST_F(StoreSharing, GivesUpOnALockAfterOneSecond)
{
    Store store(file);
    ASSERT_TRUE(store.addHistory(numbered(1)));
    ChildProcess holder([&](const ChildProcess::Report& report) {
        sqlite::Connection other = sqlite::Connection::open(file.string());
        other.execute("BEGIN IMMEDIATE;");
        report(1);
        for (;;)
            std::this_thread::yield();
    });
    ASSERT_EQ(holder.next(), 1);
    static std::chrono::microseconds slept; // instead of really sleeping: what the engine asks for
    slept = {};
    sqlite3_vfs* system = sqlite3_vfs_find(nullptr);
    const auto sleep = std::exchange(system->xSleep, [](sqlite3_vfs*, int microseconds) {
        slept += std::chrono::microseconds(microseconds);
        return microseconds;
    });
    EXPECT_FALSE(store.addHistory(numbered(2)));
    system->xSleep = sleep;
    EXPECT_EQ(slept, 1s);
    EXPECT_EQ(store.lastError(), "database is locked");
    EXPECT_EQ(store.history(500).size(), 1U) << "reading needs no lock";
    holder.kill();
    EXPECT_TRUE(store.addHistory(numbered(2))) << "its holder's end frees the lock";
}

TEST_F(StoreSharing, WorksInMemoryWhenTheFileStaysLocked)
{
    Store(file).addHistory(numbered(1));
    ChildProcess holder([&](const ChildProcess::Report& report) {
        sqlite::Connection other = sqlite::Connection::open(file.string());
        other.execute("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM meta;");
        report(1);
        for (;;)
            std::this_thread::yield();
    });
    ASSERT_EQ(holder.next(), 1);
    {
        Store store(file);
        EXPECT_FALSE(store.isPersistent());
        EXPECT_EQ(store.lastError(), "Database error: database is locked");
        EXPECT_TRUE(store.addHistory(numbered(2)));
    }
    holder.kill();
    EXPECT_EQ(Store(file).history(500).size(), 1U);
}

TEST_F(StoreSharing, KillingTheProcessLosesNoWriteThatWasConfirmed)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    int confirmed = 0;
    for (int round = 0; round < 40; ++round) {
        ChildProcess writer([&](const ChildProcess::Report& report) {
            Store store(file);
            for (int number = confirmed;; ++number)
                report(store.isPersistent() && store.addHistory(numbered(number)) ? number : -1);
        });
        for (auto more = random() % 20; more > 0; --more)
            ASSERT_GE(writer.next().value_or(-1), 0);
        writer.kill();
        // What it confirmed between the last look and its end counts too.
        int last = confirmed - 1;
        Store store(file);
        ASSERT_TRUE(store.isPersistent());
        while (const std::optional<int> number = writer.next())
            last = std::max(last, *number);
        const std::vector<HistoryEntry> kept = store.history(1'000'000);
        ASSERT_GE(static_cast<int>(kept.size()), last + 1);
        // One write more may have happened without its confirmation.
        for (std::size_t i = 0; i < kept.size(); ++i)
            ASSERT_EQ(kept[i].title, std::to_string(kept.size() - 1 - i));
        confirmed = static_cast<int>(kept.size());
    }
    EXPECT_EQ(ask("PRAGMA integrity_check"), R"([["ok"]])");
}

} // namespace
} // namespace zelta
