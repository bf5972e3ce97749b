#include "app/components/ResultList.h"

#include "app/components/Button.h"
#include "app/components/ResultLine.h"
#include "app/model/Text.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>

namespace zelta {
namespace {

using namespace std::chrono_literals;

using Rows = std::vector<ResultRow>;

const Rows rows {
    {"Total", "44", "days", Weight::headline, Tone::neutral},
    {"Weeks", "6", {}, Weight::primary, Tone::up},
};
const Rows otherRows {{"Total", "45", {}, Weight::headline, Tone::neutral}};

QString clipboardText()
{
    return QGuiApplication::clipboard()->text();
}

struct ResultListTest : testing::Test
{
    test::TestModel test;
    std::unique_ptr<ResultList> list = make(Module::percent);

    std::unique_ptr<ResultList> make(std::optional<Module> module)
    {
        QGuiApplication::clipboard()->clear();
        return std::make_unique<ResultList>(test.model, module, QStringLiteral("Nothing yet."));
    }

    [[nodiscard]] Button* button(const QString& label) const
    {
        for (Button* candidate : list->findChildren<Button*>()) {
            if (candidate->label() == label)
                return candidate;
        }
        return nullptr;
    }
    [[nodiscard]] bool shows(const QString& text) const
    {
        const auto labels = list->findChildren<QLabel*>();
        return std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
    }
    std::vector<HistoryEntry> history() { return test.model.store().history(500); }
    void waitForAutoSave() { test.clock.advance(1500ms); }
};

TEST_F(ResultListTest, ShowsOnlyItsMessageWithoutRows)
{
    list->show();
    EXPECT_TRUE(shows(QStringLiteral("Nothing yet.")));
    EXPECT_TRUE(shows(QStringLiteral("Result")));
    EXPECT_FALSE(button(QStringLiteral("Copy all results"))->isVisible());
    list->setRows(rows, "t");
    EXPECT_FALSE(shows(QStringLiteral("Nothing yet.")));
    EXPECT_TRUE(shows(QStringLiteral("44")));
    EXPECT_TRUE(button(QStringLiteral("Copy all results"))->isVisible());
    list->setRows({}, "t");
    EXPECT_TRUE(shows(QStringLiteral("Nothing yet.")));
    EXPECT_FALSE(shows(QStringLiteral("44")));
    EXPECT_FALSE(button(QStringLiteral("Copy all results"))->isVisible());
}

TEST_F(ResultListTest, CopiesAllLinesAndSaysSoForHalfASecond)
{
    list->setRows(rows, "t");
    Button* copy = button(QStringLiteral("Copy all results"));
    copy->click();
    EXPECT_EQ(clipboardText(), QStringLiteral("Total: 44  (days)\nWeeks: 6"));
    EXPECT_EQ(copy->text(), QStringLiteral("Copied"));
    test.clock.advance(499ms);
    EXPECT_EQ(copy->text(), QStringLiteral("Copied"));
    test.clock.advance(1ms);
    EXPECT_EQ(copy->text(), QStringLiteral("Copy all results"));
}

TEST_F(ResultListTest, MovesItsMarkBetweenTheButtonAndALine)
{
    list->setRows(rows, "t");
    Button* copy = button(QStringLiteral("Copy all results"));
    auto* line = list->findChild<ResultLine*>();
    copy->click();
    test.clock.advance(400ms);
    line->click();
    EXPECT_EQ(copy->text(), QStringLiteral("Copy all results"));
    EXPECT_TRUE(line->isMarked());
    test.clock.advance(499ms);
    EXPECT_TRUE(line->isMarked());
    test.clock.advance(1ms);
    EXPECT_FALSE(line->isMarked());
    line->click();
    copy->click();
    EXPECT_FALSE(line->isMarked());
    EXPECT_EQ(copy->text(), QStringLiteral("Copied"));
}

TEST_F(ResultListTest, SavesAtOnceOnlyForAPage)
{
    list->setRows(rows, "61 days");
    list->setRows(rows, "two months"); // the same rows under another title
    button(QStringLiteral("Save to history"))->click();
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].title, "two months");
    EXPECT_EQ(history()[0].module, "percent");
    EXPECT_EQ(history()[0].detail, "Total: 44  (days)\nWeeks: 6");
    EXPECT_EQ(test.model.lastSaveMessage(), "Saved to history");

    list = make(std::nullopt);
    list->setRows(rows, "t");
    EXPECT_EQ(button(QStringLiteral("Save to history")), nullptr);
    EXPECT_NE(button(QStringLiteral("Copy all results")), nullptr);
}

TEST_F(ResultListTest, OffersItsRowsToTheHistoryWhenFirstShown)
{
    list->setRows(rows, "first");
    waitForAutoSave();
    EXPECT_TRUE(history().empty());
    list->show();
    test.clock.advance(1499ms);
    EXPECT_TRUE(history().empty());
    test.clock.advance(1ms);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].title, "first");
}

TEST_F(ResultListTest, OffersEachChangeOfItsText)
{
    list->show();
    list->setRows(rows, "first");
    test.clock.advance(1000ms);
    list->setRows(otherRows, "second");
    test.clock.advance(1499ms);
    EXPECT_TRUE(history().empty());
    test.clock.advance(1ms);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].title, "second");
}

TEST_F(ResultListTest, OffersNothingForAnotherTitleOrToneOfTheSameText)
{
    list->show();
    list->setRows(rows, "first");
    test.clock.advance(1000ms);
    Rows sameText = rows;
    sameText[0].tone = Tone::down;
    list->setRows(sameText, "second");
    test.clock.advance(500ms);
    ASSERT_EQ(history().size(), 1U);
    EXPECT_EQ(history()[0].title, "first");
}

TEST_F(ResultListTest, RecordsNothingWithoutRowsOrPage)
{
    list->show();
    list->setRows({}, "t");
    waitForAutoSave();
    EXPECT_TRUE(history().empty());
    list = make(std::nullopt);
    list->show();
    list->setRows(rows, "t");
    waitForAutoSave();
    EXPECT_TRUE(history().empty());
}

} // namespace
} // namespace zelta
