#include "app/pages/NoteDraft.h"

#include "tests/app/support/HandClock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zelta {
namespace {

using namespace std::chrono_literals;

constexpr Instant then = test::HandClock::noon;
constexpr Instant later = then + 5min;

Note noteOf(const std::vector<std::string>& texts)
{
    std::vector<NoteBlock> blocks;
    for (const std::string& text : texts)
        blocks.push_back({.text = text});
    return Note(7, std::move(blocks), then, then);
}

std::vector<std::string> texts(const NoteDraft& draft)
{
    std::vector<std::string> all;
    for (const NoteBlock& block : draft.note().blocks)
        all.push_back(block.text);
    return all;
}

ParagraphKey keyOf(const NoteDraft& draft, std::size_t at)
{
    return paragraphKeys(draft.note()).at(at);
}

using Texts = std::vector<std::string>;

TEST(NoteDraft, TakesOverTypedTextWithItsTimeAndWithoutAStep)
{
    NoteDraft draft(noteOf({"a", "b"}));
    EXPECT_TRUE(draft.update(keyOf(draft, 1), "bee", later));
    EXPECT_EQ(texts(draft), (Texts {"a", "bee"}));
    EXPECT_EQ(draft.note().updatedAt, later);
    EXPECT_EQ(draft.note().createdAt, then);
    EXPECT_FALSE(draft.canUndo());
}

TEST(NoteDraft, IgnoresTheSameTextAndAnUnknownParagraph)
{
    NoteDraft draft(noteOf({"a"}));
    EXPECT_FALSE(draft.update(keyOf(draft, 0), "a", later));
    EXPECT_FALSE(draft.update({.id = Uuid::random()}, "x", later));
    EXPECT_FALSE(draft.update({.id = keyOf(draft, 0).id, .occurrence = 1}, "x", later));
    EXPECT_EQ(texts(draft), Texts {"a"});
    EXPECT_EQ(draft.note().updatedAt, then);
}

TEST(NoteDraft, TellsTwoParagraphsOfOneIdApart)
{
    const NoteBlock twin {.text = "first"};
    NoteDraft draft(Note(7, {twin, {.text = "between"}, {.id = twin.id, .text = "second"}}, then, then));
    EXPECT_EQ(keyOf(draft, 2), (ParagraphKey {.id = twin.id, .occurrence = 1}));
    EXPECT_TRUE(draft.update(keyOf(draft, 2), "changed", later));
    EXPECT_EQ(texts(draft), (Texts {"first", "between", "changed"}));
}

TEST(NoteDraft, AppendsAnEmptyParagraphThatUndoTakesAway)
{
    NoteDraft draft(noteOf({"a"}));
    const Note before = draft.note();
    draft.append(later);
    EXPECT_EQ(texts(draft), (Texts {"a", ""}));
    EXPECT_NE(draft.note().blocks[0].id, draft.note().blocks[1].id);
    EXPECT_EQ(draft.note().updatedAt, later);
    EXPECT_TRUE(draft.undo());
    EXPECT_EQ(draft.note(), before) << "the time of the change comes back too";
}

TEST(NoteDraft, RedoBringsBackTheSameParagraph)
{
    NoteDraft draft(noteOf({"a"}));
    draft.append(later);
    const Note after = draft.note();
    draft.undo();
    EXPECT_TRUE(draft.canRedo());
    EXPECT_TRUE(draft.redo());
    EXPECT_EQ(draft.note(), after);
    EXPECT_FALSE(draft.canRedo());
    EXPECT_TRUE(draft.canUndo());
}

TEST(NoteDraft, RemovesTheSecondOfTwo)
{
    NoteDraft draft(noteOf({"a", "b"}));
    EXPECT_TRUE(draft.remove(1, later));
    EXPECT_EQ(texts(draft), Texts {"a"});
    EXPECT_EQ(draft.note().updatedAt, later);
}

TEST(NoteDraft, PutsAnEmptyParagraphInTheLastOnesPlace)
{
    NoteDraft draft(noteOf({"a"}));
    const Uuid old = keyOf(draft, 0).id;
    EXPECT_TRUE(draft.remove(0, later));
    EXPECT_EQ(texts(draft), Texts {""});
    EXPECT_NE(keyOf(draft, 0).id, old);
}

TEST(NoteDraft, RemovesNothingOutsideTheNote)
{
    NoteDraft draft(noteOf({"a", "b"}));
    EXPECT_FALSE(draft.remove(2, later));
    EXPECT_EQ(draft.note().updatedAt, then);
    EXPECT_FALSE(draft.canUndo());
}

TEST(NoteDraft, StepsBackSixtyTimesAndNoFurther)
{
    NoteDraft draft(noteOf({"start"}));
    for (int i = 0; i < 61; ++i)
        draft.append(later);
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(draft.undo()) << i;
    EXPECT_FALSE(draft.undo());
    EXPECT_EQ(draft.note().blocks.size(), 2U) << "the first of the 61 additions is past recall";
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(draft.redo()) << i;
    EXPECT_FALSE(draft.redo());
    EXPECT_EQ(draft.note().blocks.size(), 62U);
}

TEST(NoteDraft, ANewStepForgetsWhatCouldBeRedone)
{
    NoteDraft draft(noteOf({"a"}));
    draft.append(later);
    draft.undo();
    draft.append(later);
    EXPECT_FALSE(draft.canRedo());
    draft.undo();
    EXPECT_TRUE(draft.canRedo());
    draft.append(later);
    EXPECT_FALSE(draft.canRedo());
}

TEST(NoteDraft, TypingKeepsWhatCouldBeRedone)
{
    NoteDraft draft(noteOf({"a"}));
    draft.append(later);
    draft.undo();
    draft.update(keyOf(draft, 0), "typed", later);
    EXPECT_TRUE(draft.canRedo());
    draft.redo();
    EXPECT_EQ(texts(draft), (Texts {"a", ""}));
    draft.undo();
    EXPECT_EQ(texts(draft), Texts {"typed"}) << "undo returns to what stood before the redo";
}

TEST(NoteDraft, HasNoStepsAtFirst)
{
    NoteDraft draft(noteOf({"a"}));
    EXPECT_FALSE(draft.canUndo());
    EXPECT_FALSE(draft.canRedo());
    EXPECT_FALSE(draft.undo());
    EXPECT_FALSE(draft.redo());
    EXPECT_EQ(texts(draft), Texts {"a"});
}

} // namespace
} // namespace zelta
