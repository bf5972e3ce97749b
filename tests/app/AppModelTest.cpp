#include "app/model/AppModel.h"

#include "core/Sqlite.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>

namespace zelta {
namespace {

using namespace std::chrono_literals;

const std::vector<ResultRow> rows {{"Share", "50%", std::nullopt, Weight::headline, Tone::neutral},
                                   {"Change", "+100%", "increase", Weight::primary, Tone::up}};
const std::vector<ResultRow> otherRows {{"Share", "60%", std::nullopt, Weight::headline, Tone::neutral}};

struct AppModelTest : testing::Test
{
    test::TestModel test;
    test::HandClock& clock = test.clock;
    AppModel& model = test.model;

    std::vector<HistoryEntry> history() { return model.store().history(500); }
};

/// What a model makes of one stored setting.
struct Restored : test::TestModel
{
    Restored(std::string_view key, std::string_view value)
        : TestModel({{key, value}})
    { }
};

TEST_F(AppModelTest, WithoutSettingsStartsOnTheCalculatorWithSaturdayAndSundayAndTwelveHours)
{
    EXPECT_EQ(model.selection(), Module::calculator);
    EXPECT_EQ(model.weekendPresetID(), "sat-sun");
    EXPECT_EQ(model.weekendRule(), WeekendRule::satSun());
    EXPECT_FALSE(model.use24Hour());
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
    EXPECT_EQ(model.historyToken(), 0);
}

TEST_F(AppModelTest, ReadsTheClockFormatInAnyLetterCaseOfTrue)
{
    EXPECT_TRUE(Restored("clock24", "TRUE").model.use24Hour());
    EXPECT_TRUE(Restored("clock24", "True").model.use24Hour());
    EXPECT_TRUE(Restored("clock24", "1").model.use24Hour());
    EXPECT_FALSE(Restored("clock24", "yes").model.use24Hour());
    EXPECT_FALSE(Restored("clock24", "2").model.use24Hour());
}

TEST_F(AppModelTest, AnUnknownPageFallsBackToTheCalculatorAndStaysStored)
{
    Restored capital("module", "Calculator");
    EXPECT_EQ(capital.model.selection(), Module::calculator);
    EXPECT_EQ(capital.model.store().setting("module"), "Calculator");
    EXPECT_EQ(Restored("module", "abacus").model.selection(), Module::calculator);
    EXPECT_EQ(Restored("module", "notes").model.selection(), Module::notes);
}

TEST_F(AppModelTest, AnUnknownWeekendIsKeptWhileItsRuleFallsBack)
{
    Restored unknown("weekend", "SAT-SUN");
    EXPECT_EQ(unknown.model.weekendPresetID(), "SAT-SUN");
    EXPECT_EQ(unknown.model.weekendRule(), WeekendRule::satSun());
    EXPECT_EQ(unknown.model.store().setting("weekend"), "SAT-SUN");
}

TEST_F(AppModelTest, EachSettingIsStoredWhenItChanges)
{
    const QSignalSpy selection(&model, &AppModel::selectionChanged);
    const QSignalSpy weekend(&model, &AppModel::weekendRuleChanged);
    const QSignalSpy hours(&model, &AppModel::use24HourChanged);
    model.setSelection(Module::duration);
    model.setWeekendPresetID("fri");
    model.setUse24Hour(true);
    EXPECT_EQ(model.store().setting("module"), "duration");
    EXPECT_EQ(model.store().setting("weekend"), "fri");
    EXPECT_EQ(model.store().setting("clock24"), "1");
    EXPECT_EQ(selection.count(), 1);
    EXPECT_EQ(weekend.count(), 1);
    EXPECT_EQ(hours.count(), 1);
    model.setUse24Hour(false);
    EXPECT_EQ(model.store().setting("clock24"), "0");
    model.setWeekendPresetID(model.weekendPresetID());
    EXPECT_EQ(model.store().setting("weekend"), "fri");
    EXPECT_EQ(weekend.count(), 1);
}

TEST_F(AppModelTest, TodayIsTheFirstMomentOfTheDay)
{
    EXPECT_EQ(model.today(), CalendarKit::makeDate(8, 3, 2026, 0, 0, 0, model.calendar()));
}

TEST_F(AppModelTest, ClockTextFollowsTheFormat)
{
    const Instant evening = *CalendarKit::makeDate(7, 3, 2026, 21, 5, 59, model.calendar());
    EXPECT_EQ(model.clockText(evening), "9:05 PM");
    model.setUse24Hour(true);
    EXPECT_EQ(model.clockText(evening), "21:05");
}

TEST_F(AppModelTest, TheSettingsSubtitleNamesTheRuleAndTheClock)
{
    EXPECT_EQ(model.subtitle(Module::settings), "Saturday & Sunday, 12-hour clock");
    model.setWeekendPresetID("fri-sat");
    model.setUse24Hour(true);
    EXPECT_EQ(model.subtitle(Module::settings), "Friday & Saturday (Gulf), 24-hour clock");
    EXPECT_EQ(model.subtitle(Module::history), "Everything you have calculated, saved");
}

TEST_F(AppModelTest, RecordWritesAtOnceWithTheHeadlineAsSummary)
{
    model.record(Module::percent, "1 compared with 2", rows);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].createdAt, clock.now());
    EXPECT_EQ(history()[0].module, "percent");
    EXPECT_EQ(history()[0].title, "1 compared with 2");
    EXPECT_EQ(history()[0].summary, "Share: 50%");
    EXPECT_EQ(history()[0].detail, "Share: 50%\nChange: +100%  (increase)");
    EXPECT_EQ(model.historyToken(), 1);
}

TEST_F(AppModelTest, WithoutAHeadlineTheFirstRowIsTheSummaryNoteIncluded)
{
    model.record(Module::percent, "t", {rows[1]});
    EXPECT_EQ(history()[0].summary, "Change: +100%  (increase)");
}

TEST_F(AppModelTest, AWriteThatFailsIsCountedAndToldAllTheSame)
{
    const QSignalSpy told(&model, &AppModel::historyTokenChanged);
    sqlite::Connection::open(model.store().url().string()).execute("DROP TABLE history;");
    model.record(Module::percent, "t", rows);
    EXPECT_EQ(model.historyToken(), 1);
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(model.lastSaveMessage(), "Saved to history");
}

TEST_F(AppModelTest, NoRowsRecordNothing)
{
    model.record(Module::percent, "t", {});
    model.autoRecord(Module::percent, "t", {});
    clock.advance(5s);
    EXPECT_TRUE(history().empty());
    EXPECT_EQ(model.historyToken(), 0);
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
}

TEST_F(AppModelTest, SavedToHistoryStaysForTwoSeconds)
{
    model.record(Module::percent, "t", rows);
    EXPECT_EQ(model.lastSaveMessage(), "Saved to history");
    clock.advance(1999ms);
    EXPECT_EQ(model.lastSaveMessage(), "Saved to history");
    clock.advance(1ms);
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
}

TEST_F(AppModelTest, ASecondSaveKeepsTheMessageForItsOwnTwoSeconds)
{
    model.record(Module::percent, "t", rows);
    clock.advance(1s);
    model.record(Module::percent, "t", rows);
    clock.advance(1999ms);
    EXPECT_EQ(model.lastSaveMessage(), "Saved to history");
    clock.advance(1ms);
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
    EXPECT_EQ(history().size(), 2U);
}

TEST_F(AppModelTest, AnAutomaticSaveWhileTheMessageShowsDoesNotLeaveItForEver)
{
    model.autoRecord(Module::percent, "t", otherRows);
    clock.advance(500ms);
    model.record(Module::percent, "t", rows); // The automatic save follows one second later.
    clock.advance(2999ms);
    EXPECT_EQ(model.lastSaveMessage(), "Saved to history");
    clock.advance(1ms);
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
    EXPECT_EQ(history().size(), 2U);
}

TEST_F(AppModelTest, AnAutomaticSaveAloneShowsNoMessage)
{
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(2s);
    EXPECT_EQ(model.lastSaveMessage(), std::nullopt);
    EXPECT_EQ(model.historyToken(), 1);
}

TEST_F(AppModelTest, AutoRecordWritesWhenAResultStoodStillForOneAndAHalfSeconds)
{
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(1499ms);
    EXPECT_TRUE(history().empty());
    clock.advance(1ms);
    EXPECT_EQ(history().size(), 1U);
}

TEST_F(AppModelTest, ABurstOfChangesIsOneEntryForTheLastState)
{
    for (int i = 0; i < 5; ++i) {
        model.autoRecord(Module::percent, "first", rows);
        clock.advance(200ms);
        model.autoRecord(Module::percent, "second", otherRows);
        clock.advance(200ms);
    }
    clock.advance(1299ms);
    EXPECT_TRUE(history().empty());
    clock.advance(1ms);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].title, "second");
}

TEST_F(AppModelTest, TheResultThatWasSavedLastIsNotSavedAgain)
{
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(1500ms);
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(5s);
    EXPECT_EQ(history().size(), 1U);
}

TEST_F(AppModelTest, ReturningToTheLastSavedResultLeavesThePendingSaveRunning)
{
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(1500ms);
    model.autoRecord(Module::percent, "t", otherRows);
    clock.advance(1s);
    model.autoRecord(Module::percent, "t", rows);
    clock.advance(500ms);
    ASSERT_EQ(history().size(), 2U);
    EXPECT_EQ(history()[0].detail, plainText(otherRows));
}

TEST_F(AppModelTest, AManualSaveLeavesTheAutomaticOneAlone)
{
    model.autoRecord(Module::percent, "t", rows);
    model.record(Module::percent, "t", rows);
    clock.advance(1500ms);
    EXPECT_EQ(history().size(), 2U);
}

TEST_F(AppModelTest, AnAutomaticSaveKeepsTheProcessAlive)
{
    model.autoRecord(Module::percent, "t", rows);
    EXPECT_TRUE(clock.hasPendingSaves());
    clock.advance(1500ms);
    EXPECT_FALSE(clock.hasPendingSaves());
    model.record(Module::percent, "t", rows);
    EXPECT_FALSE(clock.hasPendingSaves());
}

TEST(AppModelLaunchStore, ExpandsALeadingTildeOnly)
{
    const QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    const std::string path = home.path().toStdString();
    EXPECT_EQ(AppModel::launchStore("~/a.sqlite")->url(), path + "/a.sqlite");
    EXPECT_EQ(AppModel::launchStore(path + "/~b.sqlite")->url(), path + "/~b.sqlite");
}

TEST(AppModelLaunchStore, KeepsTheBlanksAroundAPath)
{
    const QTemporaryDir folder;
    const std::string path = folder.path().toStdString() + "/c.sqlite ";
    EXPECT_EQ(AppModel::launchStore(path)->url(), path);
}

TEST(AppModelLaunchStore, UsesTheDefaultLocationForNoneAndForBlanks)
{
    const QTemporaryDir data;
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    const std::string expected = data.path().toStdString() + "/Zelta Basic/zelta-basic.sqlite";
    EXPECT_EQ(AppModel::launchStore(std::nullopt)->url(), expected);
    EXPECT_EQ(AppModel::launchStore("")->url(), expected);
    EXPECT_EQ(AppModel::launchStore(" \t ")->url(), expected);
}

} // namespace
} // namespace zelta
