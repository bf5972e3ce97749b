#pragma once

#include "core/Enumeration.h"

#include <array>
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

/// Right to left when more characters lie in the blocks of Hebrew, Arabic and their neighbours (U+0590-08FF,
/// U+FB1D-FDFF, U+FE70-FEFF) than are ASCII letters or lie in U+00C0-024F. Everything else, from digits to
/// Greek, counts for neither side; a tie runs left to right.
TextDirection directionOf(std::string_view text);

} // namespace zelta
