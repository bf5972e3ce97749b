#pragma once

#include "app/components/Label.h"

namespace zelta {

/// A text that screen readers speak when it comes into view, wherever the focus is: a confirmation, a
/// warning. Readers listen to no other change away from the focus, but they speak each notification that is
/// shown.
class Announcement final : public Label
{
    Q_OBJECT

public:
    Announcement(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent = nullptr);

    /// Has the text spoken that is in view already, because it has changed or counts once more.
    void announce();
};

} // namespace zelta
