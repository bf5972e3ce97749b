#include "core/Note.h"

#include "core/Unicode.h"
#include "tests/support/Comparison.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstdint>
#include <random>
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

constexpr std::string_view someId = "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64";
constexpr std::string_view otherId = "0D9B3E77-51A2-4C08-8E6F-93A4B2C1D5E0";

/// `["` becomes a JSON string, `#` an id: shorter rows.
std::string json(std::string_view pattern)
{
    std::string text;
    for (const char c : pattern) {
        if (c == '#')
            text += '"' + std::string(someId) + '"';
        else
            text += c == '\'' ? '"' : c;
    }
    return text;
}

TEST(NoteEncodedBlocks, IsCompactJsonWithTheIdFirst)
{
    const Note note(0, {{*Uuid::fromText(someId), "Shopping"}, {*Uuid::fromText(otherId), "milk\nbread"}}, {},
                    {});
    EXPECT_EQ(note.encodedBlocks(),
              R"([{"id":"6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64","text":"Shopping"},)"
              R"({"id":"0D9B3E77-51A2-4C08-8E6F-93A4B2C1D5E0","text":"milk\nbread"}])");
}

TEST(NoteEncodedBlocks, EscapesWhatJsonMust)
{
    const Note note(0, {{*Uuid::fromText(someId), std::string("\"\\/\b\f\n\r\t\0\x1F\x7Fé🙂\u2028", 20)}},
                    {}, {});
    EXPECT_EQ(note.encodedBlocks(),
              json("[{'id':#,'text':'") + R"(\"\\/\b\f\n\r\t\u0000\u001f)" + "\x7Fé🙂\u2028"
                  + json("'}]"));
}

TEST(NoteDecodeBlocks, ReadsBackWhatWasWritten)
{
    const Note note = noteOf({"", "\"quoted\" \\ back/slash", "line\nbreak\r\n\u2028\u0085",
                              "مرحبا שלום 漢字 🙂 ٣", std::string("\0\x01\x1F", 3),
                              "{\"id\":1}", "null", "e\u0301\uFEFF\uFFFF"});
    EXPECT_EQ(Note::decodeBlocks(note.encodedBlocks()), note.blocks);
    EXPECT_EQ(Note::decodeBlocks(std::string_view()).front().text, "") << "a view that points to nothing";
}

TEST(NoteDecodeBlocks, IsTheIdentityAfterEncodingArbitraryText)
{
    EXPECT_TRUE(
        rc::check("decoding what was encoded", [](const std::vector<std::vector<char32_t>>& paragraphs) {
            std::vector<NoteBlock> blocks;
            for (const std::vector<char32_t>& paragraph : paragraphs) {
                NoteBlock block;
                for (const char32_t c : paragraph)
                    Unicode::append(block.text, c % 0x110000);
                blocks.push_back(std::move(block));
            }
            const Note note(0, std::move(blocks), {}, {});
            RC_ASSERT(Note::decodeBlocks(note.encodedBlocks()) == note.blocks);
        }));
}

TEST(NoteDecodeBlocks, TakesMembersInAnyOrderAndIgnoresOthers)
{
    for (const std::string_view pattern : {
             "[{'id':#,'text':'x'}]",
             "[{'text':'x','id':#}]",
             " [ { 'text' : 'x' , 'id' : # } ]\r\n\t",
             "[{'more':[1,{'id':2}],'id':#,'style':null,'text':'x','z':-1.5e3}]",
             "[{'\\u0069d':#,'text':'\\u0078'}]",
         }) {
        const std::vector<NoteBlock> blocks = Note::decodeBlocks(json(pattern));
        ASSERT_EQ(texts(blocks), Texts {"x"}) << pattern;
        EXPECT_EQ(blocks[0].id.text(), someId) << pattern;
    }
    EXPECT_EQ(
        Note::decodeBlocks("[{\"id\":\"6f1c2a4e-0b7d-4e21-9a53-2c8d1f0e7b64\",\"text\":\"x\"}]")[0].id.text(),
        someId)
        << "an id in lower case";
}

TEST(NoteDecodeBlocks, KeepsBlocksThatShareAnId)
{
    const std::vector<NoteBlock> blocks
        = Note::decodeBlocks(json("[{'id':#,'text':'a'},{'id':#,'text':'b'}]"));
    EXPECT_EQ(texts(blocks), (Texts {"a", "b"}));
    EXPECT_EQ(blocks[0].id, blocks[1].id);
}

TEST(NoteDecodeBlocks, MakesOneParagraphOfAnythingElse)
{
    using namespace std::string_literals;
    for (const std::string& stored : {
             ""s,
             "hello"s,
             "[]"s,
             "{}"s,
             "null"s,
             "\"text\""s,
             "[1]"s,
             "[[]]"s,
             "[{}]"s,
             json("[{'id':#}]"),
             json("[{'text':'x'}]"),
             json("[{'ID':#,'text':'x'}]"),
             json("[{'id':1,'text':'x'}]"),
             json("[{'id':#,'text':1}]"),
             json("[{'id':#,'text':null}]"),
             json("[{'id':'{6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64}','text':'x'}]"),
             json("[{'id':'','text':'x'}]"),
             json("[{'id':#,'text':'x'},{'id':#}]"),
             json("[{'id':#,'text':'x'},]"),
             json("[{'id':#,'text':'x',}]"),
             json("[{'id':#,'text':'x'}"),
             json("[{'id':#,'text':'x'}]]"),
             json("[{'id':#,'text':'x'}] []"),
             json("[{'id':#,'text':'x'}]") + '\0',
             json("{'id':#,'text':'x'}"),
             json("[{'id':#,'text':'a\tb'}]"),
             json("[{'id':#,'text':'a\nb'}]"),
             json("[{'id':#,'text':'a") + '\0' + json("b'}]"),
             json("[{'id':#,'text':'x\\q'}]"),
             json("[{'id':#,'text':'\\ud800'}]"),
             json("[{'id':#,'text':'\\udc00'}]"),
             json("[{'id':#,'text':'\\ud800\\ud800'}]"),
             json("[{'id':#,'text':'\\udc00\\ud800'}]"),
             json("[{'id':#,'text':'\\u12'}]"),
             json("[{'id':#,'text':'x','n':01}]"),
             json("[{'id':#,'text':'x','n':NaN}]"),
             json("[{'id':#,'text':'x','n':tru}]"),
             json("[{'id':#,'text':'x','n':'\\udc00'}]"),
             json("/**/[{'id':#,'text':'x'}]"),
             "[{'id':'6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64','text':'x'}]"s,
             json("[{'id':#,'text':'\xFF'}]"),
             json("[{'id':#,'text':'\xED\xA0\x80'}]"),
             std::string(100'000, '['),
             "a\0b"s,
             " \n"s,
         }) {
        const std::vector<NoteBlock> blocks = Note::decodeBlocks(stored);
        EXPECT_EQ(texts(blocks), Texts {stored}) << stored.substr(0, 200);
        EXPECT_NE(blocks[0].id, Note::decodeBlocks(stored)[0].id) << "a fresh id each time";
    }
}

TEST(NoteDecodeBlocks, ReadsSurrogatePairs)
{
    EXPECT_EQ(texts(Note::decodeBlocks(json("[{'id':#,'text':'\\ud83d\\ude42 \\u00e9\\u0000'}]"))),
              Texts {std::string("🙂 é\0", 8)});
}

// What opened as ill-formed plain text is saved as JSON that opens again.
TEST(NoteDecodeBlocks, SettlesIllFormedTextAtTheFirstSave)
{
    const Note opened(0, Note::decodeBlocks("caf\xE9"), {}, {});
    EXPECT_EQ(opened.plainText(), "caf\xE9");
    EXPECT_EQ(texts(Note::decodeBlocks(opened.encodedBlocks())), Texts {"caf\uFFFD"});
}

// Titles and previews of random texts against Python's own splitting and stripping.
TEST(NoteTitle, AgreesWithPythonOnRandomTexts)
{
    const std::u32string alphabet = U"\t\n\v\f\r \u0085\u00A0\u2028\u2029\u3000\u200B\u001Cab漢";
    std::mt19937 random(20260101); // the same texts each time
    test::Comparison comparison("core/unicode_oracle.py");
    for (int i = 0; i < 5000; ++i) {
        std::vector<NoteBlock> blocks(1 + random() % 3);
        std::string question = "titles";
        for (NoteBlock& block : blocks) {
            for (std::size_t length = random() % 9; length > 0; --length) {
                const char32_t c = alphabet[random() % alphabet.size()];
                Unicode::append(block.text, c);
                question += ' ' + std::to_string(static_cast<std::uint32_t>(c));
            }
            question += " -1";
        }
        const Note note(0, std::move(blocks), {}, {});
        comparison.add(std::move(question),
                       note.title() + '|' + note.preview() + '|' + std::to_string(note.wordCount()));
    }
}

} // namespace
} // namespace zelta
