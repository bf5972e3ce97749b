#pragma once

#include "core/Enumeration.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace zelta {

/// The writing direction of a paragraph. It is a majority vote over all its letters, not the direction of its
/// first strong letter: "שלום world" (four letters against five) runs left to right, "مرحبا hi" right to
/// left. It is never stored with the paragraph, always computed from its text.
enum class TextDirection { leftToRight, rightToLeft };

template <> struct EnumerationTable<TextDirection>
{
    static constexpr auto all = std::to_array<std::pair<TextDirection, std::string_view>>(
        {{TextDirection::leftToRight, "leftToRight"}, {TextDirection::rightToLeft, "rightToLeft"}});
};

/// One character's vote: 1 for right to left, -1 for left to right, 0 for neither.
constexpr int directionVote(char32_t c)
{
    if ((c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= 0x00C0 && c <= 0x024F))
        return -1;
    if ((c >= 0x0590 && c <= 0x08FF) || (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFF))
        return 1;
    return 0;
}

/// The direction for a sum of votes. A text that is being edited keeps its sum up to date instead of walking
/// through all of it at each key.
constexpr TextDirection directionOfVotes(std::int64_t sum)
{
    return sum > 0 ? TextDirection::rightToLeft : TextDirection::leftToRight;
}

/// Right to left when more characters lie in the blocks of Hebrew, Arabic and their neighbours (U+0590-08FF,
/// U+FB1D-FDFF, U+FE70-FEFF) than are ASCII letters or lie in U+00C0-024F. Everything else, from digits to
/// Greek, counts for neither side; a tie runs left to right.
TextDirection directionOf(std::string_view text);

} // namespace zelta
