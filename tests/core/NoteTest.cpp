#include "core/Note.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelta {
namespace {

Note noteOf(std::initializer_list<std::string_view> texts)
{
    std::vector<NoteBlock> blocks;
    for (const std::string_view text : texts)
        blocks.push_back({.id = Uuid::random(), .text = std::string(text)});
    return {0, std::move(blocks), {}, {}};
}

std::vector<std::string> texts(const std::vector<NoteBlock>& blocks)
{
    std::vector<std::string> all;
    for (const NoteBlock& block : blocks)
        all.push_back(block.text);
    return all;
}

using Texts = std::vector<std::string>;

TEST(Note, WithoutBlocksGetsOneEmptyBlock)
{
    const Note note = noteOf({});
    ASSERT_EQ(texts(note.blocks), Texts {""});
    EXPECT_NE(note.blocks[0].id, Uuid());
    EXPECT_NE(note.blocks[0].id, noteOf({}).blocks[0].id);
}

TEST(Note, EmptyHasFallbackTexts)
{
    const Note note = noteOf({""});
    EXPECT_EQ(note.title(), "New Note");
    EXPECT_EQ(note.preview(), "No additional text");
    EXPECT_EQ(note.plainText(), "");
    EXPECT_EQ(note.wordCount(), 0);
    EXPECT_EQ(note.searchText(), "new note\n");
}

TEST(NoteTitle, IsTheFirstFilledLine)
{
    EXPECT_EQ(noteOf({"  \n  Groceries  ", "milk"}).title(), "Groceries");
    EXPECT_EQ(noteOf({"Groceries\n\n  eggs\nmilk"}).title(), "Groceries");
    EXPECT_EQ(noteOf({"", " \t ", "\r\n", "at last"}).title(), "at last");
    EXPECT_EQ(noteOf({" a  \t b\u00A0"}).title(), "a  \t b") << "inner spaces stay";
}

TEST(NotePreview, IsTheSecondFilledLineOfTheWholeNote)
{
    EXPECT_EQ(noteOf({"  \n  Groceries  ", "milk"}).preview(), "milk");
    EXPECT_EQ(noteOf({"Groceries\n\n  eggs\nmilk"}).preview(), "eggs");
    EXPECT_EQ(noteOf({"one", "", " \n "}).preview(), "No additional text");
}

TEST(NoteTitle, EndsAtEveryLineSeparator)
{
    for (const std::string_view separator : {"\n", "\v", "\f", "\r", "\r\n", "\u0085", "\u2028", "\u2029"}) {
        const Note note = noteOf({"a" + std::string(separator) + "b"});
        EXPECT_EQ(note.title(), "a");
        EXPECT_EQ(note.preview(), "b");
    }
    EXPECT_EQ(noteOf({"a\x1C\x1D\x1E"
                      "b"})
                  .title(),
              "a\x1C\x1D\x1E"
              "b")
        << "no line separators";
}

TEST(NotePlainText, JoinsBlocksWithABlankLine)
{
    EXPECT_EQ(noteOf({"a", "", "b"}).plainText(), "a\n\n\n\nb");
    EXPECT_EQ(noteOf({" a \n", "b"}).plainText(), " a \n\n\nb") << "untrimmed";
}

TEST(NoteWordCount, CountsBetweenAnyWhiteSpace)
{
    EXPECT_EQ(noteOf({"a b", "c"}).wordCount(), 3);
    EXPECT_EQ(noteOf({" milk\u00A0and\u3000two\r\neggs\u2029- "}).wordCount(), 5);
    EXPECT_EQ(noteOf({"a\u200Bb"}).wordCount(), 1);
    EXPECT_EQ(noteOf({"ab", "cd"}).wordCount(), 2) << "a paragraph's end ends a word";
}

TEST(NoteSearchText, IsTitleAndTextInLowerCase)
{
    EXPECT_EQ(noteOf({"Hello\nWorld"}).searchText(), "hello\nhello\nworld");
    EXPECT_EQ(noteOf({" ΟΔΟΣ ", "İ"}).searchText(), "οδοσ\n οδοσ \n\ni\u0307");
}

TEST(NoteBlock, IsEmptyWhenOnlyWhiteSpace)
{
    EXPECT_TRUE((NoteBlock {.text = ""}).isEmpty());
    EXPECT_TRUE((NoteBlock {.text = " \t\r\n\u2029\u3000"}).isEmpty());
    EXPECT_FALSE((NoteBlock {.text = " . "}).isEmpty());
}

} // namespace
} // namespace zelta
