#include "tests/app/support/HistoryStage.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

namespace zelta {
namespace {

using namespace std::chrono_literals;

struct HistoryScrollTest : testing::Test, test::HistoryStage
{
    /// The card at the top of what is seen; null where a gap is.
    HistoryCard* cardAtTop() const
    {
        const auto* list = view.findChild<HistoryList*>();
        const QPoint top = list->mapFrom(area.viewport(), QPoint(100, 0));
        for (HistoryCard* card : cards()) {
            if (card->geometry().contains(top))
                return card;
        }
        return nullptr;
    }
};

TEST_F(HistoryScrollTest, ListsFiveHundredOfMore)
{
    saveMany(501);
    show();
    EXPECT_EQ(titles().front(), "500");
    scrollTo(end());
    EXPECT_EQ(titles().back(), "1");
    EXPECT_TRUE(texts(view).contains(QStringLiteral("500 saved")));
}

TEST_F(HistoryScrollTest, MakesOnlyTheCardsInViewAndSomeAround)
{
    saveMany(500);
    area.show();
    QCoreApplication::sendPostedEvents();
    const auto first = cards().size();
    EXPECT_GE(first, 6U) << "a window's height of cards";
    EXPECT_LT(first, 12U);
    EXPECT_TRUE(isFilled());
    const int length = view.height();
    settle();
    EXPECT_GT(cards().size(), first) << "the next ones for the Tab key";
    EXPECT_LT(cards().size(), 20U);
    EXPECT_EQ(view.height(), length) << "the page has its length from the start";
}

TEST_F(HistoryScrollTest, WhereverItIsScrolledToTheCardsAreThere)
{
    saveMany(500);
    show();
    for (const int y : {100, 5000, end(), end() - 60, 20'000, 19'000, 0}) {
        scrollTo(y);
        EXPECT_TRUE(isFilled()) << y;
        EXPECT_EQ(area.verticalScrollBar()->value(), y) << "cards of usual height move nothing";
    }
    EXPECT_LT(cards().size(), 120U) << "what was passed over in a leap was not made";
}

TEST_F(HistoryScrollTest, AHigherWindowIsFilledAsWell)
{
    saveMany(500);
    show();
    area.resize(800, 2000);
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(isFilled());
    EXPECT_GE(cards().size(), 18U);
}

TEST_F(HistoryScrollTest, FoldingBringsTheNextCards)
{
    saveMany(100);
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "line\n";
    ASSERT_TRUE(test.model.store().addHistory({0, test::HandClock::noon, "percent", "tall", "s", lines}));
    show();
    Button* toggle = detailsButton(*cards()[0]);
    QTest::mouseClick(toggle, Qt::LeftButton);
    scrollTo(700);
    QTest::mouseClick(toggle, Qt::LeftButton);
    settle();
    EXPECT_TRUE(isFilled());
}

TEST_F(HistoryScrollTest, NewEntriesAboveDoNotMoveWhatIsRead)
{
    saveMany(100);
    show();
    scrollTo(2000);
    HistoryCard* read = cardAtTop();
    ASSERT_NE(read, nullptr);
    const auto place = [&] { return read->mapTo(area.viewport(), QPoint()).y(); };
    const auto record = [this](const char* title) {
        test.model.record(Module::percent, title, {{"label", "1", {}, Weight::headline, {}}});
        settle();
    };
    const int before = place();
    record("new");
    EXPECT_EQ(place(), before);
    EXPECT_TRUE(isFilled());

    area.hide();
    record("newer");
    show();
    EXPECT_EQ(place(), before) << "nor do those that came meanwhile";

    scrollTo(0);
    record("newest");
    EXPECT_EQ(area.verticalScrollBar()->value(), 0) << "at the start the new one is what is looked for";
    EXPECT_EQ(titles().front(), "newest");
}

TEST_F(HistoryScrollTest, TallerCardsAboveDoNotMoveWhatIsRead)
{
    std::string words;
    for (int i = 0; i < 60; ++i)
        words += "1,234,567 × ";
    for (int i = 0; i < 100; ++i)
        save(words);
    show();
    scrollTo(end() - 3000);
    const auto made = cards().size();
    for (int step = 0; step < 100; ++step) {
        const QWidget* read = cardAtTop();
        const int before = read != nullptr ? read->mapTo(area.viewport(), QPoint()).y() : 0;
        scrollTo(area.verticalScrollBar()->value() - 40);
        EXPECT_TRUE(isFilled());
        if (read != nullptr) {
            EXPECT_EQ(read->mapTo(area.viewport(), QPoint()).y(), before + 40) << step;
        }
    }
    EXPECT_GT(cards().size(), made) << "some were made on the way";
}

TEST_F(HistoryScrollTest, AnotherWidthDoesNotMoveWhatIsRead)
{
    for (int i = 0; i < 200; ++i)
        save("Saturday, 7 March 2026 → Wednesday, 30 September 2026, number " + std::to_string(i));
    show();
    for (int y = 0; y < 8000; y += 300)
        scrollTo(y);
    const HistoryCard* read = cardAtTop();
    ASSERT_NE(read, nullptr);
    const int shown = read->mapTo(area.viewport(), QPoint()).y();
    for (const int width : {500, 480, 700, 1000, 500, 800}) {
        area.resize(width, 700);
        settle();
        EXPECT_TRUE(isFilled()) << width;
        EXPECT_EQ(cardAtTop(), read) << width;
        for (const HistoryCard* card : cards()) {
            if (!card->visibleRegion().isEmpty()) {
                EXPECT_EQ(card->width(), read->width());
                EXPECT_EQ(card->height(), card->heightForWidth(card->width()));
            }
        }
    }
    EXPECT_NEAR(read->mapTo(area.viewport(), QPoint()).y(), shown, 5) << "and back where it was";
    area.hide();
    area.resize(500, 700);
    show();
    EXPECT_EQ(cardAtTop(), read) << "also of a window that was hidden";
}

TEST_F(HistoryScrollTest, TheTabKeyReachesEveryEntry)
{
    saveMany(60);
    show();
    QApplication::setActiveWindow(&area);
    clearButton()->setFocus();
    for (int i = 59; i >= 0; --i) {
        for (int control = 0; control < 3; ++control) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(QApplication::focusWidget()->accessibleDescription().toStdString(), std::to_string(i));
        }
        settle();
    }
}

TEST_F(HistoryScrollTest, ShowsItsCardsAgainWhenItIsSeenAgain)
{
    saveMany(100);
    show();
    scrollTo(end());
    scrollTo(0);
    const auto all = titles();
    view.hide();
    view.show();
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(isFilled()) << "those in view at once";
    EXPECT_LT(cards().size(), all.size());
    scrollTo(end());
    EXPECT_TRUE(isFilled());
}

} // namespace
} // namespace zelta
