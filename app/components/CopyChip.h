#pragma once

#include "app/components/CopyButton.h"
#include "app/model/Module.h"

namespace zelta {

/// A small pill that shows a single text and copies it: "25 March" with a copy symbol, in the page's own
/// colour. A click shows a check mark for half a second.
class CopyChip final : public CopyButton
{
    Q_OBJECT

public:
    CopyChip(Clock& clock, Module tint, QWidget* parent = nullptr);

    void setCopyText(const QString& text) override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Module m_tint;
};

} // namespace zelta
