#pragma once

#include "app/components/CopyMark.h"

#include <QAbstractButton>

namespace zelta {

/// A line of text with a copy symbol after it; a click copies it and shows a check mark for half a second.
/// The accessible name is the text itself.
class CopyableText final : public QAbstractButton
{
    Q_OBJECT

public:
    CopyableText(Clock& clock, const QString& help, QWidget* parent = nullptr);

    void setCopyText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    CopyMark m_mark;
};

} // namespace zelta
