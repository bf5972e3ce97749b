#pragma once

#include "app/components/CopyMark.h"
#include "app/model/Module.h"

#include <QAbstractButton>

namespace zelta {

/// A small pill that shows a single text and copies it: "25 March" with a copy symbol, in the page's own
/// colour. A click shows a check mark for half a second.
class CopyChip final : public QAbstractButton
{
    Q_OBJECT

public:
    CopyChip(Clock& clock, Module tint, QWidget* parent = nullptr);

    /// What is shown and copied.
    void setCopyText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Module m_tint;
    CopyMark m_mark;
};

} // namespace zelta
