#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QWidget>
#include <algorithm>

namespace zelta::test {

/// Whether the tool tip that is shown now goes no earlier than in an hour by itself.
inline bool tipLasts()
{
    constexpr unsigned hour = 3'600'000; // the longest is told in whole seconds, and just beyond an int
    const auto windows = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        windows, [](const QWidget* window) { return window->isVisible() && window->inherits("QTipLabel"); });
    if (tip == windows.end())
        return false;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(*tip);
    return std::ranges::all_of(
        timers, [](const auto& timer) { return static_cast<unsigned>(timer.interval) >= hour; });
}

} // namespace zelta::test
