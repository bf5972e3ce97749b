#include "core/Num.h"

#include "core/Unicode.h"

#include <algorithm>

namespace zelta::Num {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The characters that can belong to a number: digits of any script as ASCII, the marks, and a sign in
/// front. A thin space becomes a blank; both only separate.
std::string keptCharacters(std::string_view text)
{
    constexpr char32_t thinSpace = 0x2009;
    constexpr char32_t minus = 0x2212;
    constexpr char32_t enDash = 0x2013;
    constexpr char32_t emDash = 0x2014;

    std::string kept;
    kept.reserve(text.size());
    for (const char32_t c : Unicode::CodePoints(text)) {
        if ((c >= U'0' && c <= U'9') || c == U'.' || c == U',' || c == U'\'' || c == U' ') {
            kept += static_cast<char>(c);
        } else if (c == U'-' || c == U'+' || c == minus || c == enDash || c == emDash) {
            if (kept.empty())
                kept += c == U'+' ? '+' : '-';
        } else if (c == thinSpace) {
            kept += ' ';
        } else if (c >= 0x80) {
            if (const std::optional<int> digit = Unicode::digitValue(c))
                kept += static_cast<char>('0' + *digit);
        }
    }
    return kept;
}

/// Whether a mark that stands at `at` for the last time separates thousands rather than the fraction: it
/// occurs more than once, or exactly three digits follow it and it is not the first character.
bool looksLikeGrouping(std::string_view text, char mark, std::size_t at)
{
    if (std::ranges::count(text, mark) > 1)
        return true;
    return at > 0 && text.size() - at == 4 && std::ranges::all_of(text.substr(at + 1), isDigit);
}

/// Where the decimal mark stands, or npos.
std::size_t decimalMark(std::string_view text)
{
    constexpr std::size_t none = std::string_view::npos;
    const std::size_t point = text.rfind('.');
    const std::size_t comma = text.rfind(',');
    if (point != none && comma != none)
        return std::max(point, comma);
    if (point != none)
        return std::ranges::count(text, '.') > 1 ? none : point;
    if (comma != none && !looksLikeGrouping(text, ',', comma))
        return comma;
    return none;
}

} // namespace

std::optional<Decimal> parse(std::string_view text)
{
    text = Unicode::trim(text);
    const bool bracketed = text.size() >= 3 && text.starts_with('(') && text.ends_with(')');
    if (bracketed)
        text = text.substr(1, text.size() - 2);

    const std::string kept = keptCharacters(text);
    std::string_view number = kept;
    const bool negative = number.starts_with('-');
    if (negative || number.starts_with('+'))
        number.remove_prefix(1);

    const std::size_t mark = std::min(decimalMark(number), number.size());
    std::string plain = negative != bracketed ? "-" : "";
    const std::size_t sign = plain.size();
    std::ranges::copy_if(number.substr(0, mark), std::back_inserter(plain), isDigit);
    const std::size_t whole = plain.size();
    if (mark < number.size())
        std::ranges::copy_if(number.substr(mark + 1), std::back_inserter(plain), isDigit);
    if (plain.size() == sign)
        return std::nullopt;
    if (plain.size() > whole)
        plain.insert(whole, 1, '.');
    if (whole == sign)
        plain.insert(sign, 1, '0');
    return Decimal::fromText(plain);
}

std::string string(const Decimal& value, int maxPlaces, bool grouping)
{
    std::string text = value.rounded(maxPlaces, Rounding::plain).text();
    return grouping ? grouped(text) : text;
}

std::string grouped(std::string_view number)
{
    const std::size_t begin = number.starts_with('-') ? 1 : 0;
    const std::size_t end = std::min(number.find('.'), number.size());
    if (end < begin + 4)
        return std::string(number);
    std::string text;
    text.reserve(number.size() + (end - begin) / 3);
    std::size_t at = begin + (end - begin - 1) % 3 + 1;
    text += number.substr(0, at);
    for (; at < end; at += 3)
        (text += ',') += number.substr(at, 3);
    return text += number.substr(end);
}

std::string integer(std::int64_t value)
{
    return grouped(std::to_string(value));
}

std::string percent(const Decimal& value, int maxPlaces, bool withSign)
{
    std::string text = withSign && value > 0 ? "+" : "";
    text += string(value, maxPlaces, true);
    return text += '%';
}

Decimal round(const Decimal& value, int places, Rounding mode)
{
    return value.rounded(places, mode);
}

Decimal abs(const Decimal& value)
{
    return value.isNegative() ? -value : value;
}

std::optional<Decimal> divide(const Decimal& dividend, const Decimal& divisor)
{
    if (divisor.isZero())
        return std::nullopt;
    return dividend / divisor;
}

} // namespace zelta::Num
