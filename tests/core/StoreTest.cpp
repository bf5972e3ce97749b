#include "core/Store.h"

#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

Instant at(std::chrono::microseconds sinceEpoch)
{
    return Instant(sinceEpoch);
}

HistoryEntry entry(std::string title, Instant time)
{
    return {.id = 0,
            .createdAt = time,
            .module = "percent",
            .title = std::move(title),
            .summary = "Change X → Y: +50%",
            .detail = "Change X → Y: +50%  (increase)\nAmount of the change: 25"};
}

Note note(std::string text, Instant time = at(1s))
{
    return {0, {{.id = Uuid::random(), .text = std::move(text)}}, time, time};
}

std::vector<std::string> titles(const std::vector<HistoryEntry>& entries)
{
    std::vector<std::string> all;
    for (const HistoryEntry& found : entries)
        all.push_back(found.title);
    return all;
}

std::vector<std::string> titles(const std::vector<Note>& notes)
{
    std::vector<std::string> all;
    for (const Note& found : notes)
        all.push_back(found.title());
    return all;
}

using Titles = std::vector<std::string>;

class StoreTest : public testing::Test
{
protected:
    test::TemporaryDirectory directory;
    Store store {directory / "zelta.sqlite"};
};

TEST_F(StoreTest, StartsEmptyAndPersistent)
{
    EXPECT_TRUE(store.isPersistent());
    EXPECT_EQ(store.lastError(), std::nullopt);
    EXPECT_EQ(store.url(), directory / "zelta.sqlite");
    EXPECT_TRUE(store.history(500).empty());
    EXPECT_TRUE(store.notes("", 1000).empty());
    EXPECT_EQ(store.setting("module"), std::nullopt);
}

TEST_F(StoreTest, ReadsHistoryBackToTheMicrosecond)
{
    const Instant times[] = {at(0s), at(-1us), at(1'789'000'000'123'457us), at(-62'135'596'800s)};
    for (const Instant time : times) {
        ASSERT_TRUE(store.addHistory(entry("x", time)));
        const HistoryEntry read = store.history(1).front();
        HistoryEntry expected = entry("x", time);
        expected.id = read.id;
        EXPECT_EQ(read, expected);
        EXPECT_TRUE(store.clearHistory());
    }
}

TEST_F(StoreTest, ListsHistoryNewestFirstThenByHigherId)
{
    store.addHistory(entry("old", at(1s)));
    store.addHistory(entry("first of two", at(3s)));
    store.addHistory(entry("second of two", at(3s)));
    store.addHistory(entry("middle", at(2s)));
    EXPECT_EQ(titles(store.history(500)), (Titles {"second of two", "first of two", "middle", "old"}));
    EXPECT_EQ(titles(store.history(2)), (Titles {"second of two", "first of two"}));
}

TEST_F(StoreTest, RaisesLimitsToOne)
{
    store.addHistory(entry("a", at(1s)));
    store.addHistory(entry("b", at(2s)));
    store.createNote(note("a"));
    store.createNote(note("b"));
    for (const int limit : {0, -1, -1000}) {
        EXPECT_EQ(store.history(limit).size(), 1U);
        EXPECT_EQ(store.notes("", limit).size(), 1U);
        EXPECT_EQ(store.notes("b", limit).size(), 1U);
    }
}

TEST_F(StoreTest, TakesAnyLimit)
{
    store.addHistory(entry("a", at(1s)));
    store.createNote(note("a"));
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(store.history(largest).size(), 1U);
    EXPECT_EQ(store.notes("", largest).size(), 1U);
}

TEST_F(StoreTest, DeletesOneEntryOrAll)
{
    for (const char* title : {"a", "b", "c"})
        store.addHistory(entry(title, at(1s)));
    EXPECT_TRUE(store.deleteHistory(store.history(500)[1].id));
    EXPECT_EQ(titles(store.history(500)), (Titles {"c", "a"}));
    EXPECT_TRUE(store.deleteHistory(4711)) << "no such row";
    EXPECT_TRUE(store.clearHistory());
    EXPECT_TRUE(store.history(500).empty());
}

TEST_F(StoreTest, NeverGivesAnIdAgain)
{
    store.addHistory(entry("a", at(1s)));
    const std::int64_t first = store.history(1).front().id;
    store.clearHistory();
    store.addHistory(entry("b", at(1s)));
    EXPECT_GT(store.history(1).front().id, first);
}

TEST_F(StoreTest, GivesANewNoteItsId)
{
    const Note draft(0, {{.text = "Shopping"}, {.text = "milk\nbread"}}, at(10s), at(20s));
    const std::optional<Note> created = store.createNote(draft);
    ASSERT_TRUE(created);
    EXPECT_GT(created->id, 0);
    EXPECT_EQ(created->blocks, draft.blocks);
    EXPECT_EQ(store.note(created->id), created);
    EXPECT_EQ(store.notes("", 10), std::vector {*created});
    EXPECT_EQ(store.note(created->id + 1), std::nullopt);
}

TEST_F(StoreTest, UpdatesTextAndTimeButNotTheCreation)
{
    Note changed = *store.createNote(note("before", at(10s)));
    changed.blocks[0].text = "after";
    changed.createdAt = at(99s);
    changed.updatedAt = at(30s);
    EXPECT_TRUE(store.updateNote(changed));
    changed.createdAt = at(10s);
    EXPECT_EQ(store.note(changed.id), changed);
    EXPECT_TRUE(store.notes("before", 10).empty());
    EXPECT_EQ(store.notes("AFTER", 10).size(), 1U);
}

TEST_F(StoreTest, UpdatingANoteThatIsGoneDoesNothing)
{
    Note gone = *store.createNote(note("gone"));
    EXPECT_TRUE(store.deleteNote(gone.id));
    EXPECT_TRUE(store.updateNote(gone));
    EXPECT_TRUE(store.deleteNote(gone.id));
    EXPECT_TRUE(store.notes("", 10).empty());
}

TEST_F(StoreTest, ListsNotesByUpdateThenByHigherId)
{
    for (const auto& [text, time] : std::vector<std::pair<std::string, Instant>> {
             {"old", at(1s)}, {"first of two", at(3s)}, {"second of two", at(3s)}, {"middle", at(2s)}})
        store.createNote(note(text, time));
    EXPECT_EQ(titles(store.notes("", 1000)), (Titles {"second of two", "first of two", "middle", "old"}));
    EXPECT_EQ(titles(store.notes("o", 2)), (Titles {"second of two", "first of two"}));
}

TEST_F(StoreTest, SearchesTitleAndTextInAnyLetterCase)
{
    store.createNote(note("Grocery list\nÄpfel"));
    store.createNote(note("مرحبا بالعالم"));
    store.createNote(note("שלום"));
    store.createNote(note(""));
    EXPECT_EQ(titles(store.notes("GROCERY", 10)), (Titles {"Grocery list"}));
    EXPECT_EQ(titles(store.notes("  äPFEL\n", 10)), (Titles {"Grocery list"}));
    EXPECT_EQ(titles(store.notes("بالعالم", 10)), (Titles {"مرحبا بالعالم"}));
    EXPECT_EQ(titles(store.notes("לו", 10)), (Titles {"שלום"}));
    EXPECT_EQ(titles(store.notes("new note", 10)), (Titles {"New Note"})) << "the fallback title too";
    EXPECT_TRUE(store.notes("no such text", 10).empty());
}

TEST_F(StoreTest, SearchOfBlanksListsAll)
{
    store.createNote(note("a"));
    store.createNote(note("b"));
    EXPECT_EQ(store.notes(" \t\n\u3000", 10).size(), 2U);
}

TEST_F(StoreTest, SearchKeepsTheWildcards)
{
    store.createNote(note("500 sheets"));
    store.createNote(note("axb"));
    store.createNote(note("a_b"));
    EXPECT_EQ(titles(store.notes("50%", 10)), (Titles {"500 sheets"}));
    EXPECT_EQ(titles(store.notes("a_b", 10)), (Titles {"a_b", "axb"}));
    EXPECT_EQ(store.notes("%", 10).size(), 3U);
    EXPECT_EQ(store.notes("_", 10).size(), 3U);
}

TEST_F(StoreTest, StampsAreThoseOfTheNotesInTheirOrder)
{
    for (const auto& [text, time] : std::vector<std::pair<std::string, Instant>> {
             {"old pie", at(1s)}, {"first of two", at(3s)}, {"second of two pies", at(3s)}, {"Pie", at(2s)}})
        store.createNote(note(text, time));
    const auto stampsOf = [](const std::vector<Note>& notes) {
        std::vector<NoteStamp> stamps;
        for (const Note& note : notes)
            stamps.push_back({.id = note.id, .updatedAt = note.updatedAt});
        return stamps;
    };
    EXPECT_EQ(store.noteStamps("", 1), (std::vector<NoteStamp> {{.id = 3, .updatedAt = at(3s)}}));
    for (int i = 0; i < 60; ++i)
        store.createNote(note("one of many", at(std::chrono::seconds(i % 7 - 2))));
    for (const std::string_view search : {"", " PIE ", "o%o", "none of them"}) {
        for (const std::int64_t limit : {-1, 0, 1, 2, 3, 9, 10, 11, 40, 63, 64, 65, 1000})
            EXPECT_EQ(store.noteStamps(search, limit), stampsOf(store.notes(search, limit))) << search;
    }
}

TEST_F(StoreTest, SearchTakesAVeryLongText)
{
    store.createNote(note("short"));
    EXPECT_TRUE(store.notes(std::string(10'000, 'x'), 10).empty());
    EXPECT_TRUE(store.notes(std::string(1'000'000, '%'), 10).empty()) << "beyond what LIKE takes";
    EXPECT_EQ(store.notes("short", 10).size(), 1U);
}

TEST_F(StoreTest, KeepsBooleansAsOneAndZero)
{
    EXPECT_TRUE(store.setting("clock24", true));
    EXPECT_FALSE(store.setting("clock24", false));
    EXPECT_TRUE(store.setSetting("clock24", true));
    EXPECT_EQ(store.setting("clock24"), "1");
    EXPECT_TRUE(store.setting("clock24", false));
    EXPECT_TRUE(store.setSetting("clock24", false));
    EXPECT_EQ(store.setting("clock24"), "0");
    EXPECT_FALSE(store.setting("clock24", true));
}

TEST_F(StoreTest, ReadsTheWordTrueAsABoolean)
{
    for (const char* yes : {"1", "true", "True", "TRUE", "tRuE"}) {
        store.setSetting("clock24", yes);
        EXPECT_TRUE(store.setting("clock24", false)) << yes;
    }
    for (const char* no : {"yes", "", "2", "01", " true", "0", "on"}) {
        store.setSetting("clock24", no);
        EXPECT_FALSE(store.setting("clock24", true)) << no;
    }
}

TEST_F(StoreTest, ReplacesASetting)
{
    store.setSetting("module", "percent");
    store.setSetting("module", "notes");
    store.setSetting("weekend", "fri-sat");
    EXPECT_EQ(store.setting("module"), "notes");
    EXPECT_EQ(store.setting("weekend"), "fri-sat");
    store.setSetting("weekend", "");
    EXPECT_EQ(store.setting("weekend"), "");
    EXPECT_TRUE(store.setSetting("module", std::string_view())) << "a view that points to nothing";
    EXPECT_EQ(store.setting("module"), "");
}

TEST_F(StoreTest, CutsTextAtANul)
{
    using namespace std::string_literals;
    HistoryEntry cut = entry("ti\0tle"s, at(1s));
    cut.detail = "\0"s;
    store.addHistory(cut);
    EXPECT_EQ(store.history(1).front().title, "ti");
    EXPECT_EQ(store.history(1).front().detail, "");
    store.setSetting("weekend", "fri\0sat"s);
    EXPECT_EQ(store.setting("weekend"), "fri");
}

TEST_F(StoreTest, KeepsANulInANote)
{
    using namespace std::string_literals;
    const Note created = *store.createNote(note("before\0after"s));
    EXPECT_EQ(store.note(created.id)->blocks[0].text, "before\0after"s);
    EXPECT_EQ(store.notes("before", 10).size(), 1U);
    EXPECT_TRUE(store.notes("after", 10).empty()) << "the searched column ends at the NUL";
}

TEST_F(StoreTest, KeepsTextsOfTenMegabytes)
{
    std::string large;
    large.resize(10'000'000, 'x');
    HistoryEntry big = entry("big", at(1s));
    big.detail = large;
    EXPECT_TRUE(store.addHistory(big));
    EXPECT_EQ(store.history(1).front().detail, large);
    const std::optional<Note> created = store.createNote(note(large));
    ASSERT_TRUE(created);
    EXPECT_EQ(store.note(created->id)->blocks, created->blocks);
}

} // namespace
} // namespace zelta
