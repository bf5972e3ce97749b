#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

/// Text as Unicode code points. All texts are UTF-8; each ill-formed sequence reads as one U+FFFD, so that
/// every walk ends and no function here fails.
///
///     for (char32_t c : Unicode::CodePoints("a٣"))   // U+0061, U+0663
namespace zelta::Unicode {

/// A view of a text as code points. Holds no copy: the text must outlive it.
class CodePoints
{
public:
    class Iterator
    {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = char32_t;
        using difference_type = std::ptrdiff_t;
        using pointer = const char32_t*;
        using reference = char32_t;

        Iterator() = default;
        Iterator(std::string_view text, std::size_t offset)
            : m_text(text)
            , m_begin(offset)
            , m_end(offset)
        {
            read();
        }

        char32_t operator*() const { return m_value; }
        Iterator& operator++()
        {
            m_begin = m_end;
            read();
            return *this;
        }
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }

        /// Where this code point starts in the text, in bytes; the text's size at the end.
        [[nodiscard]] std::size_t offset() const { return m_begin; }

        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_begin == b.m_begin; }

    private:
        void read()
        {
            if (m_begin < m_text.size() && static_cast<unsigned char>(m_text[m_begin]) < 0x80)
                m_value = static_cast<unsigned char>(m_text[m_end++]);
            else
                readBeyondAscii();
        }
        void readBeyondAscii();

        std::string_view m_text;
        std::size_t m_begin = 0; ///< First byte of the current code point.
        std::size_t m_end = 0; ///< First byte after it.
        char32_t m_value = 0;
    };

    explicit CodePoints(std::string_view text)
        : m_text(text)
    { }

    [[nodiscard]] Iterator begin() const { return {m_text, 0}; }
    [[nodiscard]] Iterator end() const { return {m_text, m_text.size()}; }

private:
    std::string_view m_text;
};

/// Has the property White_Space: blanks, tabs, no-break spaces and all line separators.
bool isWhiteSpace(char32_t c);

/// A space within a line: a tab or a character of category Zs (space separator).
bool isBlank(char32_t c);

/// Ends a line: U+000A to U+000D, U+0085, U+2028 or U+2029. (CR LF is a pair that the caller joins.)
bool isLineSeparator(char32_t c);

/// The text without White_Space at both ends; a view into the same text.
std::string_view trim(std::string_view text);

/// The text without tabs and space separators at both ends; line separators stay. A view into the same text.
std::string_view trimBlanks(std::string_view text);

/// Lower case by the full mapping of each code point on its own, whatever stands beside it and whatever the
/// locale: Σ gives σ also at a word's end, İ gives i and U+0307. Ill-formed sequences come out as U+FFFD.
std::string lowerCase(std::string_view text);

/// The value of a character whose Unicode numeric value is a whole number from 0 to 9, in any script:
/// '7', '٧', '７', '七' and '⑦' give 7; '½' and 'x' nothing.
std::optional<int> digitValue(char32_t c);

/// Appends a code point as UTF-8; one that is no Unicode scalar value as U+FFFD.
void append(std::string& text, char32_t c);

/// The text with each ill-formed sequence replaced by U+FFFD; a well-formed text comes out unchanged.
std::string wellFormed(std::string_view text);

} // namespace zelta::Unicode
