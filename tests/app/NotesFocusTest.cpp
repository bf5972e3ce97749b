#include "tests/app/support/Accessible.h"
#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QListView>
#include <QScrollBar>

namespace zelta {
namespace {

using namespace std::chrono_literals;
using Texts = test::NotesStage::Texts;

/// Where a click goes, where the focus stays, and what keeps its place.
struct NotesFocus : testing::Test, test::NotesStage
{ };

TEST_F(NotesFocus, ClickingARowOpensItAndForgetsTheSteps)
{
    const std::int64_t older = add({"older"}, 1h);
    add({"newer"});
    open();
    page->appendBlock();
    QListView* list = page->list()->list();
    QTest::mouseClick(list->viewport(), Qt::RightButton, {},
                      list->visualRect(list->model()->index(1, 0)).center());
    ASSERT_TRUE(page->draft()->canUndo());
    const auto click = [list](int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualRect(list->model()->index(row, 0)).center());
    };
    click(1);
    EXPECT_FALSE(page->draft()->canUndo()) << "a click on the open note opens it anew";
    EXPECT_EQ(shown(), (Texts {"newer", ""}));
    click(2);
    EXPECT_EQ(page->selectedID(), older);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(shown(), (Texts {"newer", ""}));
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(shown(), (Texts {"newer", ""})) << "a heading is no note";
}

TEST_F(NotesFocus, AClickOpensTheRowBelowThePointerThoughSavingMovesTheRows)
{
    add({"alpha"});
    add({"bravo"}, 24h);
    const std::int64_t charlie = add({"charlie"}, 48h);
    const std::int64_t delta = add({"delta"}, 72h);
    open();
    page->open(delta);
    type(0, QStringLiteral("!"));
    QListView* list = page->list()->list();
    const QRect row = list->visualRect(page->list()->model().indexOf(charlie));
    // A second press and a hand that shakes mean no other note.
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, row.center());
    QMouseEvent shake(QEvent::MouseMove, row.center() + QPoint(0, 1), list->mapToGlobal(row.center()),
                      Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(list->viewport(), &shake);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(shown(), Texts {"charlie"});
    EXPECT_EQ(list->currentIndex(), page->list()->model().indexOf(charlie));
    EXPECT_EQ(list->selectionModel()->selectedIndexes(), QModelIndexList {list->currentIndex()});
}

TEST_F(NotesFocus, TabShowsTheRowThatItComesTo)
{
    for (int i = 0; i < 30; ++i)
        add({std::to_string(i)}, std::chrono::minutes(i));
    open();
    QListView* list = page->list()->list();
    page->list()->setFocus();
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    const auto isSeen
        = [list] { return list->viewport()->rect().contains(list->visualRect(list->currentIndex())); };
    ASSERT_FALSE(isSeen());
    list->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isSeen()) << "the ring is around it";
    list->verticalScrollBar()->setValue(list->verticalScrollBar()->maximum());
    page->list()->setFocus();
    list->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(isSeen()) << "what is clicked stays below the pointer";
}

TEST_F(NotesFocus, TheOpenNoteStaysSelected)
{
    add({"one"});
    add({"two"}, 1h);
    open();
    QListView* list = page->list()->list();
    const QModelIndex chosen = list->currentIndex();
    ASSERT_TRUE(chosen.isValid());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(list->viewport(), button, {},
                          list->viewport()->rect().bottomLeft() - QPoint(-9, 9));
        EXPECT_TRUE(list->selectionModel()->isSelected(chosen)) << button;
    }
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Space, Qt::ControlModifier);
    EXPECT_TRUE(list->selectionModel()->isSelected(chosen));
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->selectionModel()->selectedIndexes(), QModelIndexList {list->currentIndex()});
    EXPECT_NE(list->currentIndex(), chosen);
}

TEST_F(NotesFocus, AClickOnAHeadingMovesNothing)
{
    for (int i = 0; i < 60; ++i)
        add({"note"}, 24h * i);
    open();
    QListView* list = page->list()->list();
    list->scrollToBottom();
    const int place = list->verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    const NoteListModel& model = page->list()->model();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QRect area = list->visualRect(model.index(row));
        if (model.index(row).data(NoteListModel::isHeadingRole).toBool() && area.top() > 0)
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, area.center());
    }
    EXPECT_EQ(list->verticalScrollBar()->value(), place);
    page->open(page->notes().front().id);
    EXPECT_EQ(list->verticalScrollBar()->value(), 0) << "the first note comes with its heading";
}

TEST_F(NotesFocus, AFocusInAParagraphTakesNoWordsAlong)
{
    const std::int64_t apple = add({"apple", "red"}, 1h);
    add({"pear", "green"});
    open();
    rows()[0]->editor()->setFocus();
    search(QStringLiteral("apple"));
    EXPECT_EQ(shown(), (Texts {"apple", "red"}));
    EXPECT_TRUE(page->list()->list()->hasFocus()) << "not in another part of the window";
    type(1, QStringLiteral("!"));
    test.clock.advance(1s);
    EXPECT_EQ(stored(apple), (Texts {"apple", "red!"}));

    rows()[0]->editor()->setFocus();
    page->carryOutDelete(apple);
    EXPECT_TRUE(page->toolbar()->newNote->hasFocus()) << "nothing is listed";
}

TEST_F(NotesFocus, RemovingTheParagraphWithTheFocusTakesNoOtherAlong)
{
    Texts texts;
    for (int i = 0; i < 100; ++i)
        texts.push_back("paragraph " + std::to_string(i));
    const std::int64_t id = add(texts);
    open();
    rows()[2]->editor()->setFocus();
    rows()[2]->removeButton()->click();
    texts.erase(texts.begin() + 2);
    for (std::size_t i = 0; i < texts.size(); ++i)
        page->pane()->paragraphs()->focusParagraph(i); // makes its editor
    EXPECT_EQ(shown(), texts);
    test.clock.advance(1s);
    EXPECT_EQ(stored(id), texts);
}

TEST_F(NotesFocus, WhatIsInSightStaysWhileParagraphsComeAndGo)
{
    add(Texts(14, "one\ntwo\nthree"));
    open();
    QScrollBar* bar = page->pane()->paragraphs()->verticalScrollBar();
    bar->setValue(60);
    const auto top = [&](std::size_t row) { return rows()[row]->mapTo(page.get(), QPoint()).y(); };
    const int before = top(1);
    page->removeBlock(5);
    EXPECT_EQ(top(1), before);
    page->undo();
    EXPECT_EQ(top(1), before);
    bar->setValue(200);
    const int inSight = top(3);
    page->removeBlock(0);
    EXPECT_EQ(top(2), inSight) << "what is above goes";
    page->open(add(Texts(14, "one\ntwo\nthree")));
    EXPECT_EQ(bar->value(), 0) << "another note begins at its top";
}

TEST_F(NotesFocus, ParagraphsOfAnotherHeightThanExpectedDoNotMoveWhatIsRead)
{
    add(Texts(60, std::string(900, 'i'))); // narrow letters: fewer lines than expected
    open();
    QScrollBar* bar = page->pane()->paragraphs()->verticalScrollBar();
    page->pane()->paragraphs()->focusParagraph(59);
    rows().back()->editor()->clearFocus();
    const auto made = rows().size();
    while (bar->value() > 300) {
        const TextBlockEditor* read = nullptr;
        for (const TextBlockEditor* row : rows()) {
            if (row->geometry().contains(QPoint(20, bar->value() + 10)))
                read = row;
        }
        const int before = read != nullptr ? read->mapTo(page.get(), QPoint()).y() : 0;
        bar->setValue(bar->value() - 50);
        if (read != nullptr) {
            ASSERT_EQ(read->mapTo(page.get(), QPoint()).y(), before + 50) << bar->value();
        }
    }
    EXPECT_GT(rows().size(), made) << "some were made on the way";
}

TEST_F(NotesFocus, TheCaretStaysInSight)
{
    std::string text;
    for (int i = 0; i < 80; ++i)
        text += "line " + std::to_string(i) + "\n";
    add({"first", text, "last"});
    open();
    const auto isInSight = [this] {
        const auto* editor = qobject_cast<SelectableTextEditor*>(QApplication::focusWidget());
        const QWidget* seen = page->pane()->paragraphs()->viewport();
        return editor != nullptr
            && seen->rect().contains(editor->cursorRect().translated(editor->mapTo(page.get(), QPoint())
                                                                     - seen->mapTo(page.get(), QPoint())));
    };
    SelectableTextEditor* editor = rows()[1]->editor();
    editor->setFocus();
    EXPECT_TRUE(isInSight());
    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(isInSight());
    const int end = editor->textCursor().position();
    for (const auto& [key, isUp] : {std::pair(Qt::Key_PageUp, true), {Qt::Key_PageDown, false}}) {
        const int before = editor->textCursor().blockNumber();
        QTest::keyClick(editor, key);
        const int lines = editor->textCursor().blockNumber() - before;
        EXPECT_GT(isUp ? -lines : lines, 5);
        EXPECT_LT(isUp ? -lines : lines, 40) << "no more than is seen at once";
        EXPECT_TRUE(isInSight());
    }
    QTest::keyClick(editor, Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_TRUE(editor->textCursor().hasSelection());
    EXPECT_LT(editor->textCursor().position(), end);
    for (int i = 0; i < 10; ++i)
        QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_TRUE(isInSight());
    QTest::keyClick(editor, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(isInSight());
}

TEST_F(NotesFocus, TabGoesOnThroughParagraphsOutOfSight)
{
    const std::string high(200, '\n');
    open();
    for (const Texts& texts : {Texts(120, "a paragraph"), Texts {"first", high, "last"}}) {
        page->open(add(texts));
        rows()[0]->editor()->setFocus(Qt::TabFocusReason);
        for (std::size_t i = 1; i < texts.size(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); // to the button that removes it
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ASSERT_EQ(page->pane()->paragraphs()->focusedParagraph(), i);
            ASSERT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << i;
        }
    }
}

TEST_F(NotesFocus, AStepBackKeepsTheFocusInTheNote)
{
    add({"one", "two"});
    open();
    page->appendBlock();
    ASSERT_TRUE(rows()[2]->editor()->hasFocus());
    page->undo();
    EXPECT_TRUE(rows()[1]->editor()->hasFocus());
}

TEST_F(NotesFocus, ParagraphsAreReadInTheirOrder)
{
    const auto read = [this] {
        Texts texts;
        QAccessibleInterface& column = test::accessible(*page->pane()->paragraphs()->widget());
        for (int i = 0; i < column.childCount(); ++i) {
            const auto* row = qobject_cast<TextBlockEditor*>(column.child(i)->object());
            if (row != nullptr && row->isVisible())
                texts.push_back(toUtf8(row->editor()->text()));
        }
        return texts;
    };
    add({"one", "two", "three"});
    open();
    page->removeBlock(0);
    page->removeBlock(0);
    page->undo();
    page->undo();
    EXPECT_EQ(read(), (Texts {"one", "two", "three"}));

    add(Texts(100, "of many"), -1h);
    open();
    page->appendBlock();
    rows().back()->editor()->insertPlainText(QStringLiteral("last"));
    page->pane()->paragraphs()->focusParagraph(50);
    EXPECT_EQ(read(), shown());
    EXPECT_EQ(read().back(), "last");
}

TEST_F(NotesFocus, KeysGoToTheEndsOfTheListPastItsHeadings)
{
    for (int i = 0; i < 40; ++i)
        add({"note " + std::to_string(i)}, 12h * i);
    open();
    QListView* list = page->list()->list();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_End);
    EXPECT_EQ(shown(), Texts {"note 39"});
    QTest::keyClick(list, Qt::Key_Home);
    EXPECT_EQ(shown(), Texts {"note 0"});
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_PageUp}) {
        for (int i = 0; i < 10; ++i)
            QTest::keyClick(list, key);
        EXPECT_EQ(shown(), Texts {key == Qt::Key_PageDown ? "note 39" : "note 0"});
    }
}

TEST_F(NotesFocus, TabGoesThroughThePageInOrder)
{
    add({"a", "b"});
    open();
    NotesToolbar& tools = *page->toolbar();
    page->appendBlock();
    const std::vector<QWidget*> order {tools.newNote,
                                       tools.search,
                                       page->list()->list(),
                                       tools.undo,
                                       tools.copy,
                                       tools.remove,
                                       rows()[0]->editor(),
                                       rows()[0]->removeButton(),
                                       rows()[1]->editor(),
                                       rows()[1]->removeButton(),
                                       rows()[2]->editor(),
                                       rows()[2]->removeButton(),
                                       page->pane()->addButton()};
    tools.newNote->setFocus();
    for (std::size_t i = 1; i < order.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), order[i]) << "stop " << i;
    }
}

} // namespace
} // namespace zelta
