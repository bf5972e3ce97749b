#include "core/BlockReader.h"

#include <simdjson.h>

#include <new>
#include <optional>
#include <string>
#include <utility>

namespace zelta {

struct BlockReader::Memory
{
    simdjson::dom::parser parser;
};

namespace {

std::optional<NoteBlock> readBlock(simdjson::dom::element element)
{
    std::string_view id;
    std::string_view text;
    if (element["id"].get(id) != simdjson::SUCCESS || element["text"].get(text) != simdjson::SUCCESS)
        return std::nullopt;
    const std::optional<Uuid> uuid = Uuid::fromText(id);
    // An escaped half of a surrogate pair stands for no character; UTF-8 cannot hold it.
    if (!uuid || !simdjson::validate_utf8(text.data(), text.size()))
        return std::nullopt;
    return NoteBlock {*uuid, std::string(text)};
}

std::vector<NoteBlock> readBlocks(simdjson::dom::parser& parser, std::string_view json)
{
    simdjson::dom::array array;
    const simdjson::error_code error = parser.parse(json.data(), json.size()).get(array);
    if (error == simdjson::MEMALLOC) { // says nothing about the text, and leaves the parser unusable
        parser = simdjson::dom::parser();
        throw std::bad_alloc();
    }
    if (error != simdjson::SUCCESS)
        return {};
    std::vector<NoteBlock> blocks;
    blocks.reserve(array.size());
    for (const simdjson::dom::element element : array) {
        std::optional<NoteBlock> block = readBlock(element);
        if (!block)
            return {};
        blocks.push_back(std::move(*block));
    }
    return blocks;
}

} // namespace

BlockReader::BlockReader()
    : m_memory(std::make_unique<Memory>())
{ }

BlockReader::~BlockReader() = default;

std::vector<NoteBlock> BlockReader::read(std::string_view stored)
{
    // Nothing at all is no JSON either, and the parser must not be given a null pointer to copy from.
    std::vector<NoteBlock> blocks;
    if (!stored.empty())
        blocks = readBlocks(m_memory->parser, stored);
    if (blocks.empty())
        blocks.push_back({.id = Uuid::random(), .text = std::string(stored)});
    return blocks;
}

} // namespace zelta
