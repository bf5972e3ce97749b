#pragma once

#include "app/pages/ExactText.h"
#include "core/TextDirection.h"

#include <QBasicTimer>
#include <QPointF>
#include <QTextEdit>
#include <optional>

namespace zelta {

class ParagraphLayout;

/// The plain-text view of one paragraph. It is as high as its text, runs in the direction of most of its
/// letters, and undoes its own keystrokes; neither a direction nor a text set from outside can be undone.
class SelectableTextEditor final : public QTextEdit
{
    Q_OBJECT

public:
    explicit SelectableTextEditor(QWidget* parent = nullptr);

    /// The text, to the character: no-break spaces, carriage returns and line separators included.
    [[nodiscard]] QString text() const { return m_text.text(); }

    /// Puts another text in. The caret stays where it is, or goes to the end of a shorter text.
    void setText(const QString& text);

    [[nodiscard]] TextDirection direction() const { return m_direction; }

    /// Height of the text with its insets at the present width.
    [[nodiscard]] int textHeight() const;

    /// Where the lines begin and how high they are, as far as they are laid out.
    [[nodiscard]] QRect linesRect() const;

    /// Puts the caret before the first character or behind the last one. Arrows go on through an empty text
    /// in the direction in which they came.
    void putCaretAtEnd(bool last, TextDirection from);

    /// Puts the caret where this place is, or into the nearest line above or below it. Up and Down lead to
    /// the same x again, though a line in between may be shorter.
    void putCaret(const QPoint& place, QTextCursor::MoveMode mode = QTextCursor::MoveAnchor);

Q_SIGNALS:
    /// A person has changed the text.
    void edited();
    /// The text, or the width, asks for another height.
    void textHeightChanged();
    /// The caret has moved, or what is around it: this area should be in sight.
    void caretMoved(const QRect& area);
    /// A key takes the caret to a place above or below this view, and would mark nothing on the way.
    void caretLeaves(const QPoint& place);
    /// An arrow takes the caret past the last character, or past the first one.
    void caretPassedEnd(bool last);
    void focusChanged(bool focused);

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void followEdit(int from, int removed, int added);
    void applyDirection();
    void applyOption();
    void stepOverPieceBreak(const QKeyEvent& event);
    bool deletePicture();
    void stepOutOfCharacter(const QKeyEvent& event);
    void stepToOtherLine(QKeyEvent& event);
    void pressKey(QKeyEvent& event);
    [[nodiscard]] TextDirection arrowDirection() const;
    bool moveLine(const QKeyEvent& event);
    bool movePage(const QKeyEvent& event);

    ExactText m_text;
    ParagraphLayout* m_layout;
    TextDirection m_direction = TextDirection::leftToRight;
    TextDirection m_enteredFrom = TextDirection::leftToRight;
    bool m_isSetting = false;
    std::optional<int> m_column; // x to which Up and Down lead, until the caret moves otherwise
    QBasicTimer m_dragTimer; // while a selection is dragged beyond what is in sight
    QPointF m_dragPlace; // on the screen
};

} // namespace zelta
