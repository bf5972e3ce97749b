#pragma once

#include "tests/app/support/Accessible.h"

#include <QLabel>
#include <algorithm>

namespace zelta::test {

/// Whether a label shows this text.
inline bool showsText(const QWidget& page, const QString& text)
{
    const auto labels = page.findChildren<QLabel*>();
    return std::ranges::any_of(
        labels, [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
}

/// The first widget of a kind whose accessible name this is, which is a button's label where it has no other;
/// null when there is none.
template <class Kind> Kind* named(const QWidget& page, const QString& name)
{
    const auto all = page.findChildren<Kind*>();
    const auto found = std::ranges::find(
        all, name, [](Kind* widget) { return accessible(*widget).text(QAccessible::Name); });
    return found != all.end() ? *found : nullptr;
}

} // namespace zelta::test
