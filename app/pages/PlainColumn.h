#pragma once

#include <QVBoxLayout>

namespace zelta {

/// Lets a widget's parts stand one below the other and take its whole width.
inline QVBoxLayout* plainColumn(QWidget* widget, int spacing)
{
    auto* column = new QVBoxLayout(widget);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

} // namespace zelta
