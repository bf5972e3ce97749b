#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace zelta {

/// All cases of an enumeration in declaration order, each with the text under which it is stored.
/// An enumeration that is stored specialises this with `static constexpr std::array<std::pair<E,
/// std::string_view>, N> all`.
template <class E> struct EnumerationTable;

/// The stored text of a case: `rawValue(Weight::headline)` is "headline". Empty for a value that is no case.
template <class E> constexpr std::string_view rawValue(E value)
{
    for (const auto& [candidate, text] : EnumerationTable<E>::all) {
        if (candidate == value)
            return text;
    }
    return {};
}

/// The case stored under exactly this text, or nothing; letter case counts.
template <class E> constexpr std::optional<E> fromRawValue(std::string_view text)
{
    for (const auto& [candidate, stored] : EnumerationTable<E>::all) {
        if (stored == text)
            return candidate;
    }
    return std::nullopt;
}

/// How many cases there are: the size of whatever has a place for each.
template <class E> inline constexpr std::size_t caseCount = EnumerationTable<E>::all.size();

/// Every case, in declaration order.
template <class E> constexpr auto allCases()
{
    std::array<E, caseCount<E>> cases {};
    for (std::size_t i = 0; i < cases.size(); ++i)
        cases[i] = EnumerationTable<E>::all[i].first;
    return cases;
}

} // namespace zelta
