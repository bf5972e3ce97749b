#pragma once

#include "app/components/IconButton.h"

namespace zelta {

/// Exchanges two values: a borderless symbol whose tool tip and accessible name are the help.
/// Connect `clicked`.
class SwapButton : public IconButton
{
    Q_OBJECT

public:
    /// `module` gives the colour.
    SwapButton(const QString& help, Module module, QWidget* parent = nullptr);
};

} // namespace zelta
