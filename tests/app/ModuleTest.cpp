#include "app/model/Module.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelta {
namespace {

TEST(Module, PagesComeInTheOrderOfTheSidebar)
{
    std::vector<std::string_view> titles;
    for (const Module module : allCases<Module>())
        titles.push_back(title(module));
    EXPECT_EQ(titles,
              (std::vector<std::string_view> {"Calculator", "Percentage", "Converter", "Calendar", "Notes",
                                              "Days Between", "History", "Settings"}));
}

TEST(Module, IsReadFromItsExactStoredNameOnly)
{
    for (const Module module : allCases<Module>())
        EXPECT_EQ(fromRawValue<Module>(rawValue(module)), module);
    EXPECT_EQ(fromRawValue<Module>("Calculator"), std::nullopt);
    EXPECT_EQ(fromRawValue<Module>(""), std::nullopt);
}

TEST(Module, CarriesItsSymbolAndTint)
{
    EXPECT_EQ(symbol(Module::duration), "calendar.badge.clock");
    EXPECT_EQ(tint(Module::notes), (Tint {0.78, 0.44, 0.86}));
}

} // namespace
} // namespace zelta
