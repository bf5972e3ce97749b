#include "core/TextDirection.h"

#include "core/Unicode.h"

#include <cstdint>

namespace zelta {

TextDirection directionOf(std::string_view text)
{
    std::int64_t votes = 0;
    for (const char32_t c : Unicode::CodePoints(text))
        votes += directionVote(c);
    return directionOfVotes(votes);
}

} // namespace zelta
