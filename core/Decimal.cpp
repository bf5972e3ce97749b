#include "core/Decimal.h"

namespace zelta {

namespace {

std::string digitsOf(UInt128 value)
{
    std::string digits;
    for (; value != 0; value /= 10)
        digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(value % 10)));
    return digits;
}

} // namespace

std::string Decimal::text() const
{
    if (!isRepresentable())
        return "NaN";
    if (isZero())
        return "0";
    std::string digits = digitsOf(m_mantissa);
    if (m_exponent >= 0) {
        digits.append(static_cast<std::size_t>(m_exponent), '0');
    } else {
        const auto places = static_cast<std::size_t>(-m_exponent);
        if (digits.size() <= places)
            digits.insert(0, places + 1 - digits.size(), '0');
        digits.insert(digits.size() - places, 1, '.');
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.ends_with('.'))
            digits.pop_back();
    }
    return m_negative ? "-" + digits : digits;
}

} // namespace zelta
