#include "app/pages/NoteList.h"

#include "app/pages/NoteListModel.h"
#include "core/CalendarKit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

// Clocks go forward here on 29 March 2026.
const Calendar paris = CalendarKit::calendar("Europe/Paris");

Instant at(int day, int month, std::int64_t year, int hour = 12, int minute = 0)
{
    return CalendarKit::makeDate(day, month, year, hour, minute, 0, paris).value();
}

NoteStamp noteOf(std::int64_t id, Instant updatedAt)
{
    return {.id = id, .updatedAt = updatedAt};
}

TEST(NoteGroup, GoesByCalendarDays)
{
    const Instant now = at(10, 3, 2026, 0, 1);
    EXPECT_EQ(groupTitle(at(11, 3, 2026), now, paris), "Today") << "a clock that was set back";
    EXPECT_EQ(groupTitle(at(10, 3, 2026, 0, 0), now, paris), "Today");
    EXPECT_EQ(groupTitle(at(9, 3, 2026, 23, 59), now, paris), "Yesterday") << "two minutes ago";
    EXPECT_EQ(groupTitle(at(9, 3, 2026, 0, 0), now, paris), "Yesterday");
    EXPECT_EQ(groupTitle(at(8, 3, 2026, 23, 59), now, paris), "Previous 7 Days");
    EXPECT_EQ(groupTitle(at(3, 3, 2026), now, paris), "Previous 7 Days");
    EXPECT_EQ(groupTitle(at(2, 3, 2026), now, paris), "Previous 30 Days");
    EXPECT_EQ(groupTitle(at(8, 2, 2026), now, paris), "Previous 30 Days");
    EXPECT_EQ(groupTitle(at(7, 2, 2026), now, paris), "February") << "31 days ago";
}

TEST(NoteGroup, CountsAShortDayAsOne)
{
    EXPECT_EQ(groupTitle(at(28, 3, 2026, 23, 30), at(30, 3, 2026, 0, 10), paris), "Previous 7 Days")
        << "two days, though only 23 hours and 40 minutes";
}

TEST(NoteGroup, NamesTheYearWhenItIsNotTheCurrentOne)
{
    EXPECT_EQ(groupTitle(at(5, 12, 2025), at(20, 1, 2026), paris), "December 2025");
    EXPECT_EQ(groupTitle(at(30, 12, 2025), at(2, 1, 2026), paris), "Previous 7 Days");
    EXPECT_EQ(groupTitle(at(1, 1, 2026), at(31, 12, 2026), paris), "January");
    EXPECT_EQ(groupTitle(at(1, 3, 2024), at(10, 3, 2026), paris), "March 2024");
}

TEST(NoteGroup, TakesTheDayOfTheGivenZone)
{
    const Calendar apia = CalendarKit::calendar("Pacific/Apia");
    const Instant now = at(10, 3, 2026, 0, 30); // 12:30 on the 10th in Apia
    EXPECT_EQ(groupTitle(now - 1h, now, paris), "Yesterday");
    EXPECT_EQ(groupTitle(now - 1h, now, apia), "Today");
}

TEST(NoteGroups, StandInTheOrderOfTheirFirstNotes)
{
    const Instant now = at(10, 3, 2026);
    const std::vector<NoteStamp> notes {noteOf(5, now), noteOf(4, at(9, 3, 2026)), noteOf(3, at(9, 3, 2026)),
                                        noteOf(2, at(5, 1, 2026)), noteOf(1, at(5, 1, 2024))};
    EXPECT_EQ(groupNotes(notes, now, paris),
              (std::vector<NoteGroup> {{.title = "Today", .notes = {0}},
                                       {.title = "Yesterday", .notes = {1, 2}},
                                       {.title = "January", .notes = {3}},
                                       {.title = "January 2024", .notes = {4}}}));
    EXPECT_EQ(groupNotes({}, now, paris), std::vector<NoteGroup> {});
}

TEST(NoteGroups, ANoteJoinsItsGroupWhereverThatStands)
{
    const Instant now = at(10, 3, 2026);
    const std::vector<NoteStamp> notes {noteOf(1, at(9, 3, 2026)), noteOf(2, now), noteOf(3, at(9, 3, 2026))};
    EXPECT_EQ(
        groupNotes(notes, now, paris),
        (std::vector<NoteGroup> {{.title = "Yesterday", .notes = {0, 2}}, {.title = "Today", .notes = {1}}}));
}

TEST(NoteSelection, StaysOnlyWhenAskedAndStillThere)
{
    const std::vector<NoteStamp> notes {noteOf(2, at(1, 3, 2026)), noteOf(1, at(1, 3, 2026))};
    EXPECT_TRUE(selectionStays(notes, 1, OnReload::keepSelection));
    EXPECT_FALSE(selectionStays(notes, 3, OnReload::keepSelection));
    EXPECT_FALSE(selectionStays(notes, std::nullopt, OnReload::keepSelection));
    EXPECT_FALSE(selectionStays(notes, 1, OnReload::selectFirst));
    EXPECT_FALSE(selectionStays({}, 1, OnReload::keepSelection));
}

TEST(NoteListModel, TellsOfAResetBeforeItsRowsChange)
{
    const Instant now = at(10, 3, 2026);
    NoteListModel model([](std::int64_t id) { return Note(id, {}, {}, {}); }, nullptr);
    model.setNotes({noteOf(1, now), noteOf(2, now)}, now, paris);
    QVariant last;
    QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &model,
                     [&] { last = model.index(model.rowCount() - 1).data(NoteListModel::noteIdRole); });
    model.setNotes({noteOf(3, now)}, now, paris);
    EXPECT_EQ(last, 2);
    EXPECT_EQ(model.rowCount(), 2);
}

TEST(NoteListModel, ReadsANoteAgainThatCouldNotBeRead)
{
    bool isReadable = false;
    const auto reader = [&isReadable](std::int64_t id) {
        return isReadable ? std::optional(Note(id, {{.id = Uuid::random(), .text = "there"}}, {}, {}))
                          : std::nullopt;
    };
    NoteListModel model(reader, nullptr);
    model.setNotes({noteOf(1, at(10, 3, 2026))}, at(10, 3, 2026), paris);
    const QModelIndex row = model.index(1);
    EXPECT_EQ(row.data(NoteListModel::titleRole).toString(), QStringLiteral("New Note"));
    isReadable = true;
    EXPECT_EQ(row.data(NoteListModel::titleRole).toString(), QStringLiteral("there"));
}

TEST(NoteListModel, GivesTheBeginningOfLongTextsInWholeCharacters)
{
    const std::string most(399, 'a');
    const std::string text = most + "😀 and more";
    NoteListModel model(
        [&text](std::int64_t id) {
            return Note(id, {{.text = text}, {.text = text}}, {}, {});
        },
        nullptr);
    model.setNotes({noteOf(1, at(10, 3, 2026))}, at(10, 3, 2026), paris);
    for (const NoteListModel::Role role : {NoteListModel::titleRole, NoteListModel::previewRole})
        EXPECT_EQ(model.index(1).data(role).toString(), QString::fromStdString(most)) << role;
}

TEST(NoteListModel, ReadsANoteOnceForEachState)
{
    const Instant now = at(10, 3, 2026);
    const Instant later = now + std::chrono::seconds(1);
    std::vector<std::int64_t> read;
    const auto reader = [&read](std::int64_t id) {
        read.push_back(id);
        return Note(id, {{.text = "read " + std::to_string(read.size())}}, {}, {});
    };
    NoteListModel model(reader, nullptr);
    const auto titles = [&model] {
        QStringList all;
        for (int row = 1; row < model.rowCount(); ++row)
            all << model.index(row).data(NoteListModel::titleRole).toString();
        return all.join(QLatin1Char('|'));
    };
    model.setNotes({noteOf(1, now), noteOf(2, now)}, now, paris);
    EXPECT_EQ(titles(), QStringLiteral("read 1|read 2"));
    model.setNotes({noteOf(2, now)}, now, paris);
    model.setNotes({noteOf(1, later), noteOf(2, now)}, now, paris);
    EXPECT_EQ(titles(), QStringLiteral("read 3|read 2"))
        << "one has changed, one was out of the list for a while";
    model.updateNote(noteOf(2, now), now, paris);
    EXPECT_EQ(titles(), QStringLiteral("read 3|read 4"));
    EXPECT_EQ(read.size(), 4U);
}

} // namespace
} // namespace zelta
