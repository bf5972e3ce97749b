#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <optional>

namespace zelta {
namespace {

using Texts = test::NotesStage::Texts;

/// How the caret goes on from one paragraph to another, and what comes into sight on the way.
struct NotesCaret : testing::Test, test::NotesStage
{
    ParagraphColumn* column() const { return page->pane()->paragraphs(); }
    SelectableTextEditor* editor() const
    {
        return qobject_cast<SelectableTextEditor*>(QApplication::focusWidget());
    }

    /// Puts the caret into a paragraph, at this character.
    void put(std::size_t paragraph, int position) const
    {
        column()->focusParagraph(paragraph);
        QTextCursor cursor = editor()->textCursor();
        cursor.setPosition(position);
        editor()->setTextCursor(cursor);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    [[nodiscard]] std::optional<std::size_t> paragraph() const { return column()->focusedParagraph(); }
    [[nodiscard]] int caret() const { return editor()->textCursor().position(); }
    [[nodiscard]] int caretX() const { return editor()->cursorRect().x(); }
    [[nodiscard]] bool isInSight() const
    {
        const QWidget* seen = column()->viewport();
        return seen->rect().contains(editor()->cursorRect().translated(editor()->mapTo(seen, QPoint())));
    }
};

TEST_F(NotesCaret, UpAndDownGoOnInTheNextParagraph)
{
    add({"one two\nthree four", "five six", "x", "seven eight"});
    open();
    put(0, 5);
    const int x = caretX();
    key(Qt::Key_Down);
    EXPECT_EQ(paragraph(), 0U) << "it has a second line";
    key(Qt::Key_Down);
    EXPECT_EQ(paragraph(), 1U);
    EXPECT_NEAR(caretX(), x, 5) << "right below";
    key(Qt::Key_Down);
    EXPECT_EQ(paragraph(), 2U);
    EXPECT_EQ(caret(), 1) << "a short line's end";
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(paragraph(), 0U);
    EXPECT_GT(caret(), 7) << "in its last line";
    put(3, 2);
    key(Qt::Key_Down);
    EXPECT_EQ(paragraph(), 3U) << "there is none below";
    put(0, 2);
    key(Qt::Key_Up);
    EXPECT_EQ(paragraph(), 0U);
}

TEST_F(NotesCaret, LeftAndRightGoOnPastTheEnds)
{
    add({"one", "שלום", "two"});
    open();
    put(0, 3);
    key(Qt::Key_Right);
    EXPECT_EQ(paragraph(), 1U);
    EXPECT_EQ(caret(), 0);
    key(Qt::Key_Right);
    EXPECT_EQ(paragraph(), 0U) << "Hebrew begins at the right";
    EXPECT_EQ(caret(), 3);
    put(1, 4);
    key(Qt::Key_Left);
    EXPECT_EQ(paragraph(), 2U);
    EXPECT_EQ(caret(), 0);
    key(Qt::Key_Left);
    EXPECT_EQ(paragraph(), 1U);
    EXPECT_EQ(caret(), 4);
    put(2, 3);
    key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(paragraph(), 2U) << "the note's end";
    put(0, 0);
    key(Qt::Key_Left);
    EXPECT_EQ(paragraph(), 0U);
}

TEST_F(NotesCaret, UpAndDownLeaveNoLineOut)
{
    for (const char* words : {"שלום עולם ודי אב ספר ", "مرحبا بالعالم كتاب ", "hello world and a book "}) {
        std::string text;
        for (int i = 0; i < 14; ++i)
            text += words;
        add({"", text, "", "last"});
    }
    open();
    for (const int width : {800, 837, 911}) {
        page->resize(width, 620);
        for (const NoteStamp& note : page->notes()) {
            page->open(note.id);
            put(0, 0);
            key(Qt::Key_Down);
            ASSERT_EQ(paragraph(), 1U);
            const auto lines = editor()->document()->firstBlock().layout();
            for (int line = 0; line < lines->lineCount(); ++line) {
                ASSERT_EQ(paragraph(), 1U) << line;
                EXPECT_EQ(lines->lineForTextPosition(caret()).lineNumber(), line) << width;
                key(Qt::Key_Down);
            }
            EXPECT_EQ(paragraph(), 2U);
            for (int line = lines->lineCount() - 1; line >= 0; --line) {
                key(Qt::Key_Up);
                ASSERT_EQ(paragraph(), 1U) << line;
                EXPECT_EQ(lines->lineForTextPosition(caret()).lineNumber(), line) << width;
            }
        }
    }
}

TEST_F(NotesCaret, UpAndDownKeepTheColumn)
{
    add({"one two three four", "x", "one\n\ntwo three four"});
    open();
    put(0, 14);
    const int x = caretX();
    key(Qt::Key_Down);
    EXPECT_EQ(caret(), 1);
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Down);
    EXPECT_EQ(paragraph(), 2U);
    EXPECT_NEAR(caretX(), x, 5);
    for (const Qt::Key next : {Qt::Key_Up, Qt::Key_Right, Qt::Key_Up, Qt::Key_Up})
        key(next);
    EXPECT_EQ(caret(), 0) << "another key has moved the caret meanwhile";
}

TEST_F(NotesCaret, ArrowsPassAnEmptyParagraph)
{
    add({"שלום", "", "עולם", "", "last"});
    open();
    put(0, 4);
    for (const std::size_t next : {1U, 2U}) {
        key(Qt::Key_Left);
        EXPECT_EQ(paragraph(), next);
    }
    for (const std::size_t next : {1U, 0U}) {
        key(Qt::Key_Right);
        EXPECT_EQ(paragraph(), next);
    }
    put(4, 0);
    for (const std::size_t next : {3U, 2U}) {
        key(Qt::Key_Left);
        EXPECT_EQ(paragraph(), next);
    }
}

TEST_F(NotesCaret, ABlankThatHangsOverStopsNoArrow)
{
    std::string text;
    for (int i = 0; i < 12; ++i)
        text += "שלום עולם ודי אב ספר ";
    add({"first", text, "last"});
    open();
    for (int width = 760; width < 900; width += 2) {
        page->resize(width, 620);
        column()->focusParagraph(1);
        key(Qt::Key_End, Qt::ControlModifier);
        const int end = caret();
        key(Qt::Key_Right);
        ASSERT_EQ(paragraph(), 1U) << width;
        EXPECT_EQ(caret(), end - 1) << width;
    }
}

TEST_F(NotesCaret, AKeyThatCannotMoveTheCaretShowsIt)
{
    std::string text;
    for (int i = 0; i < 150; ++i)
        text += "line\n";
    add({text});
    open();
    QScrollBar* bar = column()->verticalScrollBar();
    for (const auto& [pressed, modifiers] :
         {std::pair<Qt::Key, Qt::KeyboardModifiers>(Qt::Key_Home, Qt::NoModifier),
          {Qt::Key_Home, Qt::ControlModifier},
          {Qt::Key_Up, Qt::NoModifier},
          {Qt::Key_PageUp, Qt::NoModifier},
          {Qt::Key_Left, Qt::NoModifier}}) {
        put(0, 0);
        bar->setValue(bar->maximum() / 2);
        ASSERT_FALSE(isInSight());
        key(pressed, modifiers);
        EXPECT_TRUE(isInSight()) << pressed;
    }
}

TEST_F(NotesCaret, ASelectionEndsWithItsParagraph)
{
    add({"one", "two"});
    open();
    put(0, 1);
    for (const Qt::Key step : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown})
        key(step, Qt::ShiftModifier);
    EXPECT_EQ(paragraph(), 0U);
    EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("ne"));
    put(1, 1);
    for (const Qt::Key step : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Left, Qt::Key_PageUp})
        key(step, Qt::ShiftModifier);
    EXPECT_EQ(paragraph(), 1U);
    EXPECT_EQ(editor()->textCursor().selectedText(), QStringLiteral("t"));
}

TEST_F(NotesCaret, PageKeysMoveByWhatIsSeen)
{
    constexpr std::size_t count = 90;
    add(Texts(count, "a paragraph"));
    open();
    put(0, 3);
    const std::size_t seen = static_cast<std::size_t>(column()->viewport()->height()) / 40;
    std::size_t before = 0;
    while (before + 1 < count) {
        key(Qt::Key_PageDown);
        ASSERT_TRUE(paragraph() && isInSight()) << before;
        ASSERT_GT(*paragraph(), before);
        ASSERT_TRUE(*paragraph() >= before + seen / 2 || *paragraph() == count - 1) << before;
        ASSERT_LE(*paragraph(), before + 2 * seen) << before;
        before = *paragraph();
    }
    for (std::size_t i = 0; i < count && paragraph() != 0U; ++i)
        key(Qt::Key_PageUp);
    EXPECT_EQ(paragraph(), 0U);
    EXPECT_TRUE(isInSight());
}

TEST_F(NotesCaret, ADragBeyondTheEdgeScrollsOn)
{
    QString text;
    for (int i = 0; i < 120; ++i)
        text += QStringLiteral("line %1\n").arg(i);
    add({toUtf8(text)});
    open();
    QWindow* window = page->windowHandle();
    const auto inWindow
        = [this](const QWidget* widget, QPoint place) { return widget->mapTo(page.get(), place); };
    QScrollBar* bar = column()->verticalScrollBar();
    put(0, 0);
    ASSERT_EQ(bar->value(), 0);
    QTest::mousePress(window, Qt::LeftButton, {}, inWindow(editor()->viewport(), {5, 12}));
    // To a place below the text, and no further movement.
    const QPoint below = inWindow(column(), {20, column()->height() + 8});
    QTest::mouseMove(window, below);
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() > 300; }));
    QTest::mouseRelease(window, Qt::LeftButton, {}, below);
    EXPECT_EQ(editor()->textCursor().anchor(), 0);
    EXPECT_GT(editor()->textCursor().position(), 100);
    const auto isOver = [editor = editor()] {
        return QAbstractEventDispatcher::instance()->registeredTimers(editor).isEmpty();
    };
    EXPECT_TRUE(isOver()) << "it ends with the button";
    QTest::mousePress(window, Qt::LeftButton, {}, inWindow(column(), {20, 50}));
    QTest::mouseMove(window, below);
    EXPECT_FALSE(isOver());
    page->hide(); // as another page takes its place
    EXPECT_TRUE(QTest::qWaitFor(isOver));
    QTest::mouseRelease(window, Qt::LeftButton, {}, below);
}

TEST_F(NotesCaret, ADragEndsThoughAMenuHasTheRelease)
{
    add({"one", "two"});
    open();
    QWindow* window = page->windowHandle();
    const auto inColumn = [this](QPoint place) { return column()->mapTo(page.get(), place); };
    put(0, 0);
    QTest::mousePress(window, Qt::LeftButton, {}, inColumn({30, 20}));
    QTest::mouseMove(window, inColumn({60, 300}));
    SelectableTextEditor* dragged = editor();
    const auto isOver
        = [dragged] { return QAbstractEventDispatcher::instance()->registeredTimers(dragged).isEmpty(); };
    EXPECT_FALSE(isOver());
    QWidget menu(nullptr, Qt::Popup);
    menu.show();
    QTest::mouseRelease(menu.windowHandle(), Qt::LeftButton, {}, {5, 5});
    menu.hide();
    EXPECT_TRUE(QTest::qWaitFor(isOver));
    const QTextCursor before = dragged->textCursor();
    QTest::mouseMove(window, inColumn({40, 250}));
    EXPECT_EQ(dragged->textCursor().position(), before.position()) << "no button is held";
}

} // namespace
} // namespace zelta
