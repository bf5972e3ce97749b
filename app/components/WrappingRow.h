#pragma once

#include "app/components/FlowLayout.h"

#include <QWidget>

namespace zelta {

/// A row of chips, buttons or fields that wraps onto further lines in a narrow window.
class WrappingRow : public QWidget
{
    Q_OBJECT

public:
    explicit WrappingRow(QWidget* parent = nullptr, int spacing = FlowLayout::defaultSpacing,
                         int lineSpacing = FlowLayout::defaultSpacing);

    /// Appends a child, which becomes the row's own.
    void add(QWidget* child);
};

} // namespace zelta
