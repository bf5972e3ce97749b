#include "app/look/Theme.h"
#include "tests/app/support/CalculatorStage.h"
#include "tests/app/support/Tip.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QImage>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>

namespace zelta {
namespace {

using Stage = test::CalculatorStage;

TEST(CalculatorTapePanel, SaysWhatItIsForWhileEmpty)
{
    const Stage stage;
    EXPECT_TRUE(stage.shows(
        "Completed calculations appear here. Click one to bring its result back into the display."));
    EXPECT_TRUE(stage.lines().empty());
    EXPECT_FALSE(stage.button("Copy tape")->isEnabled());
    EXPECT_FALSE(stage.button("Clear tape")->isEnabled());
    EXPECT_TRUE(stage.button("Save to history")->isEnabled());
    EXPECT_FALSE(Stage::action(stage.tape(), "Copy tape")->isEnabled());
    EXPECT_FALSE(Stage::action(stage.tape(), "Clear tape")->isEnabled());
}

TEST(CalculatorTapePanel, ListsNewestFirst)
{
    Stage stage;
    stage.type("12+3\r1200*3\r");
    const auto lines = stage.lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]->accessibleName(), QStringLiteral("1,200 × 3 = 3,600"));
    EXPECT_EQ(lines[0]->toolTip(), QStringLiteral("Use 3,600"));
    EXPECT_EQ(lines[1]->accessibleName(), QStringLiteral("12 + 3 = 15"));
    Q_EMIT stage.button("Copy tape")->clicked();
    EXPECT_EQ(stage.clipboard(), "1,200 × 3 = 3,600\n12 + 3 = 15");
}

TEST(CalculatorTapePanel, TellsTwoLinesOfOneResultApart)
{
    Stage stage;
    stage.type("1+1\r5-3\r");
    EXPECT_EQ(stage.lines()[0]->accessibleName(), QStringLiteral("5 − 3 = 2"));
    EXPECT_EQ(stage.lines()[1]->accessibleName(), QStringLiteral("1 + 1 = 2"));
}

TEST(CalculatorTapePanel, BringsBackAllDigitsOfAResult)
{
    Stage stage;
    stage.type("1/3\rc0*");
    QTest::mouseClick(stage.lines().front(), Qt::LeftButton);
    EXPECT_EQ(stage.display(), "0.3333333333");
    EXPECT_EQ(stage.page.calculator().value(), 1_dec / 3_dec);
    stage.type("c5+");
    QTest::mouseClick(stage.lines().front(), Qt::LeftButton);
    stage.type("\r");
    EXPECT_EQ(stage.display(), "5.3333333333") << "the pending operation survives";
}

TEST(CalculatorTapePanel, ShowsAnElidedExpressionInTheHoverHelp)
{
    Stage stage;
    stage.type("123456789012345*987654321098765\r1+1\r");
    const auto helpOver = [](TapeLine* line, int x) {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, QPoint(x, 10), line->mapToGlobal(QPoint(x, 10)));
        QApplication::sendEvent(line, &help);
        return QToolTip::text();
    };
    TapeLine* whole = stage.lines()[0];
    TapeLine* cut = stage.lines()[1];
    EXPECT_EQ(helpOver(cut, TapeLine::bleed + 1), cut->accessibleName());
    EXPECT_TRUE(test::tipLasts()) << "a long text takes longer to read than a tip usually stays";
    EXPECT_EQ(cut->toolTipDuration(), Metric::lastingTip) << "the result can be long, too";
    EXPECT_EQ(helpOver(cut, cut->width() - 30), cut->toolTip());
    EXPECT_EQ(helpOver(whole, TapeLine::bleed + 1), QStringLiteral("Use 2"));
    QToolTip::hideText();
}

TEST(CalculatorTapePanel, LeavesRoomForTheExpressionBesideALongResult)
{
    Stage stage;
    stage.type("123456789012345*987654321098765\r*123456789012345\r*123456789012345\r");
    TapeLine* line = stage.lines()[0];
    const QImage shown = line->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int gap = 0;
    int widestGap = 0;
    for (int x = TapeLine::bleed; x < shown.width() / 2; ++x) {
        const QImage column = shown.copy(x, 4, 1, shown.height() - 8);
        QImage blank(column.size(), column.format());
        blank.fill(shown.pixel(1, 4));
        gap = column == blank ? gap + 1 : 0;
        widestGap = std::max(widestGap, gap);
    }
    EXPECT_GE(widestGap, 10) << qPrintable(line->accessibleName());
}

TEST(CalculatorTapePanel, CopiesALineFromItsMenu)
{
    Stage stage;
    stage.type("1200*3\r");
    const TapeLine* line = stage.lines().front();
    EXPECT_EQ(line->contextMenuPolicy(), Qt::ActionsContextMenu);
    Stage::action(line, "Copy result")->trigger();
    EXPECT_EQ(stage.clipboard(), "3,600");
    EXPECT_EQ(stage.flash(), "Copied");
    Stage::action(line, "Copy line")->trigger();
    EXPECT_EQ(stage.clipboard(), "1,200 × 3 = 3,600");
    EXPECT_EQ(stage.flash(), "Copied");
    EXPECT_EQ(stage.display(), "3,600");
}

TEST(CalculatorTapePanel, IsClearedOnRequest)
{
    Stage stage;
    stage.type("1+1\r");
    stage.type("1+1\r");
    Q_EMIT stage.button("Clear tape")->clicked();
    EXPECT_TRUE(stage.lines().empty());
    EXPECT_EQ(stage.display(), "2");
    EXPECT_FALSE(stage.button("Clear tape")->isEnabled());
    stage.type("\r");
    EXPECT_EQ(stage.lines().size(), 1U);
    Stage::action(stage.tape(), "Copy tape")->trigger();
    EXPECT_EQ(stage.clipboard(), "2 + 1 = 3");
    Stage::action(stage.tape(), "Clear tape")->trigger();
    EXPECT_TRUE(stage.lines().empty());
}

TEST(CalculatorTapePanel, KeepsFortyLinesAndScrollsToTheNewest)
{
    Stage stage;
    stage.type("1+1\r");
    for (int i = 0; i < 45; ++i)
        stage.type("\r");
    EXPECT_EQ(stage.lines().size(), 40U);
    auto* area = stage.tape()->findChild<QScrollArea*>();
    QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    stage.type("5");
    EXPECT_EQ(area->verticalScrollBar()->value(), area->verticalScrollBar()->maximum());
    stage.type("c46+1\r");
    EXPECT_EQ(area->verticalScrollBar()->value(), 0);
    EXPECT_EQ(stage.lines().front()->accessibleName(), QStringLiteral("46 + 1 = 47"));
}

TEST(CalculatorTapePanel, IsReachedByTabFromTheKeysLineByLineThenItsButtons)
{
    Stage stage;
    stage.type("1+1\r\r");
    stage.button("Equals")->setFocus();
    QStringList stops;
    for (int i = 0; i < 5; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* stop = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        ASSERT_NE(stop, nullptr);
        stops += stop->accessibleName().isEmpty() ? stop->text() : stop->accessibleName();
    }
    EXPECT_EQ(toUtf8(stops.join(QStringLiteral("; "))),
              "2 + 1 = 3; 1 + 1 = 2; Copy tape; Save to history; Clear tape");
}

TEST(CalculatorTapePanel, KeepsTheFocusWhenItIsCleared)
{
    Stage stage;
    for (const bool isOnLine : {false, true}) {
        stage.type("1+1\r");
        (isOnLine ? stage.lines().front() : stage.button("Clear tape"))->setFocus();
        stage.button("Clear tape")->click();
        EXPECT_EQ(QApplication::focusWidget(), stage.button("Save to history")) << isOnLine;
    }
}

TEST(CalculatorTapePanel, MovesTheFocusToTheNewestLine)
{
    Stage stage;
    stage.type("1+1\r\r\r");
    stage.lines().back()->setFocus();
    stage.type("\r");
    EXPECT_EQ(QApplication::focusWidget(), stage.lines().front());
}

} // namespace
} // namespace zelta
