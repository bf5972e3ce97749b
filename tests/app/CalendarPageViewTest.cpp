#include "app/pages/CalendarPageView.h"

#include "app/components/CopyChip.h"
#include "app/components/DayTile.h"
#include "app/components/Tag.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "core/CalendarKit.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"
#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace zelta::test {
namespace {

using namespace std::chrono_literals;

/// The page in a window that also has a text field. It is Saturday, 7 March 2026, 13:00 in Paris.
struct Stage
{
    Environment zone {"TZ", "Europe/Paris"};
    TestModel test;
    QWidget window;
    QLineEdit* field = new QLineEdit(&window);
    CalendarPageView* page = new CalendarPageView(test.model, &window);

    explicit Stage(const TestModel::Settings& settings = {})
        : test(settings)
    {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(field);
        column->addWidget(page);
        window.resize(840, 760);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        window.setFocus();
    }

    QString selected() const
    {
        return toQt(CalendarKit::dayKey(page->cursor().selected, test.model.calendar()));
    }

    DayTile* tile(const char* key) const
    {
        for (DayTile* tile : page->findChildren<DayTile*>()) {
            if (tile->isVisibleTo(page) && tile->cell().key == key)
                return tile;
        }
        ADD_FAILURE() << "no tile " << key;
        return nullptr;
    }

    /// The days that a predicate holds for, by their numbers in the month.
    template <class Predicate> std::vector<int> days(Predicate predicate) const
    {
        std::vector<int> found;
        for (const DayTile* tile : page->findChildren<DayTile*>()) {
            if (tile->isVisibleTo(page) && tile->cell().inPeriod && predicate(*tile))
                found.push_back(tile->cell().dayNumber);
        }
        std::sort(found.begin(), found.end());
        return found;
    }

    std::vector<int> todays() const
    {
        return days([](const DayTile& tile) { return tile.cell().isToday; });
    }

    bool shows(const char* text) const { return showsText(*page, toQt(text)); }

    void press(const char* name) const
    {
        auto* button = named<QPushButton>(*page, toQt(name));
        ASSERT_NE(button, nullptr) << "no button " << name;
        button->click();
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &window, key, modifiers);
    }
};

TEST(CalendarPage, BeginsWithToday)
{
    Stage stage;
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
    EXPECT_TRUE(stage.shows("March 2026"));
    EXPECT_TRUE(stage.shows("Sun + Sat"));
    EXPECT_TRUE(stage.shows("Saturday, 7 March 2026"));
    EXPECT_TRUE(stage.shows("Weekend"));
    for (const char* heading : {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun", "9", "14"})
        EXPECT_TRUE(stage.shows(heading)) << heading;
    EXPECT_EQ(stage.todays(), std::vector<int> {7});
}

TEST(CalendarPage, BeginsWithTodayEachTimeItIsShown)
{
    Stage stage;
    stage.key(Qt::Key_Right);
    EXPECT_TRUE(stage.shows("April 2026"));
    stage.page->hide();
    stage.page->show();
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
    EXPECT_TRUE(stage.shows("March 2026"));
}

TEST(CalendarPage, GoesOnWhereItWasWhenItsWindowComesBackFromTheTaskBar)
{
    Stage stage;
    stage.key(Qt::Key_Right);
    QHideEvent iconified;
    QShowEvent restored;
    for (QEvent* event : {static_cast<QEvent*>(&iconified), static_cast<QEvent*>(&restored)}) {
        QSpontaneKeyEvent::setSpontaneous(event);
        qApp->notify(stage.page, event);
    }
    EXPECT_TRUE(stage.shows("April 2026"));
    stage.key(Qt::Key_T);
    stage.test.clock.advance(11h);
    EXPECT_EQ(stage.todays(), std::vector<int> {8}) << "midnight has been waited for";
}

TEST(CalendarPage, PagesWithButtonsAndKeys)
{
    Stage stage;
    stage.press("Next month");
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-04-01"));
    EXPECT_TRUE(stage.shows("Working day"));
    EXPECT_TRUE(stage.shows("18"));
    EXPECT_FALSE(stage.shows("0")) << "a month of five weeks has no sixth number";
    stage.press("Previous month");
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-01"));
    stage.key(Qt::Key_Down);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-04-01"));
    stage.key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-05-01"));
    stage.key(Qt::Key_Up);
    stage.key(Qt::Key_Left, Qt::KeypadModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-01"));
    stage.press("Today");
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
}

TEST(CalendarPage, TGoesToToday)
{
    Stage stage;
    stage.key(Qt::Key_Right);
    stage.key(Qt::Key_T);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
    stage.key(Qt::Key_Right);
    stage.key(Qt::Key_T, Qt::ShiftModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
}

TEST(CalendarPage, LeavesKeysWithControlAltOrMetaAlone)
{
    Stage stage;
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_T})
            stage.key(key, modifier);
    }
    EXPECT_TRUE(stage.shows("March 2026"));
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
}

TEST(CalendarPage, LeavesKeysToATextField)
{
    Stage stage;
    stage.field->setFocus();
    QTest::keyClicks(stage.field, QStringLiteral("at"));
    stage.key(Qt::Key_Right);
    EXPECT_EQ(stage.field->text(), QStringLiteral("at"));
    EXPECT_TRUE(stage.shows("March 2026"));
}

TEST(CalendarPage, LeavesKeysAloneWhileItIsHidden)
{
    Stage stage;
    stage.page->hide();
    stage.key(Qt::Key_Right);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
}

TEST(CalendarPage, AClickSelectsWithoutTurningTheMonth)
{
    Stage stage;
    QTest::mouseClick(stage.tile("2026-03-25"), Qt::LeftButton);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-25"));
    EXPECT_TRUE(stage.shows("Wednesday, 25 March 2026"));
    EXPECT_TRUE(stage.shows("Working day"));
    QTest::mouseClick(stage.tile("2026-04-05"), Qt::LeftButton);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-04-05"));
    EXPECT_TRUE(stage.shows("March 2026"));
    EXPECT_TRUE(stage.shows("Weekend"));
    EXPECT_TRUE(stage.tile("2026-04-05")->isSelected());
    EXPECT_FALSE(stage.tile("2026-03-25")->isSelected());
    EXPECT_EQ(stage.tile("2026-04-05")->accessibleDescription(), QStringLiteral("selected"));
    EXPECT_EQ(stage.tile("2026-03-25")->accessibleDescription(), QString());
}

TEST(CalendarPage, TheMonthIsOneTabStopThatCtrlArrowsMove)
{
    Stage stage;
    const auto stops = [&stage] {
        return stage.days([](const DayTile& tile) { return (tile.focusPolicy() & Qt::TabFocus) != 0; });
    };
    EXPECT_EQ(stops(), std::vector<int> {7});
    stage.tile("2026-03-07")->setFocus(Qt::TabFocusReason);
    stage.key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-08"));
    EXPECT_EQ(stops(), std::vector<int> {8});
    EXPECT_EQ(QApplication::focusWidget(), stage.tile("2026-03-08"));
    stage.key(Qt::Key_Up, Qt::ControlModifier);
    stage.key(Qt::Key_Up, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-02-22"));
    EXPECT_TRUE(stage.shows("February 2026"));
    EXPECT_EQ(QApplication::focusWidget(), stage.tile("2026-02-22"));
    stage.key(Qt::Key_Down);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-01"));
    EXPECT_EQ(QApplication::focusWidget(), stage.tile("2026-03-01"));

    for (int month = 0; month < 14; ++month) {
        stage.press("Next month");
        const auto tiles = stage.page->findChildren<DayTile*>();
        EXPECT_EQ(std::ranges::count(tiles, Qt::TabFocus, &DayTile::focusPolicy), 1) << month;
    }
}

TEST(CalendarPage, AClickOnADayBringsTheFocusThere)
{
    Stage stage;
    QTest::mouseClick(stage.tile("2026-03-18"), Qt::LeftButton);
    EXPECT_TRUE(stage.tile("2026-03-18")->hasFocus());
    stage.key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-19"));
    QTest::mousePress(stage.tile("2026-03-02"), Qt::LeftButton);
    QTest::mouseRelease(stage.tile("2026-03-02"), Qt::LeftButton, {}, {-5, -5});
    EXPECT_TRUE(stage.tile("2026-03-19")->hasFocus()) << "let go of elsewhere";
}

TEST(CalendarPage, TilesTellTheirDay)
{
    Stage stage;
    EXPECT_EQ(stage.tile("2026-03-07")->toolTip(), QStringLiteral("Saturday, 7 March 2026 — weekend"));
    EXPECT_EQ(stage.tile("2026-03-09")->toolTip(), QStringLiteral("Monday, 9 March 2026 — working day"));
    EXPECT_EQ(stage.tile("2026-03-09")->accessibleName(), stage.tile("2026-03-09")->toolTip());
}

TEST(CalendarPage, TilesAreLowerInASmallWindow)
{
    Stage stage;
    for (const auto& [window, tile] : {std::pair(760, 54), {1000, 54}, {690, 49}, {620, 44}}) {
        stage.window.setFixedSize(840, window);
        QApplication::sendPostedEvents();
        EXPECT_EQ(stage.tile("2026-03-07")->minimumHeight(), tile) << window;
    }
}

TEST(CalendarPage, LooksAtTheClockWhenItsWindowIsUsedAgain)
{
    Stage stage;
    ASSERT_EQ(stage.todays(), std::vector<int> {7});
    // As after sleep: the delay until midnight has stood still.
    stage.test.clock.setWallClock(stage.test.clock.now() + 30h);
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&stage.window, &activate);
    EXPECT_EQ(stage.todays(), std::vector<int> {8});
    stage.test.clock.advance(5h);
    EXPECT_EQ(stage.todays(), std::vector<int> {9}) << "the next midnight is nearer, too";
}

TEST(CalendarPage, LeavesNoFocusOnAnotherDayWhenItComesBack)
{
    Stage stage;
    stage.tile("2026-03-07")->setFocus();
    stage.key(Qt::Key_Right);
    ASSERT_TRUE(stage.tile("2026-04-01")->hasFocus());
    stage.page->hide();
    stage.page->show();
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
    EXPECT_EQ(qobject_cast<DayTile*>(stage.page->focusWidget()), nullptr);
}

TEST(CalendarPage, ATilesMenuCopiesItsDate)
{
    Stage stage;
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(stage.tile("2026-03-07"), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("Copy “Saturday, 7 March 2026”"));
    EXPECT_EQ(menu->actions()[1]->text(), QStringLiteral("Copy “Sat, 07 Mar 2026”"));
    stage.key(Qt::Key_Right);
    EXPECT_TRUE(stage.shows("March 2026")) << "a menu is open: the page takes no keys";
    menu->actions()[1]->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Sat, 07 Mar 2026"));
    menu->actions()[0]->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Saturday, 7 March 2026"));
    menu->close();
}

TEST(CalendarPage, TheSelectedDayCanBeCopied)
{
    Stage stage;
    for (const char* key : {"2026-03-07", "2026-03-25"}) {
        QTest::mouseClick(stage.tile(key), Qt::LeftButton);
        auto* chip = stage.page->findChild<CopyChip*>();
        const QString date = stage.tile(key)->toolTip().section(QStringLiteral(" — "), 0, 0);
        EXPECT_EQ(chip->toolTip(), QStringLiteral("Click to copy “%1”").arg(date));
        chip->click();
        EXPECT_EQ(QApplication::clipboard()->text(), date);
    }
}

TEST(CalendarPage, TheMonthsNameCanBeSelected)
{
    Stage stage;
    QString selected;
    for (QLabel* label : stage.page->findChildren<QLabel*>()) {
        if (label->text() == QStringLiteral("March 2026")) {
            QTest::mouseClick(label, Qt::LeftButton, {}, {5, label->height() / 2});
            QTest::mouseDClick(label, Qt::LeftButton, {}, {5, label->height() / 2});
            selected = label->selectedText();
        }
    }
    EXPECT_EQ(selected, QStringLiteral("March"));
}

/// What a tile shows halfway down, that far from its left edge.
QColor shownAt(DayTile& tile, int x)
{
    return tile.grab().toImage().pixelColor(x, tile.height() / 2);
}

TEST(CalendarPage, TilesAreColouredByTheirDay)
{
    Stage stage;
    constexpr int edge = 1;
    constexpr int ground = 5;
    const QColor workday = shownAt(*stage.tile("2026-03-25"), ground);
    const QColor weekend = shownAt(*stage.tile("2026-03-28"), ground);
    EXPECT_LT(weekend.lightness(), workday.lightness());
    EXPECT_EQ(shownAt(*stage.tile("2026-03-08"), ground), weekend);
    EXPECT_GT(shownAt(*stage.tile("2026-04-05"), ground).lightness(), weekend.lightness())
        << "a day of another month is faint";

    DayTile& today = *stage.tile("2026-03-07");
    EXPECT_EQ(shownAt(today, ground), weekend);
    EXPECT_EQ(shownAt(today, today.width() / 2 - 10).rgb(), Theme::fill(Module::calendar).rgb());
    EXPECT_EQ(shownAt(today, edge).rgb(), Theme::tint(Module::calendar).rgb()) << "it is selected";
    QTest::mouseClick(stage.tile("2026-03-25"), Qt::LeftButton);
    EXPECT_EQ(shownAt(today, edge), weekend);
}

TEST(CalendarPage, TheKindOfTheSelectedDayHasItsColour)
{
    Stage stage;
    for (const auto& [key, ink] :
         {std::pair("2026-03-07", Theme::Token::weekendInk), {"2026-03-25", Theme::Token::workdayInk}}) {
        QTest::mouseClick(stage.tile(key), Qt::LeftButton);
        const auto* kind = stage.page->findChild<Tag*>();
        EXPECT_EQ(kind->palette().color(kind->foregroundRole()), Theme::color(ink)) << key;
    }
}

TEST(CalendarPage, ANewWeekendRuleShowsAtOnce)
{
    Stage stage;
    const auto shaded
        = [&stage] { return stage.days([](const DayTile& tile) { return tile.cell().isWeekend; }).size(); };
    EXPECT_EQ(shaded(), 9U);
    stage.test.model.setWeekendPresetID("none");
    EXPECT_EQ(shaded(), 0U);
    EXPECT_TRUE(stage.shows("No weekend"));
    EXPECT_TRUE(stage.shows("Working day"));
    EXPECT_EQ(stage.tile("2026-03-07")->toolTip(), QStringLiteral("Saturday, 7 March 2026 — working day"));
}

TEST(CalendarPage, TodayMovesOnAtMidnight)
{
    Stage stage;
    stage.test.clock.advance(11h - 1ms);
    EXPECT_EQ(stage.todays(), std::vector<int> {7});
    stage.test.clock.advance(1ms);
    EXPECT_EQ(stage.todays(), std::vector<int> {8});
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
    stage.test.clock.advance(24h);
    EXPECT_EQ(stage.todays(), std::vector<int> {9});
}

TEST(CalendarPage, TodayMovesOnAcrossAChangeOfTheClocks)
{
    Stage stage;
    // To 28 March, 13:00; the night that follows is an hour shorter, and its day 23 hours long.
    stage.test.clock.advance(21 * 24h + 11h);
    EXPECT_EQ(stage.todays(), std::vector<int> {29});
    stage.test.clock.advance(23h);
    EXPECT_EQ(stage.todays(), std::vector<int> {30});
}

TEST(CalendarPage, TodayMovesOnWhereMidnightIsOutOfOrder)
{
    struct Night
    {
        const char* zone;
        Instant before; ///< A minute or two.
        int today;
    };
    // Apia skipped 30 December. In St John's clocks went back from 00:01 to 23:01: the first midnight is
    // past.
    for (const auto& [zone, before, today] :
         {Night {"Pacific/Apia", Calendar("Pacific/Apia").instant({{2011, 12, 29}, 23, 59}).value(), 31},
          Night {"America/St_Johns", Calendar("UTC").instant({{2010, 11, 7}, 3, 28}).value(), 7}}) {
        Stage stage;
        const Environment there("TZ", zone);
        stage.test.clock.setWallClock(before);
        stage.page->hide();
        stage.page->show();
        EXPECT_NE(stage.todays(), std::vector<int> {today}) << zone;
        stage.test.clock.advance(2min);
        EXPECT_EQ(stage.todays(), std::vector<int> {today}) << zone;
    }
}

TEST(CalendarPage, AnotherZoneKeepsTheSelectedDay)
{
    Stage stage;
    stage.press("Next month");
    stage.tile("2026-04-01")->setFocus();
    stage.key(Qt::Key_Right);
    stage.key(Qt::Key_Left);
    const Environment west("TZ", "America/New_York");
    stage.press("Next month");
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-05-01"));
    const Environment farWest("TZ", "Pacific/Honolulu");
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&stage.window, &activated);
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-05-01"));
    EXPECT_TRUE(stage.shows("Friday, 1 May 2026"));
    const Environment east("TZ", "Asia/Tokyo");
    stage.press("Today");
    EXPECT_EQ(stage.selected(), QStringLiteral("2026-03-07"));
}

TEST(CalendarPage, AHiddenPageWaitsForNothing)
{
    Stage stage;
    stage.page->hide();
    stage.test.clock.advance(24h);
    EXPECT_EQ(stage.todays(), std::vector<int> {7});
    stage.page->show();
    EXPECT_EQ(stage.todays(), std::vector<int> {8});
}

TEST(CalendarPage, ADayThatTheZoneSkippedLeavesAHole)
{
    Stage stage;
    const Environment apia("TZ", "Pacific/Apia");
    stage.test.clock.setWallClock(Calendar("Pacific/Apia").instant({{2011, 12, 31}, 12}).value());
    stage.press("Today");
    const auto days = stage.days([](const DayTile&) { return true; });
    EXPECT_EQ(days.size(), 30U);
    EXPECT_EQ(std::count(days.begin(), days.end(), 30), 0);
    EXPECT_EQ(stage.tile("2011-12-31")->x(), stage.tile("2011-12-24")->x());
}

} // namespace
} // namespace zelta::test
