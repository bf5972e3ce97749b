#include "core/Decimal.h"

#include <array>

namespace zelta {

namespace {

/// The digits of a number below 10^38.
class Digits
{
public:
    explicit Digits(UInt128 value)
    {
        constexpr int groupDigits = 19; // as many as 64 bits hold
        for (; highHalf(value) != 0; value /= powerOfTen(groupDigits)) {
            auto group = static_cast<std::uint64_t>(value % powerOfTen(groupDigits));
            for (int i = 0; i < groupDigits; ++i, group /= 10)
                *--m_begin = static_cast<char>('0' + group % 10);
        }
        for (std::uint64_t rest = lowHalf(value); rest != 0; rest /= 10)
            *--m_begin = static_cast<char>('0' + rest % 10);
    }
    Digits(const Digits&) = delete;
    Digits& operator=(const Digits&) = delete;

    [[nodiscard]] std::string_view text() const { return {m_begin, m_buffer.data() + m_buffer.size()}; }

private:
    std::array<char, std::size_t {2} * Decimal::maxDigits> m_buffer;
    char* m_begin = m_buffer.data() + m_buffer.size();
};

} // namespace

std::string Decimal::text() const
{
    if (!isRepresentable())
        return "NaN";
    if (isZero())
        return "0";
    const Digits allDigits(m_mantissa);
    std::string_view digits = allDigits.text();
    std::string text(m_negative ? 1 : 0, '-');
    if (m_exponent >= 0)
        return text.append(digits).append(static_cast<std::size_t>(m_exponent), '0');

    auto places = static_cast<std::size_t>(-m_exponent);
    for (; places > 0 && digits.ends_with('0'); --places)
        digits.remove_suffix(1);
    const std::size_t whole = digits.size() > places ? digits.size() - places : 0;
    text += whole > 0 ? digits.substr(0, whole) : "0";
    digits.remove_prefix(whole);
    if (places > 0)
        text.append(1, '.').append(places - digits.size(), '0').append(digits);
    return text;
}

} // namespace zelta
