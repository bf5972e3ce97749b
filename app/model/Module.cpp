#include "app/model/Module.h"

#include <cstddef>

namespace zelta {
namespace {

struct Description
{
    std::string_view title;
    std::string_view subtitle;
    std::string_view symbol;
    Tint tint;
};

/// In the order of `Module`.
constexpr auto descriptions = std::to_array<Description>({
    {"Calculator", "A plain calculator with a running tape", "plus.forwardslash.minus", {0.95, 0.60, 0.09}},
    {"Percentage", "What percent is it, and increase or decrease", "percent", {0.12, 0.62, 0.35}},
    {"Converter",
     "Length, weight and temperature, offline",
     "arrow.left.arrow.right.circle.fill",
     {0.10, 0.65, 0.62}},
    {"Calendar", "The month at a glance, with your weekend shaded", "calendar", {0.85, 0.25, 0.33}},
    {"Notes", "Plain notes that run right to left when the text does", "note.text", {0.78, 0.44, 0.86}},
    {"Days Between",
     "Days, workdays and calendar breakdown between two dates",
     "calendar.badge.clock",
     {0.16, 0.44, 0.94}},
    {"History", "Everything you have calculated, saved", "clock.arrow.circlepath", {0.42, 0.45, 0.50}},
    {"Settings", "", "gearshape.fill", {0.40, 0.42, 0.46}},
});
static_assert(descriptions.size() == caseCount<Module>);

const Description& describe(Module module)
{
    return descriptions[static_cast<std::size_t>(module)];
}

} // namespace

std::string_view title(Module module)
{
    return describe(module).title;
}

std::string_view fixedSubtitle(Module module)
{
    return describe(module).subtitle;
}

std::string_view symbol(Module module)
{
    return describe(module).symbol;
}

Tint tint(Module module)
{
    return describe(module).tint;
}

} // namespace zelta
