#include "core/Note.h"

#include "core/BlockReader.h"
#include "core/Unicode.h"

#include <optional>
#include <utility>

namespace zelta {

namespace {

/// The `wanted`-th line (from 0) that is not blank, counted through all blocks.
std::optional<std::string_view> filledLine(const std::vector<NoteBlock>& blocks, int wanted)
{
    for (const NoteBlock& block : blocks) {
        const std::string_view text = block.text;
        const Unicode::CodePoints points(text);
        auto c = points.begin();
        while (c != points.end()) {
            const std::size_t start = c.offset();
            while (c != points.end() && !Unicode::isLineSeparator(*c))
                ++c;
            const std::string_view line = Unicode::trimBlanks(text.substr(start, c.offset() - start));
            if (!line.empty() && wanted-- == 0)
                return line;
            if (c != points.end())
                ++c;
        }
    }
    return std::nullopt;
}

void appendEscaped(std::string& json, char c)
{
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    json += '\\';
    switch (c) {
    case '"':
    case '\\':
        json += c;
        break;
    case '\b':
        json += 'b';
        break;
    case '\f':
        json += 'f';
        break;
    case '\n':
        json += 'n';
        break;
    case '\r':
        json += 'r';
        break;
    case '\t':
        json += 't';
        break;
    default:
        json += "u00";
        json += hexadecimal[static_cast<unsigned char>(c) >> 4U];
        json += hexadecimal[static_cast<unsigned char>(c) & 0xFU];
    }
}

void appendJsonString(std::string& json, std::string_view text)
{
    json += '"';
    std::size_t copied = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\')
            continue;
        json.append(text, copied, i - copied);
        appendEscaped(json, c);
        copied = i + 1;
    }
    json.append(text, copied);
    json += '"';
}

} // namespace

bool NoteBlock::isEmpty() const
{
    return Unicode::trim(text).empty();
}

Note::Note(std::int64_t rowId, std::vector<NoteBlock> paragraphs, Instant created, Instant updated)
    : id(rowId)
    , blocks(std::move(paragraphs))
    , createdAt(created)
    , updatedAt(updated)
{
    if (blocks.empty())
        blocks.emplace_back();
}

std::string Note::title() const
{
    return std::string(filledLine(blocks, 0).value_or("New Note"));
}

std::string Note::preview() const
{
    return std::string(filledLine(blocks, 1).value_or("No additional text"));
}

std::string Note::plainText() const
{
    std::string text;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        if (i > 0)
            text += "\n\n";
        text += blocks[i].text;
    }
    return text;
}

std::int64_t Note::wordCount() const
{
    std::int64_t words = 0;
    for (const NoteBlock& block : blocks) {
        bool insideWord = false;
        for (const char32_t c : Unicode::CodePoints(block.text)) {
            const bool isSpace = Unicode::isWhiteSpace(c);
            words += !isSpace && !insideWord ? 1 : 0;
            insideWord = !isSpace;
        }
    }
    return words;
}

std::string Note::searchText() const
{
    return Unicode::lowerCase(title() + '\n' + plainText());
}

std::string Note::encodedBlocks() const
{
    std::string json = "[";
    for (const NoteBlock& block : blocks) {
        if (json.size() > 1)
            json += ',';
        json += "{\"id\":\"" + block.id.text() + "\",\"text\":";
        appendJsonString(json, Unicode::wellFormed(block.text));
        json += '}';
    }
    json += ']';
    return json;
}

std::vector<NoteBlock> Note::decodeBlocks(std::string_view text)
{
    return BlockReader().read(text);
}

} // namespace zelta
