#include "app/components/CopyChip.h"

#include "tests/app/support/HandClock.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTest>

namespace zelta {
namespace {

using namespace std::chrono_literals;

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

struct Stage
{
    test::HandClock clock;
    CopyChip chip {clock, Module::calendar};
    QImage resting;

    Stage()
    {
        chip.setCopyText(QStringLiteral("25 March 2026"));
        chip.resize(chip.sizeHint());
        QGuiApplication::clipboard()->clear();
        resting = image();
    }

    QImage image() { return chip.grab().toImage(); }
    bool showsMark() { return image() != resting; }
};

TEST(CopyChip, CopiesItsTextOnAClick)
{
    Stage stage;
    stage.chip.click();
    EXPECT_EQ(clipboardText(), QStringLiteral("25 March 2026"));
}

TEST(CopyChip, ShowsItsMarkForHalfASecond)
{
    Stage stage;
    EXPECT_FALSE(stage.showsMark());
    stage.chip.click();
    stage.clock.advance(499ms);
    EXPECT_TRUE(stage.showsMark());
    EXPECT_EQ(stage.chip.accessibleDescription(), QStringLiteral("Copied"));
    stage.clock.advance(1ms);
    EXPECT_FALSE(stage.showsMark());
    EXPECT_EQ(stage.chip.accessibleDescription(), QString()) << "its hover help describes it";
}

TEST(CopyChip, StartsTheHalfSecondAnewWithEachClick)
{
    Stage stage;
    stage.chip.click();
    stage.clock.advance(300ms);
    stage.chip.click();
    stage.clock.advance(499ms);
    EXPECT_TRUE(stage.showsMark());
    stage.clock.advance(1ms);
    EXPECT_FALSE(stage.showsMark());
}

TEST(CopyChip, CopiesWithSpaceAndEnter)
{
    Stage stage;
    QTest::keyClick(&stage.chip, Qt::Key_Space);
    EXPECT_EQ(clipboardText(), QStringLiteral("25 March 2026"));
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(&stage.chip, Qt::Key_Return);
    EXPECT_EQ(clipboardText(), QStringLiteral("25 March 2026"));
}

TEST(CopyChip, SaysWhatAClickDoes)
{
    const Stage stage;
    EXPECT_EQ(stage.chip.toolTip(), QStringLiteral("Click to copy “25 March 2026”"));
    EXPECT_EQ(stage.chip.accessibleName(), QStringLiteral("25 March 2026"));
}

} // namespace
} // namespace zelta
