#include "app/components/ConfirmDialog.h"
#include "app/pages/NoteListModel.h"
#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QListView>
#include <QSignalSpy>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using Texts = test::NotesStage::Texts;

struct NotesViewTest : testing::Test, test::NotesStage
{ };

TEST_F(NotesViewTest, OpensTheNewestNoteFirst)
{
    add({"old"}, 48h);
    const std::int64_t newest = add({"newest", "second"}, 1h);
    open();
    EXPECT_EQ(page->selectedID(), newest);
    EXPECT_EQ(shown(), (Texts {"newest", "second"}));
    EXPECT_EQ(listed(), (Texts {"Today", "newest", "Previous 7 Days", "old"}));
    EXPECT_EQ(words(), "2 words");
}

TEST_F(NotesViewTest, TodaysNotesBecomeYesterdaysWhileThePageIsOpen)
{
    using namespace std::chrono_literals;
    add({"written before midnight"});
    open();
    ASSERT_EQ(listed(), (Texts {"Today", "written before midnight"}));
    test.clock.advance(24h);
    EXPECT_EQ(listed(), (Texts {"Yesterday", "written before midnight"}));
    EXPECT_EQ(shown(), (Texts {"written before midnight"}));
    test.clock.setWallClock(test.clock.now() + 24h);
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(page.get(), &activate);
    EXPECT_EQ(listed(), (Texts {"Previous 7 Days", "written before midnight"}))
        << "somebody has set the clock";
}

TEST_F(NotesViewTest, SaysWhenThereIsNothing)
{
    open();
    EXPECT_TRUE(shows(QStringLiteral("No notes yet")));
    EXPECT_TRUE(shows(QStringLiteral("Make one and start writing.")));
    EXPECT_TRUE(shows(QStringLiteral("Nothing selected")));
    EXPECT_TRUE(shows(QStringLiteral("Pick a note on the left, or make a new one.")));
    EXPECT_FALSE(page->toolbar()->copy->isEnabled());
    EXPECT_FALSE(page->toolbar()->remove->isEnabled());
    EXPECT_FALSE(page->pane()->addButton()->isVisible());
    EXPECT_FALSE(page->pane()->words()->isVisible());
    search(QStringLiteral("  "));
    EXPECT_TRUE(shows(QStringLiteral("No notes yet"))) << "blanks search for nothing";
    search(QStringLiteral("x"));
    EXPECT_TRUE(shows(QStringLiteral("No matches")));
    EXPECT_TRUE(shows(QStringLiteral("Nothing here matches that search.")));
    EXPECT_FALSE(shows(QStringLiteral("No notes yet")));
}

TEST_F(NotesViewTest, SavesWhenTheTypingHasPaused)
{
    const std::int64_t id = add({"a"});
    open();
    const QSignalSpy told(&page->list()->model(), &QAbstractItemModel::dataChanged);
    type(0, QStringLiteral("b c"));
    test.clock.advance(350ms);
    EXPECT_EQ(words(), "2 words") << "counted before it is saved";
    EXPECT_EQ(told.count(), 0);
    test.clock.advance(599ms);
    EXPECT_EQ(stored(id), Texts {"a"});
    EXPECT_EQ(page->draft()->note().blocks[0].text, "ab c");
    test.clock.advance(1ms);
    EXPECT_EQ(stored(id), Texts {"ab c"});
    EXPECT_EQ(store().note(id)->updatedAt, test::HandClock::noon + 350ms);
    EXPECT_FALSE(test.clock.hasPendingSaves());
    EXPECT_EQ(listed(), (Texts {"Today", "ab c"}));
    ASSERT_EQ(told.count(), 1);
    EXPECT_EQ(told.front().front().toModelIndex().row(), 1) << "its row is drawn anew";
}

TEST_F(NotesViewTest, SavesOnceForARunOfChanges)
{
    const std::int64_t id = add({""});
    open();
    type(0, QStringLiteral("one"));
    test.clock.advance(350ms);
    test.clock.advance(500ms);
    type(0, QStringLiteral(" two"));
    test.clock.advance(350ms); // would have been due meanwhile, had the second change not started it anew
    test.clock.advance(599ms);
    EXPECT_EQ(stored(id), Texts {"one"}) << "saved in between, 600 ms after the first hand-over";
    test.clock.advance(1ms);
    EXPECT_EQ(stored(id), Texts {"one two"});
}

TEST_F(NotesViewTest, LosesNothingOnTheWayToAnotherNote)
{
    const std::int64_t older = add({"older"}, 1h);
    const std::int64_t newer = add({"newer"});
    open();
    type(0, QStringLiteral("!"));
    page->open(older);
    EXPECT_EQ(stored(newer), Texts {"newer!"});
    EXPECT_EQ(page->selectedID(), older);
    type(0, QStringLiteral("?"));
    page->newNote();
    EXPECT_EQ(stored(older), Texts {"older?"});
    type(0, QStringLiteral("third"));
    const std::int64_t third = *page->selectedID();
    search(QStringLiteral("newer"));
    EXPECT_EQ(stored(third), Texts {"third"});
    EXPECT_EQ(page->selectedID(), newer);
    type(0, QStringLiteral("!"));
    page->carryOutDelete(older);
    EXPECT_EQ(stored(newer), Texts {"newer!!"});
}

TEST_F(NotesViewTest, LosesNothingWhenThePageGoes)
{
    const std::int64_t id = add({"a"});
    open();
    type(0, QStringLiteral("b"));
    page->hide();
    EXPECT_TRUE(test.clock.hasPendingSaves()) << "the process must wait for it";
    test.clock.advance(600ms);
    EXPECT_EQ(stored(id), Texts {"ab"});
    EXPECT_FALSE(test.clock.hasPendingSaves());
}

TEST_F(NotesViewTest, LeavesNoGapInWhichAClosedProgramWouldEnd)
{
    add({"a"});
    open();
    int settled = 0;
    test.clock.setSavesSettledHandler([&settled] { ++settled; });
    type(0, QStringLiteral("b"));
    page->hide();
    test.clock.advance(599ms);
    EXPECT_EQ(settled, 0);
    test.clock.advance(1ms);
    EXPECT_EQ(settled, 1);
    test.clock.setSavesSettledHandler({});
}

TEST_F(NotesViewTest, KeepsItsSelectionWhenItIsShownAgain)
{
    const std::int64_t older = add({"older"}, 1h);
    add({"newer"});
    open();
    page->open(older);
    page->hide();
    add({"from elsewhere"});
    page->show();
    test.clock.advance(16ms);
    EXPECT_EQ(page->selectedID(), older);
    EXPECT_EQ(listed(), (Texts {"Today", "from elsewhere", "newer", "older"}));
}

TEST_F(NotesViewTest, KeepsANoteThatItsSearchDoesNotFindAnyMore)
{
    const std::int64_t id = add({"apple"}, 1h);
    add({"apple pie"});
    open();
    page->open(id);
    search(QStringLiteral("apple"));
    page->updateBlock(paragraphKeys(page->draft()->note())[0], id, "pear");
    page->appendBlock();
    page->hide();
    page->show();
    test.clock.advance(16ms);
    EXPECT_EQ(listed(), (Texts {"Today", "apple pie"}));
    EXPECT_EQ(shown(), (Texts {"pear", ""}));
    EXPECT_TRUE(page->draft()->canUndo());

    store().deleteNote(id);
    page->hide();
    page->show();
    test.clock.advance(16ms);
    EXPECT_EQ(shown(), Texts {"apple pie"}) << "another copy of the program has deleted it";
}

TEST_F(NotesViewTest, ALateChangeReachesItsOwnNote)
{
    const std::int64_t other = add({"other", "two"}, 1h);
    add({"open"});
    open();
    const ParagraphKey key = paragraphKeys(*store().note(other))[1];
    page->updateBlock(key, other, "late");
    EXPECT_EQ(stored(other), (Texts {"other", "late"}));
    EXPECT_EQ(store().note(other)->updatedAt, test.clock.now());
    ASSERT_EQ(listed(), (Texts {"Today", "open", "other"}));
    EXPECT_EQ(page->list()->model().index(2).data(NoteListModel::previewRole).toString(),
              QStringLiteral("late"));
    page->updateBlock({.id = Uuid::random()}, other, "nowhere");
    page->updateBlock(key, 99, "no such note");
    EXPECT_EQ(stored(other), (Texts {"other", "late"}));
    EXPECT_EQ(shown(), Texts {"open"});
}

TEST_F(NotesViewTest, ANewNoteEndsTheSearch)
{
    add({"apple"});
    add({"pear"}, 1h);
    open();
    search(QStringLiteral("pear"));
    ASSERT_EQ(listed(), (Texts {"Today", "pear"}));
    QTest::mouseClick(page->toolbar()->newNote, Qt::LeftButton);
    EXPECT_EQ(page->toolbar()->search->text(), QString());
    EXPECT_FALSE(page->toolbar()->search->clearButton()->isVisible());
    EXPECT_EQ(listed(), (Texts {"Today", "New Note", "apple", "pear"}));
    EXPECT_EQ(shown(), Texts {""});
    EXPECT_EQ(words(), "0 words");
    EXPECT_EQ(page->selectedID(), page->notes().front().id);
    EXPECT_TRUE(rows().front()->editor()->hasFocus());
}

TEST_F(NotesViewTest, ASearchKeepsTheOpenNoteWhileItMatches)
{
    const std::int64_t apple = add({"apple pie"}, 1h);
    const std::int64_t pear = add({"pear pie"});
    open();
    page->open(apple);
    search(QStringLiteral("PIE"));
    EXPECT_EQ(page->selectedID(), apple);
    search(QStringLiteral("pear"));
    EXPECT_EQ(page->selectedID(), pear);
    search(QStringLiteral("nothing"));
    EXPECT_EQ(page->selectedID(), std::nullopt);
    EXPECT_TRUE(rows().empty());
    EXPECT_TRUE(page->toolbar()->search->clearButton()->isVisible());
    QTest::mouseClick(page->toolbar()->search->clearButton(), Qt::LeftButton);
    EXPECT_EQ(page->selectedID(), pear);
}

TEST_F(NotesViewTest, UndoStepsBackSixtyTimes)
{
    const std::int64_t id = add({"a"});
    open();
    for (int i = 0; i < 61; ++i)
        page->appendBlock();
    for (int i = 0; i < 60; ++i)
        page->undo();
    EXPECT_EQ(stored(id).size(), 2U) << "an undo is saved at once";
    EXPECT_FALSE(page->toolbar()->undo->isEnabled());
    EXPECT_EQ(page->toolbar()->undo->toolTip(), QStringLiteral("Nothing to undo"));
    page->undo();
    EXPECT_EQ(page->draft()->note().blocks.size(), 2U);
    EXPECT_EQ(page->toolbar()->redo->toolTip(), QStringLiteral("Redo"));
    page->redo();
    EXPECT_EQ(stored(id).size(), 3U);
    page->appendBlock();
    EXPECT_FALSE(page->toolbar()->redo->isEnabled());
    EXPECT_EQ(page->toolbar()->redo->toolTip(), QStringLiteral("Nothing to redo"));
    EXPECT_EQ(page->toolbar()->undo->toolTip(), QStringLiteral("Undo the last change to this note"));
}

TEST_F(NotesViewTest, UndoAndRedoKeepWhatWasTypedMeanwhile)
{
    add({"a"});
    open();
    page->appendBlock();
    type(1, QStringLiteral("typed"));
    QTest::mouseClick(page->toolbar()->undo, Qt::LeftButton);
    EXPECT_EQ(shown(), Texts {"a"});
    EXPECT_EQ(flash(), "Undone");
    QTest::mouseClick(page->toolbar()->redo, Qt::LeftButton);
    EXPECT_EQ(shown(), (Texts {"a", "typed"}));
    EXPECT_EQ(flash(), "Redone");
}

TEST_F(NotesViewTest, AFlashLasts1400Milliseconds)
{
    add({"a", "b"});
    open();
    page->copyNote();
    EXPECT_EQ(flash(), "Note copied");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("a\n\nb"));
    test.clock.advance(1000ms);
    page->copyNote();
    test.clock.advance(1399ms);
    EXPECT_EQ(flash(), "Note copied") << "the second one starts the time anew";
    test.clock.advance(1ms);
    EXPECT_EQ(flash(), "");
}

TEST_F(NotesViewTest, CopiesWhatHasJustBeenTyped)
{
    add({"a"});
    open();
    type(0, QStringLiteral("b"));
    page->copyNote();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("ab"));
}

TEST_F(NotesViewTest, TheToolbarSaysWhatItDoes)
{
    open();
    EXPECT_EQ(page->toolbar()->copy->toolTip(),
              QStringLiteral("Copy the whole note as plain text — tables come as aligned columns"));
    EXPECT_EQ(page->toolbar()->remove->toolTip(), QStringLiteral("Delete this note for good"));
    EXPECT_EQ(page->list()->list()->accessibleName(), QStringLiteral("Notes"));
}

TEST_F(NotesViewTest, RemovesAParagraphAndPutsTheFocusNextToIt)
{
    const std::int64_t id = add({"a", "b", "c"});
    open();
    EXPECT_TRUE(rows()[0]->removeButton()->isVisible());
    type(1, QStringLiteral("!"));
    QTest::mouseClick(rows()[1]->removeButton(), Qt::LeftButton);
    EXPECT_EQ(shown(), (Texts {"a", "c"}));
    EXPECT_TRUE(rows()[1]->editor()->hasFocus());
    rows()[1]->removeButton()->setFocus();
    QTest::keyClick(rows()[1]->removeButton(), Qt::Key_Space);
    EXPECT_TRUE(rows()[0]->editor()->hasFocus());
    EXPECT_EQ(shown(), Texts {"a"});
    EXPECT_FALSE(rows()[0]->removeButton()->isVisible()) << "the only paragraph stays";
    test.clock.advance(600ms);
    EXPECT_EQ(stored(id), Texts {"a"});
    page->undo();
    page->undo();
    EXPECT_EQ(shown(), (Texts {"a", "b!", "c"}));
    rows()[0]->editor()->setFocus();
    QTest::mouseClick(rows()[2]->removeButton(), Qt::LeftButton);
    EXPECT_TRUE(rows()[0]->editor()->hasFocus()) << "another one goes";
}

TEST_F(NotesViewTest, AnEditorOutlivesWhatHappensAroundIt)
{
    add({"a", "b"});
    open();
    const TextBlockEditor* second = rows()[1];
    type(1, QStringLiteral("!"));
    page->removeBlock(0);
    EXPECT_EQ(rows()[0], second);
    EXPECT_TRUE(second->editor()->document()->isUndoAvailable());
    page->appendBlock();
    page->undo();
    page->undo();
    EXPECT_EQ(rows()[1], second);
}

TEST_F(NotesViewTest, OnlyTheLastParagraphFillsThePage)
{
    add({"a", "b"});
    open();
    EXPECT_EQ(rows()[0]->height(), 37);
    EXPECT_EQ(rows()[1]->height(), 440);
    EXPECT_EQ(rows()[0]->editor()->accessibleName(), QStringLiteral("Paragraph 1"));
    EXPECT_EQ(rows()[1]->editor()->accessibleName(), QStringLiteral("Paragraph 2"));
    page->appendBlock();
    EXPECT_EQ(rows()[1]->height(), 37);
    EXPECT_EQ(rows()[2]->height(), 440);
    QTest::mouseClick(rows()[2]->editor()->viewport(), Qt::LeftButton, {}, {20, 400});
    EXPECT_TRUE(rows()[2]->editor()->hasFocus());
}

TEST_F(NotesViewTest, DeletesAfterAQuestion)
{
    const std::int64_t older = add({"older"}, 1h);
    const std::int64_t newer = add({"Picnic"});
    open();
    const auto dialog = [this] { return page->findChild<ConfirmDialog*>(); };
    type(0, QStringLiteral("!"));
    page->askToDelete();
    ASSERT_NE(dialog(), nullptr);
    QStringList said;
    for (const QLabel* label : dialog()->findChildren<QLabel*>())
        said << label->text();
    EXPECT_TRUE(said.contains(QStringLiteral("Delete this note?")));
    EXPECT_TRUE(said.contains(QStringLiteral(
        "“Picnic!” will be deleted for good — Zelta Basic has no Trash. This cannot be undone.")));
    EXPECT_EQ(dialog()->actionButton()->label(), QStringLiteral("Delete Note"));
    dialog()->cancelButton()->click();
    EXPECT_TRUE(store().note(newer).has_value());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    page->askToDelete();
    dialog()->actionButton()->click();
    EXPECT_FALSE(store().note(newer).has_value());
    EXPECT_EQ(page->selectedID(), older);
    EXPECT_EQ(flash(), "Note deleted");
    page->carryOutDelete(older);
    EXPECT_EQ(page->selectedID(), std::nullopt);
    EXPECT_TRUE(shows(QStringLiteral("No notes yet")));
    EXPECT_EQ(flash(), "Note deleted");
}

TEST_F(NotesViewTest, ARowTellsTitlePreviewAndDate)
{
    add({"  Title \nline two", "more"});
    add({"שלום"}, 24h);
    open();
    const NoteListModel& model = page->list()->model();
    EXPECT_EQ(model.index(1).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Title, line two, Sun, 08 Mar 2026"));
    EXPECT_FALSE(model.index(1).data(NoteListModel::isRightToLeftRole).toBool());
    EXPECT_TRUE(model.index(3).data(NoteListModel::isRightToLeftRole).toBool());
}

TEST_F(NotesViewTest, TheListIsSortedAgainOnlyWhenItIsLoaded)
{
    const std::int64_t older = add({"older"}, 1h);
    add({"newer"});
    open();
    page->open(older);
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    EXPECT_EQ(listed(), (Texts {"Today", "newer", "older!"}));
    page->load(OnReload::keepSelection);
    EXPECT_EQ(listed(), (Texts {"Today", "older!", "newer"}));
}

TEST_F(NotesViewTest, AChangeMovesANoteToItsNewGroup)
{
    const std::int64_t old = add({"old"}, 72h);
    add({"new"});
    open();
    page->open(old);
    EXPECT_EQ(listed(), (Texts {"Today", "new", "Previous 7 Days", "old"}));
    type(0, QStringLiteral("!"));
    test.clock.advance(950ms);
    EXPECT_EQ(listed(), (Texts {"Today", "new", "old!"}));
    EXPECT_EQ(page->list()->list()->currentIndex().row(), 2);
}

} // namespace
} // namespace zelta
