#include "app/pages/DatePicker.h"

#include "app/components/DayTile.h"
#include "app/components/IconButton.h"
#include "app/model/Text.h"
#include "core/CalendarKit.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/TestModel.h"
#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace zelta::test {
namespace {

/// The popover below a button, opened at a date. Today is Saturday, 7 March 2026 in Paris.
struct Stage
{
    Environment zone {"TZ", "Europe/Paris"};
    TestModel test;
    QWidget window;
    QPushButton anchor {&window};
    DatePicker picker {test.model, anchor};
    std::string picked; ///< Each picked day, followed by a blank.

    explicit Stage(const CivilDay& day = {2026, 3, 2})
    {
        QObject::connect(&picker, &DatePicker::datePicked, &picker, [this](Instant date) {
            picked += CalendarKit::dayKey(date, test.model.calendar()) + " ";
        });
        anchor.setFocusPolicy(Qt::TabFocus); // as all buttons of the program
        window.resize(500, 400);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        picker.openAt(anchor, test.model.calendar().instantOrAfterJump({day}).value());
    }

    void press(const char* name) const { named<QPushButton>(picker, toQt(name))->click(); }

    void key(Qt::Key key) { QTest::keyClick(picker.focusWidget(), key); }

    QString title() const
    {
        for (const QLabel* label : picker.findChildren<QLabel*>()) {
            if (label->text().contains(QStringLiteral(" 2")) || label->text().contains(QStringLiteral(" 9")))
                return label->text();
        }
        return {};
    }

    DayTile* tile(const std::string& key) const
    {
        for (DayTile* tile : picker.findChildren<DayTile*>()) {
            if (tile->isVisible() && tile->cell().key == key)
                return tile;
        }
        ADD_FAILURE() << "no day " << key;
        return nullptr;
    }
};

TEST(DatePicker, ShowsTheMonthOfTheDate)
{
    const Stage stage;
    EXPECT_EQ(stage.picker.width(), 286);
    EXPECT_EQ(stage.title(), QStringLiteral("March 2026"));
    EXPECT_TRUE(stage.tile("2026-03-02")->isSelected());
    EXPECT_TRUE(stage.tile("2026-03-07")->cell().isToday);
    EXPECT_EQ(stage.tile("2026-03-02")->accessibleName(), QStringLiteral("Monday, 2 March 2026"));
    EXPECT_LT(stage.tile("2026-03-02")->x(), stage.tile("2026-03-08")->x());
}

TEST(DatePicker, AVeilIsLaidOverDaysThatAreNotChosenOnly)
{
    const Stage stage;
    for (const auto& [day, isVeiled] : {std::pair {"2026-03-02", false}, {"2026-03-03", true}}) {
        DayTile* tile = stage.tile(day);
        const QImage before = tile->grab().toImage();
        tile->setDown(true);
        EXPECT_EQ(tile->grab().toImage() != before, isVeiled) << "white on a lighter fill is hard to read";
        tile->setDown(false);
    }
}

TEST(DatePicker, AClickPicksAndCloses)
{
    Stage stage;
    QTest::mouseClick(stage.tile("2026-03-25"), Qt::LeftButton);
    EXPECT_EQ(stage.picked, "2026-03-25 ");
    EXPECT_FALSE(stage.picker.isVisible());
}

TEST(DatePicker, ReturnEnterAndSpacePickTheDayWithTheFocus)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        Stage stage;
        stage.press("Next month");
        stage.key(key);
        EXPECT_EQ(stage.picked, "2026-04-01 ") << key;
        EXPECT_FALSE(stage.picker.isVisible()) << key;
    }
}

TEST(DatePicker, LiesInsideTheWindowWhereverItsButtonIs)
{
    Stage stage;
    stage.picker.close();
    stage.window.resize(700, 620);
    // It takes four weeks; May, three months later, takes six.
    const Instant february = stage.test.model.calendar().instantOrAfterJump({{2027, 2, 1}}).value();
    for (const QPoint& place : {QPoint(0, 0), QPoint(660, 40), QPoint(20, 580), QPoint(660, 320)}) {
        stage.anchor.setGeometry(QRect(place, QSize(40, 36)));
        DatePicker picker(stage.test.model, stage.anchor);
        picker.openAt(stage.anchor, february);
        const int lowest = picker.height();
        for (int months = 0; months <= 3; ++months) {
            QCoreApplication::sendPostedEvents();
            picker.adjustSize();
            const QRect area = picker.geometry();
            EXPECT_TRUE(stage.window.rect().contains(area)) << place.x() << ' ' << place.y() << ' ' << months;
            EXPECT_FALSE(area.intersects(stage.anchor.geometry())) << place.x() << ' ' << place.y();
            picker.findChildren<IconButton*>().back()->click(); // "Next month"
        }
        EXPECT_GT(picker.height(), lowest);
    }
}

TEST(DatePicker, OpensInItsPlaceWhateverMonthItHasShownBefore)
{
    Stage stage;
    stage.window.resize(700, 620);
    stage.anchor.setGeometry(QRect(20, 420, 40, 36));
    for (const CivilDay& day : {CivilDay {2027, 2, 1}, {2027, 5, 1}, {2027, 2, 1}}) {
        stage.picker.close();
        stage.picker.openAt(stage.anchor, stage.test.model.calendar().instantOrAfterJump({day}).value());
        QCoreApplication::sendPostedEvents();
        EXPECT_FALSE(stage.picker.geometry().intersects(stage.anchor.geometry())) << day.month;
        EXPECT_EQ(stage.picker.y(), 420 - 4 - 278) << day.month << ": where six weeks have room";
    }
}

TEST(DatePicker, TurningTheMonthOverPicksNothing)
{
    Stage stage;
    stage.press("Next month");
    EXPECT_EQ(stage.title(), QStringLiteral("April 2026"));
    stage.press("Previous month");
    stage.press("Previous month");
    EXPECT_EQ(stage.title(), QStringLiteral("February 2026"));
    EXPECT_EQ(stage.picked, "");
    EXPECT_TRUE(stage.picker.isVisible());
}

TEST(DatePicker, PageKeysMoveTheDateByAMonth)
{
    Stage stage({2026, 1, 31});
    stage.key(Qt::Key_PageDown);
    EXPECT_EQ(stage.title(), QStringLiteral("February 2026"));
    stage.key(Qt::Key_PageUp);
    EXPECT_EQ(stage.picked, "2026-02-28 2026-01-28 ");
    EXPECT_TRUE(stage.tile("2026-01-28")->hasFocus());
}

TEST(DatePicker, ArrowsMoveTheDate)
{
    Stage stage;
    stage.key(Qt::Key_Right);
    stage.key(Qt::Key_Down);
    stage.key(Qt::Key_Left);
    stage.key(Qt::Key_Up);
    stage.key(Qt::Key_Up);
    EXPECT_EQ(stage.picked, "2026-03-03 2026-03-10 2026-03-09 2026-03-02 2026-02-23 ");
    EXPECT_EQ(stage.title(), QStringLiteral("February 2026"));
    stage.key(Qt::Key_Return);
    EXPECT_FALSE(stage.picker.isVisible());
    EXPECT_EQ(stage.picked, "2026-03-03 2026-03-10 2026-03-09 2026-03-02 2026-02-23 2026-02-23 ")
        << "also the date in force is picked";
}

TEST(DatePicker, ArrowsGoOnFromTheDayWithTheFocus)
{
    Stage stage;
    stage.press("Next month");
    stage.press("Next month");
    EXPECT_TRUE(stage.tile("2026-05-01")->hasFocus());
    stage.key(Qt::Key_Right);
    EXPECT_EQ(stage.picked, "2026-05-02 ");
    EXPECT_EQ(stage.title(), QStringLiteral("May 2026"));
}

TEST(DatePicker, TabStaysWithin)
{
    Stage stage;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), i < 3 ? Qt::Key_Tab : Qt::Key_Backtab);
        EXPECT_TRUE(stage.picker.isAncestorOf(QApplication::focusWidget())) << i;
    }
    EXPECT_TRUE(stage.picker.isVisible());
}

TEST(DatePicker, IsPartOfTheWindowForAssistiveTechnology)
{
    Stage stage;
    const QAccessibleInterface* seen = accessible(*stage.tile("2026-03-02")).parent()->parent();
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("Pick from a calendar"));
    EXPECT_GE(accessible(stage.window).indexOfChild(seen), 0);
}

TEST(DatePicker, APressElsewhereClosesItAndCounts)
{
    Stage stage;
    QPushButton elsewhere(&stage.window);
    elsewhere.setFocusPolicy(Qt::TabFocus);
    elsewhere.setGeometry(440, 350, 40, 30);
    elsewhere.show();
    const QSignalSpy clicked(&elsewhere, &QPushButton::clicked);
    QTest::mouseClick(&stage.anchor, Qt::LeftButton);
    EXPECT_TRUE(stage.picker.isVisible()) << "the owner's own";
    QTest::mouseClick(&stage.picker, Qt::LeftButton, {}, {5, 5});
    EXPECT_TRUE(stage.picker.isVisible());
    QTest::mouseClick(&elsewhere, Qt::LeftButton);
    EXPECT_FALSE(stage.picker.isVisible());
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(stage.anchor.hasFocus());
}

TEST(DatePicker, StaysWhileItsOwnerIsLaidOutAnew)
{
    Stage stage;
    stage.anchor.resize(stage.anchor.width(), stage.anchor.height() + 20);
    EXPECT_TRUE(stage.picker.isVisible());
}

TEST(DatePicker, GoesWhenSomethingElseIsUsed)
{
    Stage stage;
    QLineEdit elsewhere(&stage.window);
    elsewhere.setGeometry(440, 350, 40, 30);
    elsewhere.show();
    const auto turnWheel = [](QWidget& widget) {
        const QPointF middle = QRectF(widget.rect()).center();
        QWheelEvent wheel(middle, widget.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &wheel);
    };
    const Instant date = stage.test.model.today();
    turnWheel(stage.picker);
    EXPECT_TRUE(stage.picker.isVisible());
    turnWheel(elsewhere);
    EXPECT_FALSE(stage.picker.isVisible()) << "what is scrolled would pass below it";
    stage.picker.openAt(stage.anchor, date);
    elsewhere.setFocus();
    EXPECT_FALSE(stage.picker.isVisible());
    stage.picker.openAt(stage.anchor, date);
    stage.window.resize(600, 500);
    EXPECT_FALSE(stage.picker.isVisible()) << "its button may have moved";
}

TEST(DatePicker, GoesWithItsOwner)
{
    Stage stage;
    stage.anchor.hide();
    EXPECT_FALSE(stage.picker.isVisible());
}

TEST(DatePicker, EscapeClosesIt)
{
    Stage stage;
    stage.key(Qt::Key_Escape);
    EXPECT_FALSE(stage.picker.isVisible());
    EXPECT_EQ(stage.picked, "");
}

TEST(DatePicker, EndsWithTheLastYearThatCanBeTyped)
{
    Stage stage({9999, 12, 31});
    stage.key(Qt::Key_Right);
    stage.key(Qt::Key_PageDown);
    stage.press("Next month");
    EXPECT_EQ(stage.picked, "");
    EXPECT_EQ(stage.title(), QStringLiteral("December 9999"));
}

} // namespace
} // namespace zelta::test
