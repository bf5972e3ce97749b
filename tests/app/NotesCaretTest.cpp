#include "tests/app/support/NotesStage.h"

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScrollBar>
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

} // namespace
} // namespace zelta
