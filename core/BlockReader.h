#pragma once

#include "core/Note.h"

#include <memory>
#include <string_view>
#include <vector>

namespace zelta {

/// Reads stored paragraphs as `Note::decodeBlocks` does, and keeps its working memory from one text to the
/// next: for reading many notes in a row.
class BlockReader
{
public:
    BlockReader();
    ~BlockReader();
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    /// Never empty, never fails; see `Note::decodeBlocks`.
    std::vector<NoteBlock> read(std::string_view stored);

private:
    struct Memory;
    std::unique_ptr<Memory> m_memory;
};

} // namespace zelta
