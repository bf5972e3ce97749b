#include "core/Unicode.h"

#include <simdjson.h>
#include <unicode/uchar.h>
#include <unicode/utf.h>
#include <unicode/utf8.h>

#include <array>

namespace zelta::Unicode {

namespace {

constexpr char32_t replacement = 0xFFFD;

UChar32 toIcu(char32_t c)
{
    return static_cast<UChar32>(c);
}

template <class Predicate> std::string_view trimWhere(std::string_view text, Predicate isSpace)
{
    const CodePoints points(text);
    auto first = points.begin();
    while (first != points.end() && isSpace(*first))
        ++first;
    std::size_t end = text.size();
    while (end > first.offset()) {
        std::size_t start = end - 1;
        while (start > first.offset() && (static_cast<unsigned char>(text[start]) & 0xC0U) == 0x80U)
            --start;
        const CodePoints last(text.substr(start, end - start));
        // An ill-formed tail reads as more than one code point and is no space.
        if (!isSpace(*last.begin()) || std::next(last.begin()) != last.end())
            break;
        end = start;
    }
    return text.substr(first.offset(), end - first.offset());
}

} // namespace

void CodePoints::Iterator::readBeyondAscii()
{
    if (m_begin >= m_text.size())
        return;
    UChar32 value = 0;
    // The macro narrows within itself.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    U8_NEXT_OR_FFFD(m_text.data(), m_end, m_text.size(), value);
#pragma GCC diagnostic pop
    m_value = static_cast<char32_t>(value);
}

// For ASCII, which is most of what is asked about, no table of the library is read into memory.

bool isWhiteSpace(char32_t c)
{
    if (c < 0x80)
        return c == U' ' || (c >= U'\t' && c <= U'\r');
    return u_isUWhiteSpace(toIcu(c)) != 0;
}

bool isBlank(char32_t c)
{
    if (c < 0x80)
        return c == U' ' || c == U'\t';
    return u_charType(toIcu(c)) == U_SPACE_SEPARATOR;
}

bool isLineSeparator(char32_t c)
{
    return (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

std::string_view trim(std::string_view text)
{
    return trimWhere(text, isWhiteSpace);
}

std::string_view trimBlanks(std::string_view text)
{
    return trimWhere(text, isBlank);
}

std::string lowerCase(std::string_view text)
{
    constexpr char32_t capitalIWithDot = 0x130;
    std::string lower;
    lower.reserve(text.size());
    for (const char32_t c : CodePoints(text)) {
        if (c < 0x80)
            lower += static_cast<char>(c >= U'A' && c <= U'Z' ? c + 0x20 : c);
        else if (c == capitalIWithDot) // the only code point whose lower case is more than one
            lower += "i\u0307";
        else
            append(lower, static_cast<char32_t>(u_tolower(toIcu(c))));
    }
    return lower;
}

std::optional<int> digitValue(char32_t c)
{
    for (int digit = 0; digit <= 9; ++digit) {
        if (u_getNumericValue(toIcu(c)) == digit)
            return digit;
    }
    return std::nullopt;
}

void append(std::string& text, char32_t c)
{
    if (c > 0x10FFFF || U_IS_SURROGATE(c))
        c = replacement;
    std::array<char, U8_MAX_LENGTH> bytes {};
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes.data(), size, static_cast<UChar32>(c));
    text.append(bytes.data(), size);
}

std::string wellFormed(std::string_view text)
{
    if (simdjson::validate_utf8(text.data(), text.size()))
        return std::string(text);
    std::string whole;
    whole.reserve(text.size());
    for (const char32_t c : CodePoints(text))
        append(whole, c);
    return whole;
}

} // namespace zelta::Unicode
