#include "core/Num.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Any bytes give a number or nothing, and what is printed of a number reads as the same number again.

namespace {

using namespace zelta;

void require(bool promise)
{
    if (!promise)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto value = Num::parse({reinterpret_cast<const char*>(data), size});
    if (!value)
        return 0;
    require(value->isRepresentable());
    constexpr int allPlaces = -Decimal::minExponent;
    for (const bool grouping : {false, true})
        require(Num::parse(Num::string(*value, allPlaces, grouping)) == value);
    require(Decimal::fromText(value->text()) == value);
    for (const Rounding mode : {Rounding::plain, Rounding::down, Rounding::up, Rounding::bankers})
        require(Num::abs(Num::round(*value, 2, mode) - *value) <= 1);
    return 0;
}
