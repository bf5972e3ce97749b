#include "app/pages/DatePicker.h"

#include "app/components/DayTile.h"
#include "app/model/Text.h"
#include "core/CalendarKit.h"
#include "tests/app/support/TestModel.h"
#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace zelta::test {
namespace {

/// The popover below a button, opened at a date. Today is Saturday, 7 March 2026 in Paris.
struct Stage
{
    Environment zone {"TZ", "Europe/Paris"};
    TestModel test;
    QWidget window;
    QPushButton anchor {&window};
    DatePicker picker {test.model, &window};
    std::string picked; ///< Each picked day, followed by a blank.

    explicit Stage(const CivilDay& day = {2026, 3, 2})
    {
        QObject::connect(&picker, &DatePicker::datePicked, &picker, [this](Instant date) {
            picked += CalendarKit::dayKey(date, test.model.calendar()) + " ";
        });
        window.resize(400, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        picker.openAt(anchor, test.model.calendar().instantOrAfterJump({day}).value());
    }

    void press(const char* name) const
    {
        for (QPushButton* button : picker.findChildren<QPushButton*>()) {
            if (button->accessibleName() == toQt(name))
                button->click();
        }
    }

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

TEST(DatePicker, AClickPicksAndCloses)
{
    Stage stage;
    QTest::mouseClick(stage.tile("2026-03-25"), Qt::LeftButton);
    EXPECT_EQ(stage.picked, "2026-03-25 ");
    EXPECT_FALSE(stage.picker.isVisible());
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
    EXPECT_EQ(stage.picked, "2026-03-03 2026-03-10 2026-03-09 2026-03-02 2026-02-23 ");
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
