#include "app/pages/PercentView.h"

#include "app/components/NumberField.h"
#include "app/components/Pill.h"
#include "app/components/ResultLine.h"
#include "app/components/ResultList.h"
#include "app/model/Text.h"
#include "tests/app/support/ByWords.h"
#include "tests/app/support/StandInInputMethod.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

namespace zelta {
namespace {

using namespace std::chrono_literals;

using Settings = test::TestModel::Settings;

/// The page in a window of its own, driven by the words on it.
struct Stage
{
    test::TestModel test;
    PercentView page;

    explicit Stage(std::string_view stored = {})
        : test(stored.empty() ? Settings {} : Settings {{"tab.percent", stored}})
        , page(test.model)
    {
        page.resize(800, 600);
        page.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    }

    [[nodiscard]] QLineEdit* field(const char* name) const
    {
        return test::named<QLineEdit>(page, toQt(name));
    }
    [[nodiscard]] NumberField* numberField(const char* name) const
    {
        return static_cast<NumberField*>(field(name)->parentWidget());
    }
    void type(const char* name, const char* text) const
    {
        QLineEdit* edit = field(name);
        edit->selectAll();
        if (*text == '\0')
            QTest::keyClick(edit, Qt::Key_Delete);
        else
            edit->insert(toQt(text));
    }
    void choose(const char* tab) const
    {
        for (Pill* pill : page.findChildren<Pill*>()) {
            if (pill->value() == toQt(tab))
                QTest::mouseClick(pill, Qt::LeftButton);
        }
    }
    [[nodiscard]] QAbstractButton* swapButton() const
    {
        return test::named<QAbstractButton>(page, QStringLiteral("Swap X and Y"));
    }
    [[nodiscard]] ResultList* results() const
    {
        for (ResultList* list : page.findChildren<ResultList*>()) {
            if (list->isVisible())
                return list;
        }
        return nullptr;
    }
    [[nodiscard]] std::string answer() const { return plainText(results()->rows()); }
    [[nodiscard]] bool shows(const char* text) const { return test::showsText(page, toQt(text)); }
    std::vector<HistoryEntry> history() { return test.model.store().history(500); }
};

TEST(PercentView, ComparesTwoNumbers)
{
    const Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "75");
    EXPECT_EQ(stage.answer(),
              "X is this much of Y: 66.6667%\n"
              "Y is this much of X: 150%\n"
              "Change X → Y: +50%  (increase)\n"
              "Difference (Y − X): 25");
    EXPECT_EQ(stage.results()->title(), "50 compared with 75");
}

TEST(PercentView, ShowsItsWords)
{
    const Stage stage;
    constexpr const char* help
        = "“X is this much of Y” answers 50 is what % of 75. “Change X → Y” measures the move from X to Y "
          "against X alone, so it reads differently going the other way.";
    for (const char* text : {"Value X", "The part, or the starting point", "Value Y",
                             "The whole, or the comparison", help, "Type two numbers to compare them."})
        EXPECT_TRUE(stage.shows(text)) << text;
    ASSERT_NE(stage.swapButton(), nullptr);
    EXPECT_EQ(stage.swapButton()->text(), QStringLiteral("Swap"));
    EXPECT_EQ(stage.swapButton()->toolTip(), QStringLiteral("Swap X and Y"));
    EXPECT_EQ(stage.field("Value X")->placeholderText(), QStringLiteral("0"));
    EXPECT_EQ(stage.field("Value X")->width(), 200);
    stage.choose("change");
    for (const char* text :
         {"Apply a percentage", "Value", "Percentage", "%", "Enter a value and a percentage."})
        EXPECT_TRUE(stage.shows(text)) << text;
    EXPECT_EQ(stage.field("Value")->width(), 180);
    EXPECT_EQ(stage.field("Percentage")->width(), 130);
}

TEST(PercentView, ReadsADecimalComma)
{
    const Stage stage;
    stage.type("Value X", "1,5");
    stage.type("Value Y", "3");
    EXPECT_EQ(stage.results()->rows()[0].value, "50%");
}

TEST(PercentView, RecordsTheComparisonThatStandsStill)
{
    Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "7");
    stage.test.clock.advance(1499ms);
    stage.type("Value Y", "75");
    stage.test.clock.advance(1499ms);
    EXPECT_TRUE(stage.history().empty());
    stage.test.clock.advance(1ms);
    ASSERT_EQ(stage.history().size(), 1U);
    EXPECT_EQ(stage.history()[0].title, "50 compared with 75");
    EXPECT_EQ(stage.history()[0].module, "percent");
    EXPECT_EQ(stage.history()[0].summary, "X is this much of Y: 66.6667%");
    EXPECT_EQ(stage.history()[0].detail, stage.answer());
}

TEST(PercentView, ShowsItsMessageWithOneFieldOnly)
{
    Stage stage;
    stage.type("Value X", "50");
    EXPECT_TRUE(stage.results()->rows().empty());
    EXPECT_TRUE(stage.shows("Type two numbers to compare them."));
    stage.test.clock.advance(5s);
    EXPECT_TRUE(stage.history().empty());
}

TEST(PercentView, SwapsTheTwoTexts)
{
    const Stage stage;
    stage.type("Value Y", "10");
    stage.swapButton()->click();
    EXPECT_EQ(stage.field("Value X")->text(), QStringLiteral("10"));
    EXPECT_EQ(stage.field("Value Y")->text(), QString());
    EXPECT_TRUE(stage.results()->rows().empty());
    stage.type("Value Y", "20");
    stage.swapButton()->click();
    EXPECT_EQ(stage.results()->title(), "20 compared with 10");
    EXPECT_EQ(stage.results()->rows()[0].value, "200%");
}

TEST(PercentView, SwapsWhatIsStillBeingComposedAsWell)
{
    const Stage stage;
    stage.type("Value Y", "7");
    stage.type("Value X", "5");
    stage.field("Value X")->setFocus();
    test::StandInInputMethod::compose(*stage.field("Value X"), QStringLiteral("1"));
    stage.swapButton()->click();
    EXPECT_EQ(stage.field("Value X")->text(), QStringLiteral("7"));
    EXPECT_EQ(stage.field("Value Y")->text(), QStringLiteral("51"));
}

TEST(PercentView, AppliesAPercentage)
{
    const Stage stage("change");
    stage.type("Value", "200");
    stage.type("Percentage", "15%");
    EXPECT_EQ(stage.results()->rows()[0].label, "Increased by 15%");
    EXPECT_EQ(stage.results()->rows()[0].value, "230");
    EXPECT_EQ(stage.results()->title(), "200 ± 15%%");
}

TEST(PercentView, KeepsWhatWasTypedOnTheOtherTab)
{
    const Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "75");
    stage.choose("change");
    EXPECT_TRUE(stage.results()->rows().empty());
    stage.choose("compare");
    EXPECT_EQ(stage.results()->rows().size(), 4U);
    EXPECT_EQ(stage.field("Value X")->text(), QStringLiteral("50"));
}

TEST(PercentView, TypingOnTheOtherTabReplacesItsFirstNumber)
{
    Stage stage;
    stage.choose("change");
    stage.type("Value", "200");
    stage.field("Value")->setFocus();
    stage.choose("compare");
    stage.choose("change");
    ASSERT_TRUE(stage.field("Value")->hasFocus());
    QTest::keyClicks(stage.field("Value"), QStringLiteral("300"));
    EXPECT_EQ(stage.field("Value")->text(), QStringLiteral("300"));
}

TEST(PercentView, TabGoesOnFromASelectedResult)
{
    const Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "75");
    const auto lines = stage.page.findChildren<ResultLine*>();
    ASSERT_EQ(lines.size(), 4);
    auto* value = lines[1]->findChild<QLabel*>();
    value->setFocus();
    QTest::keyClick(value, Qt::Key_Tab);
    EXPECT_TRUE(lines[2]->hasFocus());
    value->setFocus();
    QTest::keyClick(value, Qt::Key_Backtab);
    EXPECT_TRUE(lines[0]->hasFocus());
}

TEST(PercentView, OffersARestingComparisonAgainWhenItsTabComesBack)
{
    Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "75");
    stage.test.clock.advance(1500ms);
    stage.choose("change");
    stage.type("Value", "200");
    stage.type("Percentage", "15");
    stage.test.clock.advance(1500ms);
    stage.choose("compare");
    stage.test.clock.advance(1500ms);
    ASSERT_EQ(stage.history().size(), 3U);
    EXPECT_EQ(stage.history()[0].title, "50 compared with 75");
    EXPECT_EQ(stage.history()[1].title, "200 ± 15%");
}

TEST(PercentView, GoesOnTypingOnTheOtherTab)
{
    Stage stage;
    stage.page.activateWindow();
    stage.field("Value X")->setFocus();
    stage.choose("change");
    EXPECT_EQ(stage.page.window()->focusWidget(), stage.field("Value"));
    stage.choose("compare");
    EXPECT_EQ(stage.page.window()->focusWidget(), stage.field("Value X"));
}

TEST(PercentView, ArrowsWalkTheTabsWithoutLeavingThem)
{
    Stage stage;
    stage.page.activateWindow();
    auto* compare = stage.page.findChildren<Pill*>().front();
    compare->setFocus(Qt::TabFocusReason);
    const QSignalSpy moves(qApp, &QApplication::focusChanged);
    QTest::keyClick(compare, Qt::Key_Right);
    EXPECT_EQ(stage.page.tab(), PercentView::Tab::change);
    EXPECT_EQ(stage.page.window()->focusWidget(), stage.page.findChildren<Pill*>().back());
    EXPECT_EQ(moves.count(), 1) << "a screen reader tells of no other";
}

TEST(PercentView, TabGoesFromTheFieldsToTheResults)
{
    Stage stage;
    stage.type("Value X", "50");
    stage.type("Value Y", "75");
    stage.page.activateWindow();
    stage.field("Value Y")->setFocus();
    QTest::keyClick(stage.field("Value Y"), Qt::Key_Tab);
    EXPECT_EQ(stage.page.window()->focusWidget(), stage.swapButton());
    QTest::keyClick(stage.swapButton(), Qt::Key_Tab);
    EXPECT_NE(qobject_cast<ResultLine*>(stage.page.window()->focusWidget()), nullptr);
}

TEST(PercentView, RemembersTheTab)
{
    Stage stage;
    EXPECT_EQ(stage.page.tab(), PercentView::Tab::compare);
    EXPECT_EQ(stage.test.model.store().setting("tab.percent"), std::nullopt);
    stage.choose("change");
    EXPECT_EQ(stage.test.model.store().setting("tab.percent"), "change");
    stage.choose("compare");
    EXPECT_EQ(stage.test.model.store().setting("tab.percent"), "compare");
    EXPECT_EQ(Stage("change").page.tab(), PercentView::Tab::change);
}

TEST(PercentView, LeavesAnUnknownStoredTabAlone)
{
    Stage stage("Change");
    EXPECT_EQ(stage.page.tab(), PercentView::Tab::compare);
    EXPECT_EQ(stage.test.model.store().setting("tab.percent"), "Change");
}

TEST(PercentView, CallsBadInputNotANumberAndLeavesTheOtherFieldAlone)
{
    const Stage stage;
    stage.type("Value X", "75");
    for (const char* bad : {"abc", "-", ".", "()", "€", "-\u200F", "𝟘x́…"}) {
        stage.type("Value Y", bad);
        const bool readable = std::string_view(bad) == "𝟘x́…"; // a digit of another script is a number
        EXPECT_EQ(stage.numberField("Value Y")->showsWarning(), !readable) << bad;
        EXPECT_EQ(stage.results()->rows().empty(), !readable) << bad;
        EXPECT_FALSE(stage.numberField("Value X")->showsWarning());
        EXPECT_EQ(stage.field("Value X")->text(), QStringLiteral("75"));
    }
    stage.type("Value Y", "");
    EXPECT_FALSE(stage.numberField("Value Y")->showsWarning());
}

TEST(PercentView, ShowsAnOverflowByItsFallbackText)
{
    const Stage stage("change");
    const std::string huge = "1" + std::string(160, '0');
    stage.type("Value", huge.c_str());
    stage.type("Percentage", huge.c_str());
    ASSERT_EQ(stage.results()->rows().size(), 5U);
    EXPECT_EQ(stage.results()->rows()[2].value, "NaN");
}

TEST(PercentView, ShowsThirtyEightDigitsWholeOrInTheHoverHelp)
{
    const Stage stage;
    const std::string digits(38, '9');
    stage.type("Value X", "1");
    stage.type("Value Y", digits.c_str());
    QTest::qWait(0); // one round of layout
    for (ResultLine* line : stage.results()->findChildren<ResultLine*>()) {
        const auto* value = line->findChild<QLabel*>();
        const QString whole = toQt(line->row().value);
        EXPECT_TRUE(value->text() == whole || line->toolTip().contains(whole)) << line->row().label;
        EXPECT_LE(value->sizeHint().width(), value->width() + 1) << line->row().label;
        EXPECT_LE(value->geometry().right(), line->width());
    }
}

} // namespace
} // namespace zelta
