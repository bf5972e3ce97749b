#pragma once

#include "app/components/CopyButton.h"

namespace zelta {

/// A line of text with a copy symbol after it; a click copies it and shows a check mark for half a second.
/// The accessible name is the text itself.
class CopyableText final : public CopyButton
{
    Q_OBJECT

public:
    CopyableText(Clock& clock, const QString& help, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace zelta
