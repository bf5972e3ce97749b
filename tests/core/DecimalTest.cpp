#include "core/Decimal.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace zelta {
namespace {

static_assert(std::is_trivially_copyable_v<Decimal>);
static_assert(!std::is_constructible_v<Decimal, double>);
static_assert(0.1_dec + 0.2_dec == 0.3_dec);
static_assert(2.50_dec == 2.5_dec);
static_assert(1_dec / 3_dec * 3_dec == 0.99999999999999999999999999999999999999_dec);

TEST(Decimal, AddsWithoutBinaryError)
{
    EXPECT_EQ((0.1_dec + 0.2_dec).text(), "0.3");
}

TEST(Decimal, DividesTo38Digits)
{
    EXPECT_EQ((2_dec / 3_dec).text(), "0.66666666666666666666666666666666666667");
    EXPECT_EQ((1_dec / 4_dec).text(), "0.25");
}

} // namespace
} // namespace zelta
