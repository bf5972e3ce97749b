#include "core/Uuid.h"

#include <uuid/uuid.h>

namespace zelta {

namespace {

constexpr std::size_t textLength = 36;

/// Where the two digits of each byte stand.
constexpr std::array<std::size_t, 16> digitPlaces {0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30, 32, 34};

constexpr std::uint8_t noDigit = 0x80;

/// The value of each character as a hexadecimal digit.
constexpr auto digits = [] {
    std::array<std::uint8_t, 256> values {};
    values.fill(noDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values[static_cast<unsigned char>("0123456789abcdef"[value])] = value;
        values[static_cast<unsigned char>("0123456789ABCDEF"[value])] = value;
    }
    return values;
}();

} // namespace

Uuid Uuid::random()
{
    Uuid id;
    uuid_generate_random(id.m_bytes.data());
    return id;
}

// By hand: a note has one at each paragraph, and the library takes longer over them than over all else.
std::optional<Uuid> Uuid::fromText(std::string_view text)
{
    if (text.size() != textLength || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-')
        return std::nullopt;
    Uuid id;
    unsigned seen = 0;
    for (std::size_t byte = 0; byte < digitPlaces.size(); ++byte) {
        const unsigned high = digits[static_cast<unsigned char>(text[digitPlaces[byte]])];
        const unsigned low = digits[static_cast<unsigned char>(text[digitPlaces[byte] + 1])];
        seen |= high | low;
        id.m_bytes[byte] = static_cast<std::uint8_t>(high << 4U | low);
    }
    return (seen & noDigit) == 0 ? std::optional(id) : std::nullopt;
}

std::string Uuid::text() const
{
    std::array<char, textLength + 1> buffer {};
    uuid_unparse_upper(m_bytes.data(), buffer.data());
    return {buffer.data(), textLength};
}

} // namespace zelta
