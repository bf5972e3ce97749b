#include "app/components/SwapButton.h"

namespace zelta {

SwapButton::SwapButton(const QString& help, Module module, QWidget* parent)
    : IconButton("arrow.left.arrow.right", help, parent)
{
    setInk([module] { return Theme::ink(module); });
}

} // namespace zelta
