#pragma once

#include "core/Enumeration.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace zelta {

/// The pages, in the order of the sidebar, the "Go" menu and the keys Ctrl+1 to Ctrl+8.
enum class Module { calculator, percent, converter, calendar, notes, duration, history, settings };

template <> struct EnumerationTable<Module>
{
    static constexpr auto all = std::to_array<std::pair<Module, std::string_view>>({
        {Module::calculator, "calculator"},
        {Module::percent, "percent"},
        {Module::converter, "converter"},
        {Module::calendar, "calendar"},
        {Module::notes, "notes"},
        {Module::duration, "duration"},
        {Module::history, "history"},
        {Module::settings, "settings"},
    });
};

// Who adds a page after the last one moves this on.
static_assert(caseCount<Module> == static_cast<std::size_t>(Module::settings) + 1, "each page has its row");

/// A page's colour: sRGB components from 0 to 1.
struct Tint
{
    double red = 0;
    double green = 0;
    double blue = 0;

    friend bool operator==(const Tint&, const Tint&) = default;
};

/// "Days Between": sidebar label, page header and menu item.
std::string_view title(Module module);

/// The line under the title. Empty for settings, whose subtitle follows the settings: see AppModel::subtitle.
std::string_view fixedSubtitle(Module module);

/// Symbol name of the page's badge, as Symbols knows it.
std::string_view symbol(Module module);

Tint tint(Module module);

} // namespace zelta
