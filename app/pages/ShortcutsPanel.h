#pragma once

#include "app/components/Card.h"

namespace zelta {

/// The card "Shortcuts": what the keyboard does on the calculator page.
class ShortcutsPanel final : public Card
{
    Q_OBJECT

public:
    explicit ShortcutsPanel(QWidget* parent = nullptr);
};

} // namespace zelta
