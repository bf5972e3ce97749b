#pragma once

#include "core/Decimal.h"
#include "core/Enumeration.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace zelta {

/// Visual rank of a result line, most prominent first.
enum class Weight { headline, primary, detail };

/// Colouring of a result's value: a rise, a fall, or neither.
enum class Tone { neutral, up, down };

template <> struct EnumerationTable<Weight>
{
    static constexpr auto all = std::to_array<std::pair<Weight, std::string_view>>(
        {{Weight::headline, "headline"}, {Weight::primary, "primary"}, {Weight::detail, "detail"}});
};

template <> struct EnumerationTable<Tone>
{
    static constexpr auto all = std::to_array<std::pair<Tone, std::string_view>>(
        {{Tone::neutral, "neutral"}, {Tone::up, "up"}, {Tone::down, "down"}});
};

/// One labelled line of an answer: "Change X → Y: +50%  (increase)". The value is already rounded and
/// grouped. A label occurs once in a list of rows and identifies its line there.
struct ResultRow
{
    std::string label;
    std::string value;
    std::optional<std::string> note;
    Weight weight = Weight::primary;
    Tone tone = Tone::neutral;

    /// A row coloured by the sign of `number`: up above zero, down below, neutral at zero.
    /// `number` is the exact answer; `value` may show it rounded, and a rise that prints "0" is still up.
    static ResultRow withSign(std::string label, std::string value, const Decimal& number,
                              std::optional<std::string> note = std::nullopt,
                              Weight weight = Weight::primary);

    friend bool operator==(const ResultRow&, const ResultRow&) = default;
};

/// "label: value", and "  (note)" where there is a note.
std::string plainText(const ResultRow& row);

/// The rows' plain texts, separated by line feeds.
std::string plainText(std::span<const ResultRow> rows);

} // namespace zelta
