#include "app/pages/DurationView.h"

#include "app/components/DayTile.h"
#include "app/components/ResultList.h"
#include "app/components/Switch.h"
#include "app/model/Text.h"
#include "app/pages/DateInput.h"
#include "app/pages/DatePicker.h"
#include "core/CalendarKit.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/StandInInputMethod.h"
#include "tests/app/support/TestModel.h"
#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace zelta::test {
namespace {

using namespace std::chrono_literals;

/// The page by itself. It is Saturday, 7 March 2026, 13:00 in Paris.
struct Stage
{
    Environment zone {"TZ", "Europe/Paris"};
    TestModel test;
    DurationView page {test.model};

    Stage()
    {
        page.resize(840, 900);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&page));
    }

    QLineEdit* field(const char* name) const { return named<QLineEdit>(page, toQt(name)); }

    /// As a person does it: select what is there, and type.
    void type(const char* name, const char* text) const
    {
        QLineEdit* line = field(name);
        line->setFocus();
        line->selectAll();
        QTest::keyClicks(line, toQt(text));
    }

    void paste(const char* name, const char* text) const
    {
        QApplication::clipboard()->setText(toQt(text));
        QLineEdit* line = field(name);
        line->selectAll();
        if (*text == '\0')
            QTest::keyClick(line, Qt::Key_Delete);
        else
            line->paste();
    }

    void typeDate(const std::string& which, const char* day, const char* month, const char* year) const
    {
        type((which + ", day").c_str(), day);
        type((which + ", month").c_str(), month);
        type((which + ", year").c_str(), year);
    }

    std::string fields(const std::string& which) const
    {
        std::string texts;
        for (const char* part : {", day", ", month", ", year"})
            texts += toUtf8(field((which + part).c_str())->text()) + "|";
        return texts;
    }

    std::vector<QAbstractButton*> buttons(const QString& name) const
    {
        std::vector<QAbstractButton*> found;
        for (QAbstractButton* button : page.findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == name || button->text() == name)
                found.push_back(button);
        }
        return found;
    }

    void press(const char* name, std::size_t which = 0) const { buttons(toQt(name)).at(which)->click(); }

    /// How many times a text is to be seen.
    int count(const char* text) const
    {
        int found = 0;
        for (const QLabel* label : page.findChildren<QLabel*>())
            found += label->isVisibleTo(&page) && label->text() == toQt(text) ? 1 : 0;
        for (const QAbstractButton* button : page.findChildren<QAbstractButton*>())
            found += button->isVisibleTo(&page) && button->text() == toQt(text) ? 1 : 0;
        return found;
    }

    std::string row(std::string_view label) const
    {
        for (const ResultRow& row : page.findChild<ResultList*>()->rows()) {
            if (row.label == label)
                return row.value;
        }
        return "none";
    }

    std::string title() const { return page.findChild<ResultList*>()->title(); }
};

TEST(DurationPage, BeginsWithTodayTwice)
{
    const Stage stage;
    EXPECT_EQ(stage.fields("Start date"), "07|03|2026|");
    EXPECT_EQ(stage.fields("End date"), "07|03|2026|");
    EXPECT_EQ(stage.row("Total days"), "0");
    EXPECT_EQ(stage.buttons(QStringLiteral("Saturday, 7 March 2026")).size(), 2U);
    EXPECT_EQ(stage.title(), "Sat, 07 Mar 2026 → Sat, 07 Mar 2026");
}

TEST(DurationPage, ComputesWhatIsTyped)
{
    const Stage stage;
    stage.typeDate("Start date", "02", "03", "2026");
    stage.typeDate("End date", "15", "04", "2026");
    EXPECT_EQ(stage.row("Total days"), "44");
    EXPECT_EQ(stage.row("Workdays"), "32");
    EXPECT_EQ(stage.row("Daylight-saving shift"), "\u22121h 00m 00s");
    EXPECT_EQ(stage.title(), "Mon, 02 Mar 2026 → Wed, 15 Apr 2026");
    EXPECT_EQ(stage.buttons(QStringLiteral("Monday, 2 March 2026")).size(), 1U);
    EXPECT_EQ(stage.count("Wed"), 1);
}

TEST(DurationPage, DoesNotRewriteWhatIsTyped)
{
    const Stage stage;
    stage.type("Start date, day", "2");
    EXPECT_EQ(stage.fields("Start date"), "2|03|2026|");
    EXPECT_EQ(stage.row("Total days"), "5");
    stage.type("Start date, day", "+6");
    EXPECT_EQ(stage.fields("Start date"), "+6|03|2026|");
    EXPECT_EQ(stage.row("Total days"), "1");
}

TEST(DurationPage, AnUnfinishedEntryIsNeverWrong)
{
    const Stage stage;
    for (const char* part : {"", "7a", "-", "April", "12345678901234567890", "31/04/2026"}) {
        stage.paste("End date, day", part);
        EXPECT_EQ(stage.count("Not a real date"), 0) << part;
        EXPECT_EQ(stage.row("To"), "Saturday, 7 March 2026") << part;
    }
    stage.type("End date, year", "26");
    stage.paste("End date, day", "31");
    stage.paste("End date, month", "04");
    EXPECT_EQ(stage.count("Not a real date"), 0);
    EXPECT_EQ(stage.row("To"), "Saturday, 7 March 2026");
}

TEST(DurationPage, ADateThatDoesNotExistLeavesTheOneInForce)
{
    const Stage stage;
    stage.type("End date, year", "20");
    stage.typeDate("End date", "31", "04", "2026");
    EXPECT_EQ(stage.count("Not a real date"), 1);
    EXPECT_EQ(stage.row("To"), "Saturday, 7 March 2026");
    EXPECT_EQ(stage.count("Sat"), 2); // the badges tell the dates in force
    stage.type("End date, day", "30");
    EXPECT_EQ(stage.count("Not a real date"), 0);
    EXPECT_EQ(stage.row("To"), "Thursday, 30 April 2026");
}

TEST(DurationPage, TheWarningMovesNothing)
{
    const Stage stage;
    const int before = stage.page.findChild<ResultList*>()->y();
    stage.typeDate("End date", "31", "04", "2026");
    ASSERT_EQ(stage.count("Not a real date"), 1);
    QTest::qWait(0);
    EXPECT_EQ(stage.page.findChild<ResultList*>()->y(), before);
}

TEST(DurationPage, TodayWritesTheDateOutInFull)
{
    const Stage stage;
    stage.typeDate("Start date", "31", "04", "2026");
    stage.press("Today");
    EXPECT_EQ(stage.fields("Start date"), "07|03|2026|");
    EXPECT_EQ(stage.count("Not a real date"), 0);
}

TEST(DurationPage, TodayTakesThePlaceOfWhatIsBeingComposed)
{
    const Stage stage;
    QLineEdit* day = stage.field("Start date, day");
    day->setFocus();
    day->clear();
    StandInInputMethod::compose(*day, QStringLiteral("3"));
    for (auto* button : stage.page.findChild<DateInput*>()->findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("Today"))
            button->click();
    }
    EXPECT_EQ(StandInInputMethod::composed(), QString()) << "or it would be put into today's day later";
    EXPECT_EQ(day->text(), QStringLiteral("07"));
}

TEST(DurationPage, PickingTheDateInForceWritesItOutInFull)
{
    const Stage stage;
    stage.typeDate("Start date", "31", "04", "2026");
    stage.press("Pick from a calendar");
    auto* picker = stage.page.findChild<DatePicker*>();
    ASSERT_TRUE(picker->isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(stage.fields("Start date"), "31|03|2026|");
    EXPECT_EQ(stage.count("Not a real date"), 0);
}

TEST(DurationPage, TodayLeavesTheCalendarOpen)
{
    const Stage stage;
    stage.typeDate("Start date", "01", "01", "2026");
    stage.press("Pick from a calendar");
    for (QPushButton* button : stage.page.findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("Today")) {
            QTest::mouseClick(button, Qt::LeftButton);
            break;
        }
    }
    EXPECT_EQ(stage.fields("Start date"), "07|03|2026|");
    EXPECT_TRUE(stage.page.findChild<DatePicker*>()->isVisible());
    for (const DayTile* tile : stage.page.findChild<DatePicker*>()->findChildren<DayTile*>())
        EXPECT_EQ(tile->isSelected(), tile->cell().key == "2026-03-07") << tile->cell().key;
    stage.press("Pick from a calendar");
    EXPECT_FALSE(stage.page.findChild<DatePicker*>()->isVisible());
}

TEST(DurationPage, AnotherZoneKeepsTheDaysThatWereEntered)
{
    const Stage stage;
    stage.typeDate("Start date", "07", "03", "2026");
    stage.typeDate("End date", "15", "04", "2026");
    const Environment zone("TZ", "America/New_York");
    stage.page.findChild<Switch*>()->click();
    EXPECT_EQ(stage.row("From"), "Saturday, 7 March 2026");
    EXPECT_EQ(stage.row("To"), "Wednesday, 15 April 2026");
    EXPECT_EQ(stage.row("Total days"), "40");
    stage.type("End date, day", "16");
    EXPECT_EQ(stage.row("Total days"), "41");
    stage.press("Swap the start and end dates");
    EXPECT_EQ(stage.fields("End date"), "07|03|2026|");
}

TEST(DurationPage, ADateIsToldOnce)
{
    const Stage stage;
    stage.typeDate("Start date", "31", "01", "2026");
    QSignalSpy told(stage.page.findChild<DateInput*>(), &DateInput::dateChanged);
    stage.press("Today");
    EXPECT_EQ(told.count(), 1) << "no date of old and new fields in between";
    stage.press("Today");
    stage.type("Start date, day", "7");
    EXPECT_EQ(told.count(), 1) << "the same date again";
}

TEST(DurationPage, ButtonsSayWhatTheyAreFor)
{
    const Stage stage;
    for (const char* name : {"Pick from a calendar", "Today"}) {
        EXPECT_EQ(stage.buttons(toQt(name))[0]->accessibleDescription(), QStringLiteral("Start date"));
        EXPECT_EQ(stage.buttons(toQt(name))[1]->accessibleDescription(), QStringLiteral("End date"));
    }
    EXPECT_EQ(stage.buttons(QStringLiteral("Today"))[2]->accessibleDescription(),
              QStringLiteral("Quick spans"));
}

TEST(DurationPage, TakesADateFromAssistiveTechnology)
{
    const Stage stage;
    stage.typeDate("Start date", "31", "04", "2026");
    enterAccessibly(*stage.field("Start date, day"), QStringLiteral("03"));
    EXPECT_EQ(stage.count("Not a real date"), 0);
    EXPECT_EQ(stage.count("Friday, 3 April 2026"), 2) << "below the fields, and in the result";
}

TEST(DurationPage, SwapsTheDates)
{
    const Stage stage;
    stage.press("30 days");
    stage.press("Swap the start and end dates");
    EXPECT_EQ(stage.fields("Start date"), "06|04|2026|");
    EXPECT_EQ(stage.fields("End date"), "07|03|2026|");
    EXPECT_EQ(stage.row("Total days"), "30");
    EXPECT_EQ(stage.row("Direction"), "End date is before start date");
    EXPECT_EQ(stage.title(), "Mon, 06 Apr 2026 → Sat, 07 Mar 2026");
    stage.press("Swap the start and end dates");
    EXPECT_EQ(stage.row("Direction"), "none");
    EXPECT_EQ(stage.row("Total days"), "30");
}

TEST(DurationPage, QuickSpansBeginToday)
{
    Stage stage;
    stage.typeDate("Start date", "01", "01", "2020");
    for (const auto& [name, end] : {std::pair("7 days", "14|03|2026|"),
                                    {"30 days", "06|04|2026|"},
                                    {"90 days", "05|06|2026|"},
                                    {"1 year", "07|03|2027|"}}) {
        stage.press(name);
        EXPECT_EQ(stage.fields("Start date"), "07|03|2026|") << name;
        EXPECT_EQ(stage.fields("End date"), end) << name;
    }
    // A year of 365 days: across a leap day it ends a day early. Today is asked for at the click.
    stage.test.clock.setWallClock(Calendar("Europe/Paris").instant({{2027, 6, 1}, 12}).value());
    stage.press("1 year");
    EXPECT_EQ(stage.fields("Start date"), "01|06|2027|");
    EXPECT_EQ(stage.fields("End date"), "31|05|2028|");
    stage.press("Today", 2); // after those of the two dates
    EXPECT_EQ(stage.fields("End date"), "01|06|2027|");
}

TEST(DurationPage, IncludesTheEndDate)
{
    const Stage stage;
    stage.press("7 days");
    stage.page.findChild<Switch*>()->click();
    EXPECT_EQ(stage.row("Total days"), "8");
    EXPECT_EQ(stage.row("To"), "Saturday, 14 March 2026");
}

TEST(DurationPage, ANewWeekendRuleCountsAtOnce)
{
    Stage stage;
    stage.press("7 days");
    EXPECT_EQ(stage.row("Workdays"), "5");
    stage.test.model.setWeekendPresetID("none");
    EXPECT_EQ(stage.row("Workdays"), "7");
    EXPECT_EQ(
        stage.count("Day counts follow calendar boundaries, so leap days and daylight-saving changes never "
                    "shift the answer by a day. Weekends follow the rule set in Settings — currently No "
                    "weekend."),
        1);
}

TEST(DurationPage, SavesWhatStoodStill)
{
    Stage stage;
    stage.press("7 days");
    stage.test.clock.advance(1499ms);
    EXPECT_TRUE(stage.test.model.store().history(10).empty());
    stage.test.clock.advance(1ms);
    const auto history = stage.test.model.store().history(10);
    ASSERT_EQ(history.size(), 1U);
    EXPECT_EQ(history[0].module, "duration");
    EXPECT_EQ(history[0].title, "Sat, 07 Mar 2026 → Sat, 14 Mar 2026");
    EXPECT_EQ(history[0].summary, "Total days: 7");
}

TEST(DurationPage, CopiesTheLongDate)
{
    const Stage stage;
    const auto dates = stage.buttons(QStringLiteral("Saturday, 7 March 2026"));
    ASSERT_GE(dates.size(), 2U);
    EXPECT_EQ(dates[0]->toolTip(), QStringLiteral("Click to copy this date"));
    QApplication::clipboard()->setText({});
    dates[0]->click();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Saturday, 7 March 2026"));
}

TEST(DurationPage, FieldsHaveTheirWidthsAndHints)
{
    const Stage stage;
    EXPECT_EQ(stage.field("Start date, day")->width(), 54);
    EXPECT_EQ(stage.field("Start date, month")->width(), 54);
    EXPECT_EQ(stage.field("End date, year")->width(), 74);
    EXPECT_EQ(stage.field("Start date, day")->placeholderText(), QStringLiteral("dd"));
    EXPECT_EQ(stage.field("Start date, month")->placeholderText(), QStringLiteral("mm"));
    EXPECT_EQ(stage.field("End date, year")->placeholderText(), QStringLiteral("yyyy"));
}

} // namespace
} // namespace zelta::test
