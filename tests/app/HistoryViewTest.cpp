#include "app/components/ConfirmDialog.h"
#include "app/components/EmptyState.h"
#include "app/components/IconButton.h"
#include "app/components/ModuleGlyph.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "app/pages/HistoryDetail.h"
#include "tests/app/support/HistoryStage.h"
#include "tests/support/Environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <string>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

struct HistoryViewTest : testing::Test, test::HistoryStage
{ };

using Titles = std::vector<std::string>;

IconButton* copyButton(const HistoryCard& card)
{
    return test::named<IconButton>(card, QStringLiteral("Copy the full result"));
}

TEST_F(HistoryViewTest, ShowsTheEmptyState)
{
    show();
    EXPECT_EQ(
        texts(view),
        (QStringList {
            QStringLiteral("0 saved"), QStringLiteral("Nothing saved yet"),
            QStringLiteral("Calculations are saved automatically. You can turn that off in Settings.")}));
    EXPECT_FALSE(clearButton()->isEnabled());
}

TEST_F(HistoryViewTest, ListsEntriesNewestFirst)
{
    save("old", "percent", Instant(1s));
    save("first of two");
    save("second of two");
    show();
    EXPECT_EQ(titles(), (Titles {"second of two", "first of two", "old"}));
    EXPECT_TRUE(texts(view).contains(QStringLiteral("3 saved")));
    EXPECT_FALSE(view.findChild<EmptyState*>()->isVisible());
    EXPECT_TRUE(clearButton()->isEnabled());
}

TEST_F(HistoryViewTest, ShowsTitleSummaryAndTime)
{
    save("a");
    show();
    // Noon UTC of 7 March, in the zone of the tests (13 hours ahead).
    EXPECT_EQ(texts(*cards()[0]),
              (QStringList {QStringLiteral("a"), QStringLiteral("Summary of a"),
                            QStringLiteral("Sun, 08 Mar 2026 · 1:00 AM")}));
}

TEST_F(HistoryViewTest, FollowsTheClockFormatWhenShownAgain)
{
    save("a");
    show();
    view.hide();
    test.model.setUse24Hour(true);
    show();
    EXPECT_TRUE(texts(*cards()[0]).contains(QStringLiteral("Sun, 08 Mar 2026 · 01:00")));
}

TEST_F(HistoryViewTest, FollowsTheZoneWhenShownAgain)
{
    save("a");
    show();
    view.hide();
    const test::Environment zone("TZ", "America/New_York");
    show();
    EXPECT_TRUE(texts(*cards()[0]).contains(QStringLiteral("Sat, 07 Mar 2026 · 7:00 AM")));
}

TEST_F(HistoryViewTest, KeepsToOneZoneWhileItIsScrolled)
{
    saveMany(100);
    show();
    const test::Environment zone("TZ", "America/New_York");
    scrollTo(end());
    EXPECT_TRUE(texts(*cards().back()).contains(QStringLiteral("Wed, 31 Dec 1969 · 1:00 PM")))
        << texts(*cards().back()).join(u'|').toStdString();
}

TEST_F(HistoryViewTest, ShowsAnEntryOfAnUnknownPage)
{
    save("beads", "abacus");
    show();
    EXPECT_EQ(titles(), Titles {"beads"});
    const QImage card = cards()[0]->grab().toImage();
    QImage badge(28, 28, card.format());
    badge.fill(Theme::color(Theme::Token::card));
    QPainter painter(&badge);
    ModuleGlyph::draw(painter, badge.rect(), "number", Theme::tint(Module::history));
    painter.end();
    EXPECT_EQ(card.copy(badge.rect().translated(16, 14)), badge);
}

TEST_F(HistoryViewTest, FoldsTheDetailsOfEachEntryOnItsOwn)
{
    save("a");
    save("b");
    show();
    HistoryCard* card = cards()[0];
    Button* toggle = detailsButton(*card);
    const int folded = card->height();
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_EQ(toggle->label(), QStringLiteral("Hide details"));
    auto* detail = card->findChild<HistoryDetail*>();
    ASSERT_NE(detail, nullptr);
    EXPECT_TRUE(detail->isVisible());
    EXPECT_EQ(detail->toPlainText(), QStringLiteral("First of b\nSecond"));
    EXPECT_TRUE(detail->isReadOnly());
    EXPECT_GE(card->height(), folded + 2 * 22) << "two lines more";
    EXPECT_GE(cards()[1]->y(), card->geometry().bottom()) << "the next one makes room";
    EXPECT_EQ(cards()[1]->findChild<HistoryDetail*>(), nullptr);
    QTest::mouseClick(toggle, Qt::LeftButton);
    EXPECT_EQ(toggle->label(), QStringLiteral("Show details"));
    EXPECT_FALSE(detail->isVisible());
    EXPECT_EQ(card->height(), folded);
}

TEST_F(HistoryViewTest, DetailsCanBeSelected)
{
    save("a");
    show();
    QTest::mouseClick(detailsButton(*cards()[0]), Qt::LeftButton);
    auto* detail = cards()[0]->findChild<HistoryDetail*>();
    EXPECT_EQ(detail->accessibleName(), QStringLiteral("Details"));
    detail->setFocus();
    QTest::keyClick(detail, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(detail, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("First of a\nSecond"));
    QTest::keyClick(detail, Qt::Key_X);
    EXPECT_EQ(detail->toPlainText(), QStringLiteral("First of a\nSecond")) << "but not changed";
}

TEST_F(HistoryViewTest, DetailsLeaveTheWheelToThePage)
{
    save("a");
    show();
    QTest::mouseClick(detailsButton(*cards()[0]), Qt::LeftButton);
    auto* detail = cards()[0]->findChild<HistoryDetail*>();
    const int size = detail->font().pixelSize();
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        QWheelEvent wheel(QPointF(5, 5), detail->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                          Qt::NoButton, modifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(detail->viewport(), &wheel);
        EXPECT_FALSE(wheel.isAccepted());
        EXPECT_EQ(detail->font().pixelSize(), size);
    }
}

TEST_F(HistoryViewTest, StaysUnfoldedOverAReload)
{
    save("a");
    show();
    QTest::mouseClick(detailsButton(*cards()[0]), Qt::LeftButton);
    test.model.record(Module::percent, "new", {{"label", "1", {}, Weight::headline, {}}});
    test.clock.advance(1s);
    ASSERT_EQ(titles(), (Titles {"new", "a"}));
    EXPECT_TRUE(cards()[1]->findChild<HistoryDetail*>()->isVisible());
}

TEST_F(HistoryViewTest, CopiesTheFullResultAndMarksItForHalfASecond)
{
    save("a");
    show();
    IconButton* copy = copyButton(*cards()[0]);
    const QImage resting = copy->grab().toImage();
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("First of a\nSecond"));
    test.clock.advance(499ms);
    EXPECT_TRUE(cards()[0]->isCopied());
    EXPECT_NE(copy->grab().toImage(), resting) << "a check mark";
    EXPECT_EQ(copy->accessibleDescription(), QStringLiteral("Copied"));
    test.clock.advance(1ms);
    EXPECT_FALSE(cards()[0]->isCopied());
    EXPECT_EQ(copy->grab().toImage(), resting);
    EXPECT_EQ(copy->accessibleDescription(), QStringLiteral("a"));
}

TEST_F(HistoryViewTest, AnotherCopyTakesTheMarkForItsOwnHalfSecond)
{
    save("a");
    save("b");
    show();
    QTest::mouseClick(copyButton(*cards()[0]), Qt::LeftButton);
    test.clock.advance(300ms);
    QTest::mouseClick(copyButton(*cards()[1]), Qt::LeftButton);
    EXPECT_FALSE(cards()[0]->isCopied());
    EXPECT_TRUE(cards()[1]->isCopied());
    test.clock.advance(499ms);
    EXPECT_TRUE(cards()[1]->isCopied());
    test.clock.advance(1ms);
    EXPECT_FALSE(cards()[1]->isCopied());
}

TEST_F(HistoryViewTest, DeletesAtOnce)
{
    save("a");
    save("b");
    show();
    QApplication::setActiveWindow(&area);
    clearButton()->setFocus();
    QTest::mouseClick(cards()[0]->deleteButton(), Qt::LeftButton);
    EXPECT_TRUE(clearButton()->hasFocus()) << "a click moves no focus";
    EXPECT_EQ(titles(), Titles {"a"});
    EXPECT_EQ(test.model.store().history(500).size(), 1U);
    EXPECT_TRUE(texts(view).contains(QStringLiteral("1 saved")));
    QTest::mouseClick(cards()[0]->deleteButton(), Qt::LeftButton);
    EXPECT_TRUE(view.findChild<EmptyState*>()->isVisible());
    EXPECT_FALSE(clearButton()->isEnabled());
}

TEST_F(HistoryViewTest, ADoubleClickDeletesOneEntry)
{
    save("a");
    save("b");
    save("c");
    show();
    QTest::mouseClick(cards()[0]->deleteButton(), Qt::LeftButton);
    IconButton* next = cards()[0]->deleteButton(); // which lies below the pointer now
    const QPoint middle = next->rect().center();
    QMouseEvent half(QEvent::MouseButtonDblClick, middle, next->mapToGlobal(middle), Qt::LeftButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(next, &half);
    QTest::mouseRelease(next, Qt::LeftButton);
    EXPECT_EQ(titles(), (Titles {"b", "a"}));
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_EQ(titles(), (Titles {"a"}));
}

TEST_F(HistoryViewTest, DeletingTheMarkedEntryForgetsTheMark)
{
    save("a");
    save("b");
    show();
    QTest::mouseClick(copyButton(*cards()[0]), Qt::LeftButton);
    QTest::mouseClick(cards()[0]->deleteButton(), Qt::LeftButton);
    test.clock.advance(1s);
    EXPECT_FALSE(cards()[0]->isCopied());
}

TEST_F(HistoryViewTest, DeletingWithTheKeyboardMovesToTheNextEntry)
{
    for (const char* title : {"c", "b", "a"})
        save(title);
    show();
    QApplication::setActiveWindow(&area);
    cards()[1]->deleteButton()->setFocus();
    QTest::keyClick(cards()[1]->deleteButton(), Qt::Key_Space);
    EXPECT_EQ(titles(), (Titles {"a", "c"}));
    EXPECT_TRUE(cards()[1]->deleteButton()->hasFocus());
    QTest::keyClick(cards()[1]->deleteButton(), Qt::Key_Space);
    EXPECT_TRUE(cards()[0]->deleteButton()->hasFocus()) << "the last one's place falls to the one before";
}

TEST_F(HistoryViewTest, ClearsAfterTheQuestionOnly)
{
    save("a");
    save("b");
    show();
    QTest::mouseClick(clearButton(), Qt::LeftButton);
    auto* question = view.window()->findChild<ConfirmDialog*>();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(
        texts(*question),
        (QStringList {QStringLiteral("Clear the whole history?"), QStringLiteral("This cannot be undone.")}));
    EXPECT_EQ(question->actionButton()->label(), QStringLiteral("Clear history"));
    QTest::mouseClick(question->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(cards().size(), 2U);
    EXPECT_EQ(test.model.store().history(500).size(), 2U);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QTest::mouseClick(clearButton(), Qt::LeftButton);
    QTest::mouseClick(view.window()->findChild<ConfirmDialog*>()->actionButton(), Qt::LeftButton);
    EXPECT_TRUE(test.model.store().history(500).empty());
    EXPECT_TRUE(cards().empty());
    EXPECT_TRUE(view.findChild<EmptyState*>()->isVisible());
}

TEST_F(HistoryViewTest, ListsWhatIsSavedWhileItIsShown)
{
    show();
    test.model.record(Module::percent, "new", {{"label", "1", {}, Weight::headline, {}}});
    test.clock.advance(1s);
    EXPECT_EQ(titles(), Titles {"new"});
    EXPECT_FALSE(view.findChild<EmptyState*>()->isVisible());
}

TEST_F(HistoryViewTest, TabGoesFromTopToBottomAlsoAfterANewEntry)
{
    save("a");
    save("unfolded");
    show();
    QTest::mouseClick(detailsButton(*cards()[0]), Qt::LeftButton);
    ASSERT_EQ(cards()[0]->controls().size(), 4U) << "the details as well";
    QApplication::setActiveWindow(&area);
    const auto walk = [this] {
        clearButton()->setFocus();
        for (const HistoryCard* card : cards()) {
            for (QWidget* control : card->controls()) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                EXPECT_EQ(QApplication::focusWidget(), control) << card->entry().title;
            }
        }
    };
    walk();
    test.model.record(Module::percent, "new", {{"label", "1", {}, Weight::headline, {}}});
    test.clock.advance(1s);
    ASSERT_EQ(cards()[0]->entry().title, "new");
    walk();
}

TEST_F(HistoryViewTest, WrapsLongTextsInsteadOfCuttingThem)
{
    std::string words;
    for (int i = 0; i < 40; ++i)
        words += "1,234,567 × ";
    save(words);
    show();
    const HistoryCard* card = cards()[0];
    EXPECT_GT(card->height(), HistoryCard::usualHeight());
    for (const auto* label : card->findChildren<Label*>())
        EXPECT_LE(label->heightForWidth(label->width()), label->height());
}

TEST_F(HistoryViewTest, KeepsRoomForTheLinesOfATitle)
{
    for (const char* separator : {"\n", "\u2028", "\u2029"}) {
        const HistoryEntry entry {1, {}, "percent", std::string("7") + separator + "8", "s", {}};
        const HistoryCard card(entry, {}, nullptr);
        EXPECT_GT(card.heightForWidth(500), HistoryCard::usualHeight());
    }
}

TEST_F(HistoryViewTest, KeepsRoomForEachLineAtEachWidth)
{
    const HistoryEntry entry {1, {}, "percent", "Word adgjmp vybehk qtwzcf end", "Word adgjmp vybehk", {}};
    HistoryCard card(entry, {}, nullptr);
    card.show();
    for (int width = 350; width < 650; ++width) {
        card.resize(width, card.heightForWidth(width));
        for (const auto* label : card.findChildren<Label*>())
            ASSERT_LE(label->heightForWidth(label->width()), label->height() + 1) << width; // rounding
    }
}

TEST_F(HistoryViewTest, KeepsTheFocusWhenItsLastEntryGoes)
{
    for (const bool isCleared : {false, true}) {
        save("a");
        view.hide();
        show();
        area.activateWindow();
        QWidget* control = isCleared ? static_cast<QWidget*>(clearButton()) : cards()[0]->deleteButton();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Space);
        if (isCleared)
            QTest::mouseClick(view.window()->findChild<ConfirmDialog*>()->actionButton(), Qt::LeftButton);
        settle();
        EXPECT_TRUE(cards().empty());
        EXPECT_EQ(area.focusWidget(), &view) << isCleared;
        EXPECT_EQ(view.accessibleName(), QStringLiteral("History"));
    }
}

TEST_F(HistoryViewTest, NamesItsControlsInWords)
{
    save("a & b");
    show();
    for (const QWidget* control : cards()[0]->controls())
        EXPECT_EQ(control->accessibleDescription(), QStringLiteral("a & b"));
    EXPECT_EQ(copyButton(*cards()[0])->accessibleName(), QStringLiteral("Copy the full result"));
    EXPECT_EQ(cards()[0]->deleteButton()->accessibleName(), QStringLiteral("Delete this entry"));
}

TEST_F(HistoryViewTest, ShowsTheEmptyStateWhenTheTableCannotBeRead)
{
    test::TestModel broken;
    sqlite::Connection other = sqlite::Connection::open(broken.model.store().url().string());
    other.execute("DROP TABLE history;");
    HistoryView page(broken.model);
    page.show();
    EXPECT_TRUE(page.findChild<EmptyState*>()->isVisible());
}

} // namespace
} // namespace zelta
