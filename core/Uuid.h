#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zelta {

/// A 128-bit identifier (RFC 4122), written as "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64".
/// The default value is the nil identifier, all zeros, which is as valid as any other.
class Uuid
{
public:
    constexpr Uuid() = default;

    /// A fresh random identifier (version 4). Cannot fail.
    static Uuid random();

    /// Reads the canonical 36-character form with hexadecimal digits of either case; nothing for any other
    /// text (no braces, no blanks, no missing hyphens).
    static std::optional<Uuid> fromText(std::string_view text);

    /// The canonical 36-character form, upper case.
    [[nodiscard]] std::string text() const;

    [[nodiscard]] std::size_t hash() const
    {
        std::size_t start = 0;
        std::memcpy(&start, m_bytes.data(), sizeof start);
        return start;
    }

    friend constexpr bool operator==(const Uuid&, const Uuid&) = default;
    friend constexpr auto operator<=>(const Uuid&, const Uuid&) = default;

private:
    std::array<std::uint8_t, 16> m_bytes {};
};

} // namespace zelta

// Written out as a namespace: the meta-object compiler cannot read `struct std::hash<…>`.
namespace std {

template <> struct hash<zelta::Uuid>
{
    size_t operator()(const zelta::Uuid& id) const { return id.hash(); }
};

} // namespace std
