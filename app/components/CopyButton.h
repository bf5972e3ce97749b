#pragma once

#include "app/components/CopyMark.h"
#include "app/look/TextLine.h"
#include "app/look/Theme.h"

#include <QAbstractButton>

namespace zelta {

/// What `CopyChip` and `CopyableText` have in common: a button that is its text, copies it at a click, by
/// Space or by Return, and shows a check mark for half a second. Its accessible name is the text.
class CopyButton : public QAbstractButton
{
    Q_OBJECT

public:
    /// What is shown and copied.
    virtual void setCopyText(const QString& text);

protected:
    CopyButton(Clock& clock, Theme::FontRole role, QWidget* parent);

    [[nodiscard]] bool showsMark() const;

    /// Whole pixels that hold the text.
    [[nodiscard]] int textWidth() const;

    /// Draws the text at the left of the area, in the middle of its height; elided where that is too narrow.
    void drawText(QPainter& painter, const QRect& area) const;

    /// The symbol of the moment: two sheets, or the check mark.
    void drawSymbol(QPainter& painter, const QRect& area, const QColor& ink) const;

    void keyPressEvent(QKeyEvent* event) override;

    static constexpr int symbolSize = 14;

private:
    void showMark();

    CopyMark m_mark;
    mutable TextLine m_line; ///< The text as it was last measured.
};

} // namespace zelta
