#include "core/Uuid.h"

#include <uuid/uuid.h>

namespace zelta {

namespace {
constexpr std::size_t textLength = 36;
}

Uuid Uuid::random()
{
    Uuid id;
    uuid_generate_random(id.m_bytes.data());
    return id;
}

std::optional<Uuid> Uuid::fromText(std::string_view text)
{
    // The library reads up to a NUL and would take one inside the text for its end.
    if (text.size() != textLength || text.find('\0') != std::string_view::npos)
        return std::nullopt;
    std::array<char, textLength + 1> buffer {};
    text.copy(buffer.data(), textLength);
    Uuid id;
    if (uuid_parse(buffer.data(), id.m_bytes.data()) != 0)
        return std::nullopt;
    return id;
}

std::string Uuid::text() const
{
    std::array<char, textLength + 1> buffer {};
    uuid_unparse_upper(m_bytes.data(), buffer.data());
    return {buffer.data(), textLength};
}

} // namespace zelta
