#include "core/TextDirection.h"

#include "core/Unicode.h"

#include <cstdint>

namespace zelta {

namespace {

bool isRightToLeft(char32_t c)
{
    return (c >= 0x0590 && c <= 0x08FF) || (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFF);
}

bool isLeftToRight(char32_t c)
{
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= 0x00C0 && c <= 0x024F);
}

} // namespace

TextDirection directionOf(std::string_view text)
{
    std::int64_t majority = 0; // right-to-left letters less left-to-right ones
    for (const char32_t c : Unicode::CodePoints(text)) {
        if (isRightToLeft(c))
            ++majority;
        else if (isLeftToRight(c))
            --majority;
    }
    return majority > 0 ? TextDirection::rightToLeft : TextDirection::leftToRight;
}

} // namespace zelta
