#include "app/components/ResultLines.h"

#include "app/components/Label.h"
#include "app/components/ResultLine.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "tests/app/support/HandClock.h"
#include "tests/app/support/Tip.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace zelta {
namespace {

using namespace std::chrono_literals;

using Rows = std::vector<ResultRow>;

const Rows fourRows {
    {"X is this much of Y", "66.6667%", {}, Weight::headline, Tone::neutral},
    {"Y is this much of X", "150%", {}, Weight::primary, Tone::neutral},
    {"Change X → Y", "+50%", "increase", Weight::primary, Tone::up},
    {"Difference (Y − X)", "25", {}, Weight::primary, Tone::up},
};

/// Result lines in a window of their own, 700 wide.
struct Stage
{
    test::HandClock clock;
    QWidget window;
    ResultLines* lines = new ResultLines(clock, &window);

    explicit Stage(const Rows& rows = fourRows)
    {
        auto* column = new QVBoxLayout(&window);
        lines->addTo(column, 0, 0);
        column->addStretch(1);
        lines->setRows(rows);
        window.resize(700, 400);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QGuiApplication::clipboard()->clear();
    }

    /// The visible lines from top to bottom.
    [[nodiscard]] std::vector<ResultLine*> shown() const
    {
        std::vector<ResultLine*> all;
        for (ResultLine* line : lines->findChildren<ResultLine*>()) {
            if (line->isVisible())
                all.push_back(line);
        }
        std::ranges::sort(all, {}, [](const ResultLine* line) { return line->y(); });
        return all;
    }
    [[nodiscard]] ResultLine* line(std::size_t index) const { return shown().at(index); }
    [[nodiscard]] QLabel* value(std::size_t index) const { return line(index)->findChild<QLabel*>(); }
    [[nodiscard]] std::vector<bool> marks() const
    {
        std::vector<bool> all;
        for (const ResultLine* line : shown())
            all.push_back(line->isMarked());
        return all;
    }
};

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

using Marks = std::vector<bool>;

TEST(ResultLines, CopyTheValueAloneOnAClick)
{
    const Stage stage;
    QTest::mouseClick(stage.line(2), Qt::LeftButton, {}, QPoint(30, 10));
    EXPECT_EQ(clipboardText(), QStringLiteral("+50%"));
}

TEST(ResultLines, CopyAlsoWhenTheValueItselfIsClicked)
{
    const Stage stage;
    QTest::mouseClick(stage.value(1), Qt::LeftButton);
    EXPECT_EQ(clipboardText(), QStringLiteral("150%"));
}

TEST(ResultLines, CopyAgainOnTheSecondOfTwoQuickClicks)
{
    const Stage stage;
    const QSignalSpy clicked(stage.line(1), &QAbstractButton::clicked);
    QTest::mouseClick(stage.value(1), Qt::LeftButton);
    QTest::mouseDClick(stage.value(1), Qt::LeftButton);
    QTest::mouseRelease(stage.value(1), Qt::LeftButton);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_FALSE(stage.value(1)->hasSelectedText());
}

TEST(ResultLines, CopyNothingOnARightClick)
{
    const Stage stage;
    QTest::mouseClick(stage.value(1), Qt::RightButton);
    EXPECT_EQ(clipboardText(), QString());
}

TEST(ResultLines, MarkALineForHalfASecond)
{
    Stage stage;
    stage.line(1)->click();
    EXPECT_EQ(stage.marks(), (Marks {false, true, false, false}));
    stage.clock.advance(499ms);
    EXPECT_EQ(stage.marks(), (Marks {false, true, false, false}));
    stage.clock.advance(1ms);
    EXPECT_EQ(stage.marks(), (Marks {false, false, false, false}));
}

TEST(ResultLines, MoveTheMarkToTheLineClickedLast)
{
    Stage stage;
    stage.line(0)->click();
    stage.clock.advance(300ms);
    stage.line(3)->click();
    EXPECT_EQ(stage.marks(), (Marks {false, false, false, true}));
    stage.clock.advance(499ms);
    EXPECT_EQ(stage.marks(), (Marks {false, false, false, true}));
    stage.clock.advance(1ms);
    EXPECT_EQ(stage.marks(), (Marks {false, false, false, false}));
}

TEST(ResultLines, KeepTheMarkWithItsLabel)
{
    const Stage stage;
    stage.line(3)->click();
    stage.lines->setRows(Rows {fourRows[0], fourRows[3]});
    EXPECT_EQ(stage.marks(), (Marks {false, true}));
}

TEST(ResultLines, CopyWithSpaceAndEnter)
{
    const Stage stage;
    QTest::keyClick(stage.line(0), Qt::Key_Space);
    EXPECT_EQ(clipboardText(), QStringLiteral("66.6667%"));
    QTest::keyClick(stage.line(3), Qt::Key_Enter);
    EXPECT_EQ(clipboardText(), QStringLiteral("25"));
}

TEST(ResultLines, SelectTextOnADragOfFourPixels)
{
    const Stage stage;
    QLabel* value = stage.value(0);
    const QPoint left(1, value->height() / 2);
    const auto drag = [&](const QPoint& end) {
        QTest::mousePress(value, Qt::LeftButton, {}, left);
        QTest::mouseMove(value, end);
        QMouseEvent move(QEvent::MouseMove, end, value->mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(value, &move);
        QTest::mouseRelease(value, Qt::LeftButton, {}, end);
    };
    drag(left + QPoint(3, 0));
    EXPECT_EQ(clipboardText(), QStringLiteral("66.6667%"));
    EXPECT_FALSE(value->hasSelectedText());

    QGuiApplication::clipboard()->clear();
    drag(QPoint(value->width() - 1, left.y()));
    EXPECT_EQ(clipboardText(), QString());
    EXPECT_EQ(value->selectedText(), QStringLiteral("66.6667%"));
    EXPECT_EQ(stage.window.focusWidget(), value) << "so that Ctrl+C copies it";
    QTest::mouseClick(stage.line(1), Qt::LeftButton);
    EXPECT_FALSE(value->hasSelectedText()) << "Ctrl+C would undo what the click has copied";
}

TEST(ResultLines, ShowAValueInTheSamePlaceWhenItIsSelected)
{
    Rows rows = fourRows;
    rows.push_back({"Elided", std::string(90, '8'), {}, Weight::primary, Tone::neutral});
    Stage stage(rows);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        QLabel* value = stage.value(i);
        QPalette palette;
        palette.setColor(QPalette::Highlight, Qt::transparent);
        palette.setColor(QPalette::HighlightedText, value->palette().color(value->foregroundRole()));
        stage.window.setPalette(palette);
        const QImage before = stage.line(i)->grab().toImage();
        value->setSelection(0, static_cast<int>(value->text().size()));
        ASSERT_TRUE(value->hasSelectedText());
        EXPECT_EQ(stage.line(i)->grab().toImage(), before) << rows[i].value;
    }
}

TEST(ResultLines, CopyNothingOnADragOverTheLabel)
{
    const Stage stage;
    QTest::mousePress(stage.line(0), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseRelease(stage.line(0), Qt::LeftButton, {}, QPoint(60, 20));
    EXPECT_EQ(clipboardText(), QString());
}

TEST(ResultLines, StayInPlaceWhileTheirValuesChange)
{
    const Stage stage;
    const auto before = stage.shown();
    before[1]->setFocus(Qt::TabFocusReason);
    Rows changed = fourRows;
    changed[1].value = "1,500%";
    changed[2].note = "decrease";
    stage.lines->setRows(changed);
    EXPECT_EQ(stage.shown(), before);
    EXPECT_EQ(before[1]->row(), changed[1]);
    EXPECT_EQ(before[1]->accessibleName(), QStringLiteral("Y is this much of X: 1,500%"));
    EXPECT_EQ(stage.lines->window()->focusWidget(), before[1]);
}

TEST(ResultLines, AreKeptForWhatComesNext)
{
    const Stage stage;
    const auto before = stage.shown();
    const auto count = stage.lines->findChildren<ResultLine*>().size();
    stage.lines->setRows(Rows {fourRows[0], fourRows[3]});
    EXPECT_EQ(stage.shown(), (std::vector {before[0], before[3]}));
    stage.lines->setRows(Rows {});
    EXPECT_TRUE(stage.shown().empty());
    stage.lines->setRows(fourRows);
    EXPECT_EQ(stage.shown(), before);
    EXPECT_EQ(stage.lines->findChildren<ResultLine*>().size(), count);
}

TEST(ResultLines, AreReadAndReachedByTabInTheOrderInWhichTheyStand)
{
    const Stage stage(Rows {fourRows[0], fourRows[1]});
    stage.lines->setRows(Rows {fourRows[2], fourRows[0]});
    EXPECT_EQ(stage.lines->findChildren<ResultLine*>(), QList<ResultLine*>({stage.line(0), stage.line(1)}));
    stage.line(0)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stage.line(0), Qt::Key_Tab);
    EXPECT_EQ(stage.lines->window()->focusWidget(), stage.line(1));
}

TEST(ResultLines, SayThemselvesInWords)
{
    const Stage stage;
    EXPECT_EQ(stage.line(2)->accessibleName(), QStringLiteral("Change X → Y: +50% (increase)"));
    EXPECT_EQ(stage.line(2)->toolTip(), QStringLiteral("Click to copy “+50%”"));
}

TEST(ResultLines, ColourTheValueByItsToneAndElseTheHeadline)
{
    Rows rows = fourRows;
    rows[1].tone = Tone::down;
    rows.push_back({"Rise", "5", {}, Weight::headline, Tone::up});
    rows.push_back({"Plain", "6", {}, Weight::primary, Tone::neutral});
    const Stage stage(rows);
    using Theme::Token;
    const auto inks = std::to_array(
        {Token::accentInk, Token::downInk, Token::upInk, Token::upInk, Token::upInk, Token::text});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QLabel* value = stage.value(i);
        const Label same({}, Theme::FontRole::value, inks[i]);
        EXPECT_EQ(value->palette().color(value->foregroundRole()),
                  same.palette().color(same.foregroundRole()))
            << rows[i].label;
    }
}

TEST(ResultLines, StandAloneWithoutALabel)
{
    const Stage stage(Rows {});
    stage.lines->setTexts(std::vector<std::string> {"1 mi = 1.609344 km", "1 ft = 0.3048 m"});
    ASSERT_EQ(stage.shown().size(), 2U);
    EXPECT_EQ(stage.line(1)->accessibleName(), QStringLiteral("1 ft = 0.3048 m"));
    EXPECT_EQ(stage.value(1)->x(), ResultLine::bleed);
    stage.line(1)->click();
    EXPECT_EQ(clipboardText(), QStringLiteral("1 ft = 0.3048 m"));
    EXPECT_EQ(stage.marks(), (Marks {false, true}));
    EXPECT_EQ(stage.line(1)->accessibleDescription(), QStringLiteral("Copied"));
    EXPECT_EQ(stage.line(0)->accessibleDescription(), QString()) << "its hover help describes it";
}

TEST(ResultLines, PutValuesOnOneRightEdge)
{
    const Stage stage;
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(stage.value(i)->geometry().right(), stage.value(0)->geometry().right());
}

TEST(ResultLines, MoveTheNoteBelowWhereItDoesNotFit)
{
    const Stage stage(
        Rows {{"Label", "1,234,567", "a note of some length beside a value", Weight::primary, {}}});
    EXPECT_EQ(stage.line(0)->heightForWidth(600), 40);
    EXPECT_GT(stage.line(0)->heightForWidth(260), 40);
}

TEST(ResultLines, MoveTheValueBelowWhereItDoesNotFit)
{
    const std::string digits(38, '9');
    const Stage stage(Rows {{digits + " mi in kilometre", digits + " km", {}, Weight::headline, {}}});
    EXPECT_GT(stage.value(0)->y(), 26);
    EXPECT_GT(stage.line(0)->height(), 52);
    EXPECT_LE(stage.value(0)->geometry().right(), stage.line(0)->width());
}

TEST(ResultLines, KeepTheWholeTextOfAnElidedValue)
{
    const std::string digits(60, '9');
    const Stage stage(Rows {{"1 =", digits, {}, Weight::headline, {}}});
    EXPECT_TRUE(stage.value(0)->text().contains(QChar(0x2026)));
    EXPECT_TRUE(stage.value(0)->alignment().testFlag(Qt::AlignRight)); // what is left over stays at its left
    EXPECT_EQ(stage.line(0)->toolTip(), QStringLiteral("Click to copy “%1”").arg(toQt(digits)));
    EXPECT_EQ(stage.line(0)->childAt(stage.value(0)->geometry().center()), nullptr)
        << "a selection would be copied with its ellipsis";
    EXPECT_EQ(stage.line(0)->toolTipDuration(), Metric::lastingTip);
    stage.line(0)->click();
    EXPECT_EQ(clipboardText(), toQt(digits));
}

TEST(ResultLines, ShowAnElidedLabelInTheHoverHelp)
{
    const std::string label(120, '9');
    const Stage stage(Rows {{label, "1", {}, Weight::primary, {}}});
    const QPoint overLabel(20, 12);
    QHelpEvent help(QEvent::ToolTip, overLabel, stage.line(0)->mapToGlobal(overLabel));
    QApplication::sendEvent(stage.line(0), &help);
    EXPECT_EQ(QToolTip::text(), toQt(label));
    EXPECT_TRUE(test::tipLasts()) << "a long text takes longer to read than a tip usually stays";
    QToolTip::hideText();
}

} // namespace
} // namespace zelta
