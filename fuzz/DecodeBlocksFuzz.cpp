#include "core/Note.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

// Any stored text opens as at least one paragraph, and what opened is kept by the next save and reading.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using zelta::Note;
    const std::string_view stored(reinterpret_cast<const char*>(data), size);
    const Note opened(1, Note::decodeBlocks(stored), {}, {});
    if (opened.blocks.empty() || opened.wordCount() < 0 || opened.searchText().empty())
        std::abort();
    const Note saved(1, Note::decodeBlocks(opened.encodedBlocks()), {}, {});
    // Ill-formed text changes once, to what UTF-8 can hold, and then never more.
    if (saved.blocks.size() != opened.blocks.size()
        || Note::decodeBlocks(saved.encodedBlocks()) != saved.blocks)
        std::abort();
    return 0;
}
